#include "refhost/windows/automation/Registration.h"

#include <string>

#include "base/Errors.h"
#include "platform/win32/ClassRegistration.h"
#include "platform/win32/Paths.h"
#include "platform/win32/SystemMessage.h"

#include <Schedulon.h>

namespace refhost::automation {
namespace {

using kestrel::win32::ClassRegistration;

ClassRegistration OfHost() {
    return ClassRegistration({CLSID_Application, L"Schedulon.Application", L"Schedulon Application",
                              LIBID_Schedulon, ClassRegistration::Server::Program,
                              kestrel::win32::ModulePath()});
}

void Require(HRESULT result, const char* what) {
    if (FAILED(result))
        throw kestrel::HostError(std::string("The host could not be ") + what + ": " +
                                 kestrel::win32::SystemMessage(result) +
                                 "; try again as an administrator.");
}

}  // namespace

void RegisterHost() { Require(OfHost().Register(), "registered"); }

void UnregisterHost() { Require(OfHost().Unregister(), "unregistered"); }

}  // namespace refhost::automation
