#include "com/server/RegistryText.h"

#include <KestrelDll.h>

#include "com/server/Module.h"
#include "platform/win32/Handles.h"

namespace kestrel::com {
namespace {

std::wstring GuidText(REFGUID guid) {
    wchar_t text[39];
    const int length = StringFromGUID2(guid, text, static_cast<int>(std::size(text)));
    return std::wstring(text, static_cast<std::size_t>(length - 1));
}

void Replace(std::wstring& text, std::wstring_view mark, const std::wstring& by) {
    const auto at = text.find(mark);
    if (at != std::wstring::npos) text.replace(at, mark.size(), by);
}

}  // namespace

std::wstring Expanded(std::wstring text) {
    Replace(text, L"%CLSID%", GuidText(CLSID_clsKestrelDll));
    Replace(text, L"%LIBID%", GuidText(LIBID_KestrelDll));
    Replace(text, L"%PATH%", OwnPath());
    return text;
}

bool ClassesKeyExists(Scope scope, const wchar_t* key, REGSAM branch) {
    win32::RegistryKey opened;
    return RegOpenKeyExW(RootOf(scope), ClassesKey(key).c_str(), 0, KEY_READ | branch,
                         opened.Out()) == ERROR_SUCCESS;
}

}  // namespace kestrel::com
