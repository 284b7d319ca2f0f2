#include "refhost/windows/console/AddInConnection.h"

#include <ocidl.h>

#include "base/Errors.h"
#include "refhost/windows/console/AddInClass.h"

#include <Schedulon.h>

namespace refhost {

AddInConnection::AddInConnection(ReferenceHost& host, automation::HostProgram& program)
    : server_(std::make_shared<automation::AutomationServer>(host, program)),
      host_(server_->Application()) {}

AddInConnection::~AddInConnection() {
    if (started_) {
        try {
            Call(L"LaunchStopSchedulon");
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

void AddInConnection::Connect() {
    if (addIn_) return;
    addIn_ = MakeAddInObject();
    // Several hosts may be running, so the site is the sure way.
    const auto site = addIn_.As<IObjectWithSite>(IID_IObjectWithSite);
    if (!site || FAILED(site->SetSite(host_.Get()))) listed_.emplace(*host_, CLSID_Application);
}

void AddInConnection::Call(const wchar_t* method) {
    Connect();
    CallMethod(*addIn_, method);
}

void AddInConnection::Start() {
    Call(L"LaunchStartSchedulon");
    started_ = true;
}

}  // namespace refhost
