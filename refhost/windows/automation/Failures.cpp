#include "refhost/windows/automation/Failures.h"

#include "platform/win32/SystemMessage.h"

namespace refhost::automation {

std::string SentenceOf(HRESULT result, kestrel::win32::ExceptionInfo& failure,
                       const std::string& otherwise) {
    failure.FillIn();
    const std::string told = result == DISP_E_EXCEPTION ? failure.Description() : std::string();
    return told.empty() ? otherwise + ": " + kestrel::win32::SystemMessage(result) + "." : told;
}

}  // namespace refhost::automation
