#include "windows/server/RunProgram.h"

#include <gtest/gtest.h>

#include "platform/win32/Handles.h"

namespace kestrel::test {
namespace {

win32::FileHandle OutputFile() {
    wchar_t folder[MAX_PATH], path[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    GetTempFileNameW(folder, L"run", 0, path);
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return win32::FileHandle(
        CreateFileW(path, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_DELETE, &inherited,
                    CREATE_ALWAYS, FILE_FLAG_DELETE_ON_CLOSE | FILE_ATTRIBUTE_TEMPORARY, nullptr));
}

std::string Contents(HANDLE file) {
    SetFilePointer(file, 0, nullptr, FILE_BEGIN);
    std::string text(GetFileSize(file, nullptr), '\0');
    DWORD read = 0;
    EXPECT_TRUE(ReadFile(file, text.data(), static_cast<DWORD>(text.size()), &read, nullptr));
    text.resize(read);
    return text;
}

struct DialogSearch {
    DWORD process;
    int closed = 0;
};

BOOL CALLBACK CloseIfDialog(HWND window, LPARAM data) {
    DialogSearch& sought = *reinterpret_cast<DialogSearch*>(data);
    DWORD owner = 0;
    wchar_t className[16] = L"";
    GetWindowThreadProcessId(window, &owner);
    GetClassNameW(window, className, 16);
    if (owner == sought.process && std::wstring_view(className) == L"#32770" &&
        IsWindowVisible(window) && SendMessageW(window, WM_CLOSE, 0, 0) == 0)
        ++sought.closed;
    return TRUE;
}

/// Closes the message boxes of a process, which nobody else would answer.
int CloseDialogsOf(DWORD process) {
    DialogSearch search{process};
    EnumWindows(CloseIfDialog, reinterpret_cast<LPARAM>(&search));
    return search.closed;
}

}  // namespace

ProgramRun RunProgram(std::wstring commandLine) {
    const win32::FileHandle output = OutputFile();
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = start.hStdError = output.Get();
    PROCESS_INFORMATION started{};
    ProgramRun run;
    if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW,
                        nullptr, nullptr, &start, &started)) {
        run.exitCode = GetLastError();
        ADD_FAILURE() << "the program did not start";
        return run;
    }
    const win32::Handle process(started.hProcess), thread(started.hThread);
    constexpr DWORD kMinute = 60'000;
    const ULONGLONG began = GetTickCount64();
    while (WaitForSingleObject(process.Get(), 20) != WAIT_OBJECT_0) {
        run.closedDialogs += CloseDialogsOf(started.dwProcessId);
        if (GetTickCount64() - began > kMinute) TerminateProcess(process.Get(), WAIT_TIMEOUT);
    }
    GetExitCodeProcess(process.Get(), &run.exitCode);
    run.output = Contents(output.Get());
    return run;
}

}  // namespace kestrel::test
