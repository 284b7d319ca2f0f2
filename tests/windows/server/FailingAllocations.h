#pragma once

#include <windows.h>

namespace kestrel::test {

/// What a module takes memory with, failing from a call on. Only the module's own calls are
/// counted. One at a time, on one thread.
class FailingAllocations {
 public:
    explicit FailingAllocations(HMODULE module);
    ~FailingAllocations();
    FailingAllocations(const FailingAllocations&) = delete;
    FailingAllocations& operator=(const FailingAllocations&) = delete;

    /// The `first`-th call from now on (from 0) fails, and every one after it.
    void FailFrom(int first);
    /// None fails any more; answers how many have.
    int Stop();
};

}  // namespace kestrel::test
