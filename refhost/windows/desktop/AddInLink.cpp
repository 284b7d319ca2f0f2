#include "refhost/windows/desktop/AddInLink.h"

#include <ocidl.h>

#include "refhost/windows/console/AddInClass.h"
#include "util/Errors.h"

#include <Schedulon.h>

namespace refhost::win32 {

AddInLink::AddInLink(ReferenceHost& host, automation::HostProgram& program)
    : server_(std::make_shared<automation::AutomationServer>(host, program)),
      host_(server_->Application()) {}

AddInLink::~AddInLink() {
    if (started_) {
        try {
            CallMethod(*addIn_, L"LaunchStopSchedulon");
        } catch (const kestrel::HostError&) {
            // The add-in's own failure; it is let go of in any case.
        }
    }
    if (const auto site = addIn_.As<IObjectWithSite>(IID_IObjectWithSite))
        static_cast<void>(site->SetSite(nullptr));
    addIn_.Reset();
    listed_.reset();
    host_.Reset();
    server_->Disconnect();
}

void AddInLink::Connect() {
    if (addIn_) return;
    addIn_ = MakeAddInObject();
    const auto site = addIn_.As<IObjectWithSite>(IID_IObjectWithSite);
    if (!site || FAILED(site->SetSite(host_.Get()))) listed_.emplace(*host_, CLSID_Application);
}

void AddInLink::Call(const wchar_t* method) {
    Connect();
    CallMethod(*addIn_, method);
}

void AddInLink::LaunchStartSchedulon() {
    Call(L"LaunchStartSchedulon");
    started_ = true;
}

}  // namespace refhost::win32
