#include "platform/win32/Paths.h"

#include "platform/win32/WideText.h"

namespace kestrel::win32 {
namespace {

/// Functions that make a folder or a temporary name need room for a short file name.
constexpr std::size_t kClassicLimit = MAX_PATH - 12;

/// Also turns "/" into "\".
std::wstring FullPath(const std::wstring& path) {
    std::wstring full(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
        const bool fits = length < full.size();
        full.resize(length);
        if (fits) return full;
    }
}

}  // namespace

std::wstring SystemPath(std::string_view path) {
    const std::wstring wide = Wide(path);
    // With a NUL in it the system would see another path than the caller means.
    if (wide.empty() || wide.find(L'\0') != wide.npos) return {};
    std::wstring full = FullPath(wide);
    if (full.size() < kClassicLimit || full.starts_with(L"\\\\?\\") || full.starts_with(L"\\\\.\\"))
        return full;
    if (full.starts_with(L"\\\\")) return L"\\\\?\\UNC" + full.substr(1);
    return L"\\\\?\\" + full;
}

std::wstring ModulePath(HMODULE module) {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {  // the call cuts off silently what does not fit
        const DWORD length =
            GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

}  // namespace kestrel::win32
