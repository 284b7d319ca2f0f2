#pragma once

#include "platform/SystemDesktop.h"

namespace refhost {

/// The desktop of an analysis on a thread of its own, whose warnings have been told already.
class MuteDesktop : public kestrel::SystemDesktop {
 public:
    using Desktop::ShowMessage;
    kestrel::MessageAnswer ShowMessage(const std::string&, kestrel::MessageButtons buttons,
                                       const std::string&) override {
        return buttons == kestrel::MessageButtons::Ok      ? kestrel::MessageAnswer::Ok
               : buttons == kestrel::MessageButtons::YesNo ? kestrel::MessageAnswer::No
                                                           : kestrel::MessageAnswer::Cancel;
    }
    std::string LocaleString(kestrel::LocaleItem) override { return "."; }
    void SetLocaleString(kestrel::LocaleItem, const std::string&) override {}

 private:
    [[maybe_unused]] kestrel::SystemThread thread_;
};

}  // namespace refhost
