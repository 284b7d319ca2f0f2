#include "windows/server/FailingAllocations.h"

#include <oleauto.h>

#include <cstdlib>
#include <cstring>
#include <limits>
#include <vector>

namespace kestrel::test {
namespace {

int left = std::numeric_limits<int>::max();
int failed = 0;

bool Fails() {
    left -= left > 0;
    failed += left == 0;
    return left == 0;
}

void* Malloc(std::size_t size) { return Fails() ? nullptr : std::malloc(size); }
void* Calloc(std::size_t count, std::size_t size) {
    return Fails() ? nullptr : std::calloc(count, size);
}
void* Realloc(void* memory, std::size_t size) {
    return Fails() ? nullptr : std::realloc(memory, size);
}
BSTR WINAPI TextOf(const OLECHAR* text, UINT length) {
    return Fails() ? nullptr : SysAllocStringLen(text, length);
}

const struct {
    const char* name;
    void* replacement;
} kReplaced[] = {{"malloc", reinterpret_cast<void*>(&Malloc)},
                 {"calloc", reinterpret_cast<void*>(&Calloc)},
                 {"realloc", reinterpret_cast<void*>(&Realloc)},
                 {"SysAllocStringLen", reinterpret_cast<void*>(&TextOf)}};

struct Patch {
    void** place;
    void* original;
};
std::vector<Patch> patches;

void Write(void** place, void* address) {
    DWORD protection = 0;
    VirtualProtect(place, sizeof *place, PAGE_READWRITE, &protection);
    *place = address;
    VirtualProtect(place, sizeof *place, protection, &protection);
}

}  // namespace

FailingAllocations::FailingAllocations(HMODULE module) {
    auto* const base = reinterpret_cast<unsigned char*>(module);
    const auto* dos = reinterpret_cast<IMAGE_DOS_HEADER*>(base);
    const auto* headers = reinterpret_cast<IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const auto& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    for (auto* dll = reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress);
         dll->Name; ++dll) {
        auto* names = reinterpret_cast<IMAGE_THUNK_DATA*>(base + dll->OriginalFirstThunk);
        auto* places = reinterpret_cast<void**>(base + dll->FirstThunk);
        for (; names->u1.AddressOfData; ++names, ++places) {
            if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) continue;
            const auto* import =
                reinterpret_cast<IMAGE_IMPORT_BY_NAME*>(base + names->u1.AddressOfData);
            for (const auto& [name, replacement] : kReplaced) {
                if (std::strcmp(import->Name, name) != 0) continue;
                patches.push_back({places, *places});
                Write(places, replacement);
            }
        }
    }
}

FailingAllocations::~FailingAllocations() {
    Stop();
    for (const Patch& patch : patches) Write(patch.place, patch.original);
    patches.clear();
}

void FailingAllocations::FailFrom(int first) {
    left = first + 1;
    failed = 0;
}

int FailingAllocations::Stop() {
    left = std::numeric_limits<int>::max();
    return failed;
}

}  // namespace kestrel::test
