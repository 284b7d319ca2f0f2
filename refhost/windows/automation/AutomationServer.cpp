#include "refhost/windows/automation/AutomationServer.h"

#include "base/Errors.h"
#include "refhost/windows/automation/ApplicationObject.h"
#include "refhost/windows/automation/PlanObjects.h"

namespace refhost::automation {

using kestrel::win32::ComPtr;

AutomationServer::AutomationServer(ReferenceHost& host, HostProgram& program, TypeLibrary types)
    : host_(&host), program_(&program), types_(std::move(types)) {}

AutomationServer::~AutomationServer() = default;

ComPtr<IDispatch> AutomationServer::Application() {
    if (application_) return ComPtr<IDispatch>(application_->AsDispatch());
    return ComPtr<IDispatch>::Attach((new ApplicationObject(shared_from_this()))->AsDispatch());
}

ComPtr<IDispatch> AutomationServer::ActivePlan() {
    const std::shared_ptr<HostPlan>& plan = Host().OpenPlan();
    if (!plan) return nullptr;
    auto offered = activePlan_.lock();
    if (!offered || &offered->Plan() != plan.get()) {
        offered = std::make_shared<OfferedPlan>(shared_from_this(), plan);
        activePlan_ = offered;
    }
    return OfferPlan(*offered);
}

void AutomationServer::Disconnect() {
    if (application_) application_->Disconnect();
    host_ = nullptr;
    program_ = nullptr;
}

ReferenceHost& AutomationServer::Host() const {
    if (host_) return *host_;
    throw kestrel::HostError("The host has ended; start it again.");
}

HostProgram& AutomationServer::Program() const {
    if (program_) return *program_;
    throw kestrel::HostError("The host has ended; start it again.");
}

void AutomationServer::DropUse() {
    if (--uses_ == 0 && program_) program_->Unused();
}

}  // namespace refhost::automation
