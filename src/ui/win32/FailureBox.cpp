#include "ui/win32/FailureBox.h"

#include <string>

#include "base/Errors.h"
#include "platform/Desktop.h"
#include "platform/win32/WideText.h"

namespace kestrel::ui::win32 {
namespace {

std::string SentenceOf(const std::exception_ptr& failure) {
    try {
        std::rethrow_exception(failure);
    } catch (const HostError& error) {
        return error.what();
    } catch (const DataError& error) {
        return error.what();
    } catch (const std::exception& fault) {
        return std::string("A fault of the program has ended what was being done (") +
               fault.what() + "). This window stays open; save or confirm your work.";
    } catch (...) {
        return "A fault of the program has ended what was being done. This window stays open; "
               "save or confirm your work.";
    }
}

}  // namespace

void ShowFailure(HWND owner, const std::exception_ptr& failure) noexcept {
    using kestrel::win32::Wide;
    try {
        MessageBoxW(owner, Wide(SentenceOf(failure)).c_str(), Wide(kApplicationTitle).c_str(),
                    MB_OK);
    } catch (...) {
        MessageBeep(MB_ICONERROR);
    }
}

}  // namespace kestrel::ui::win32
