#include "com/automation/HostList.h"

namespace kestrel::com {
namespace {

using win32::ComPtr;
using win32::Variant;

/// Elements fetched by one call: what matters where the host is another process.
constexpr ULONG kBlock = 64;

/// Far more than a plan can hold; a list that goes on for ever is the host's fault.
constexpr std::size_t kMostElements = 1'000'000;

void Append(std::vector<Dispatch>& elements, Dispatch element, HostMember member) {
    if (!element) RaiseHostAnswer(member, "nothing where an object is needed");
    if (elements.size() == kMostElements) RaiseHostAnswer(member, "a list without an end");
    elements.push_back(std::move(element));
}

/// Reads the next block; false at the end of the list.
bool AppendBlock(std::vector<Dispatch>& elements, IEnumVARIANT& enumerator, const Dispatch& list,
                 HostMember member) {
    Variant block[kBlock];
    ULONG fetched = 0;
    const HRESULT result = [&] {
        const win32::FloatingPointBorder::InHost floatingPoint(*list.Connection().border);
        return enumerator.Next(kBlock, block, &fetched);
    }();
    if (FAILED(result))
        RaiseHostFailure(HostAction::Read, member, result, ExceptionInfo(), nullptr);
    if (fetched > kBlock) RaiseHostAnswer(member, "more elements than were asked for");
    for (ULONG i = 0; i < fetched; ++i)
        Append(elements, list.Wrapped(ObjectOf(block[i], member)), member);
    return result == S_OK && fetched > 0;
}

}  // namespace

std::vector<Dispatch> Elements(const Dispatch& list, const ListKind& kind) {
    std::vector<Dispatch> elements;
    if (!list) return elements;
    if (const ComPtr<IEnumVARIANT> enumerator = list.Enumerator(kind.enumerator)) {
        while (AppendBlock(elements, *enumerator, list, kind.enumerator)) continue;
    } else {
        const std::int32_t count = list.Int32(kind.count);
        for (std::int32_t position = 1; position <= count; ++position)
            Append(elements, list.Child(kind.item, position), kind.item);
    }
    return elements;
}

}  // namespace kestrel::com
