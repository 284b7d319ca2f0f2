#pragma once

#include <memory>
#include <vector>

#include "com/automation/Dispatch.h"

namespace kestrel::com {

/// A kind of list of the host's.
struct ListKind {
    HostMember enumerator;
    HostMember count;
    HostMember item;
};

/// Every object of the list in its order, by its enumerator or, where the host has none, by
/// position from 1. No list at all has no elements. HostError for an element that is nothing.
std::vector<Dispatch> Elements(const Dispatch& list, const ListKind& kind);

/// The object in the model's own type; nothing stays nothing.
template <class Proxy>
std::shared_ptr<Proxy> Wrap(Dispatch object) {
    return object ? std::make_shared<Proxy>(std::move(object)) : nullptr;
}

/// Elements() in the model's own types.
template <class Interface, class Proxy>
std::vector<std::shared_ptr<Interface>> WrapAll(const Dispatch& list, const ListKind& kind) {
    std::vector<std::shared_ptr<Interface>> wrapped;
    std::vector<Dispatch> elements = Elements(list, kind);
    wrapped.reserve(elements.size());
    for (Dispatch& element : elements)
        wrapped.push_back(std::make_shared<Proxy>(std::move(element)));
    return wrapped;
}

}  // namespace kestrel::com
