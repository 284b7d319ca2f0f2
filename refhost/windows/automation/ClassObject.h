#pragma once

#include <windows.h>

#include <functional>
#include <memory>

#include "refhost/windows/automation/AutomationServer.h"

namespace refhost::automation {

/// Offers the class Schedulon.Application to other processes while it lives. It serves one
/// client: the next one gets a host process of its own.
class ClassObject {
 public:
    /// Is told of the Application object when a client gets it.
    using Served = std::function<void(IUnknown& application)>;

    /// Nobody is served before Resume. Raises kestrel::HostError when the system refuses.
    ClassObject(std::shared_ptr<AutomationServer> server, Served served);
    ~ClassObject();
    ClassObject(const ClassObject&) = delete;
    ClassObject& operator=(const ClassObject&) = delete;

    void Resume();

 private:
    DWORD cookie_ = 0;
};

/// The class object itself: makes the server's one Application object, and keeps the program
/// running while a client locks it.
kestrel::win32::ComPtr<IUnknown> MakeClassFactory(std::shared_ptr<AutomationServer> server,
                                                  ClassObject::Served served);

}  // namespace refhost::automation
