#include "windows/support/LeakCheck.h"

#include <windows.h>

#include <cstdint>
#include <vector>

namespace kestrel::test {
namespace {

std::size_t CountHandles() {
    DWORD count = 0;
    if (GetProcessHandleCount(GetCurrentProcess(), &count) && count != 0) return count;
    std::size_t found = 0;
    for (ULONG_PTR value = 4; value < 0x10000; value += 4) {
        DWORD flags = 0;
        if (GetHandleInformation(reinterpret_cast<HANDLE>(value), &flags)) ++found;
    }
    return found;
}

/// An entry of the table of GDI objects that the system shows to each process.
struct GdiEntry {
    std::uint64_t object;
    WORD process;  ///< 0: this one, or everybody's
    WORD reserved;
    WORD generation;
    BYTE type;  ///< 0: free
    BYTE flags;
    std::uint64_t userData;
};

std::size_t CountGdiObjects() {
    if (const DWORD count = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS)) return count;
    const auto blockOfProcess = reinterpret_cast<const char*(WINAPI*)()>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlGetCurrentPeb")));
    // Where the process environment block keeps the table's address.
    constexpr int kOffset = sizeof(void*) == 8 ? 0xF8 : 0x94;
    const auto* table = *reinterpret_cast<const GdiEntry* const*>(blockOfProcess() + kOffset);
    std::size_t found = 0;
    for (int i = 0; table && i < 0x10000; ++i)
        if (table[i].type != 0) ++found;
    return found;
}

BOOL CALLBACK CountChild(HWND, LPARAM found) {
    ++*reinterpret_cast<std::size_t*>(found);
    return TRUE;
}

BOOL CALLBACK CountOwn(HWND window, LPARAM found) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != GetCurrentProcessId()) return TRUE;
    ++*reinterpret_cast<std::size_t*>(found);
    EnumChildWindows(window, CountChild, found);
    return TRUE;
}

std::size_t CountWindows() {
    std::size_t found = 0;
    const auto result = reinterpret_cast<LPARAM>(&found);
    EnumWindows(CountOwn, result);
    for (HWND window = nullptr;
         (window = FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr)) != nullptr;)
        CountOwn(window, result);
    return found;
}

void CountHeap(HANDLE heap, Holdings& holdings) {
    if (!HeapLock(heap)) return;
    PROCESS_HEAP_ENTRY entry{};
    while (HeapWalk(heap, &entry)) {
        if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) == 0) continue;
        ++holdings.heapBlocks;
        holdings.heapBytes += entry.cbData;
    }
    HeapUnlock(heap);
}

}  // namespace

Holdings CountHoldings() {
    Holdings holdings;
    std::vector<HANDLE> heaps(GetProcessHeaps(0, nullptr));
    heaps.resize(GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data()));
    for (HANDLE heap : heaps) CountHeap(heap, holdings);
    holdings.handles = CountHandles();
    holdings.gdiObjects = CountGdiObjects();
    holdings.windows = CountWindows();
    return holdings;
}

testing::AssertionResult LeakCheck(int rounds, const std::function<void()>& round) {
    CountHoldings();  // which makes a thing or two itself
    for (int i = 0; i < rounds / 10; ++i) round();
    const Holdings before = CountHoldings();
    for (int i = 0; i < rounds; ++i) round();
    const Holdings after = CountHoldings();

    const struct {
        const char* what;
        std::size_t before, after, allowed;
    } rows[] = {
        {"handles", before.handles, after.handles, 0},
        {"GDI objects", before.gdiObjects, after.gdiObjects, 0},
        {"windows", before.windows, after.windows, 0},
        {"heap blocks", before.heapBlocks, after.heapBlocks, static_cast<std::size_t>(rounds) / 8},
        {"heap bytes", before.heapBytes, after.heapBytes, static_cast<std::size_t>(rounds) * 16},
    };
    testing::AssertionResult grown = testing::AssertionFailure();
    bool failed = false;
    for (const auto& row : rows) {
        if (row.after <= row.before + row.allowed) continue;
        grown << row.what << ": " << row.before << " before, " << row.after << " after " << rounds
              << " rounds; ";
        failed = true;
    }
    return failed ? grown : testing::AssertionSuccess();
}

}  // namespace kestrel::test
