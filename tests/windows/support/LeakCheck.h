#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>

namespace kestrel::test {

/// What this process holds of the system at one moment. Counted object by object: Wine answers 0
/// where Windows keeps the totals.
struct Holdings {
    std::size_t handles = 0;     ///< files, events, threads, registry keys, ...
    std::size_t gdiObjects = 0;  ///< fonts, bitmaps, pens, device contexts, ...
    std::size_t windows = 0;     ///< of this process, children and message-only ones included
    std::size_t heapBlocks = 0;  ///< in all heaps of the process
    std::size_t heapBytes = 0;
};

Holdings CountHoldings();

/// Runs `round` a tenth of `rounds` times, so that what is made once is there, then `rounds` times
/// more. Fails, naming it, when something has grown meanwhile. The heap may grow by a block in
/// eight rounds: lists and caches of the system do.
testing::AssertionResult LeakCheck(int rounds, const std::function<void()>& round);

}  // namespace kestrel::test
