#pragma once

#include "com/automation/Dispatch.h"
#include "host/HostModel.h"

namespace kestrel::com {

/// The view that the user is working in, behind Automation.
///
/// Its type name is its property TypeName where it has one, else the name that its type
/// information gives the class, or the interface less a leading "_" or "I"; "" when the host
/// tells neither. Views differ in type, so each asks for its members' ids itself.
class ViewProxy : public host::View {
 public:
    explicit ViewProxy(const Dispatch& view)
        : view_(view.Object(), std::make_shared<HostConnection>()) {}
    std::string TypeName() override;
    std::int32_t CurrentRow() override { return view_.Int32(HostMember::ViewCurrentRow); }
    void PutCurrentRow(std::int32_t row) override { view_.Put(HostMember::ViewCurrentRow, row); }

 private:
    Dispatch view_;
};

}  // namespace kestrel::com
