// Two things that the C++ run-time library does for exceptions, done in a way that suits a guest of
// another process.
//
// It keeps, for each thread, which exceptions are under way. Its own way of
// doing so with this compiler takes a slot of thread-local storage, two handles and some memory of
// the process that it never gives back: a host that loads and unloads the DLL a thousand times
// would run out of slots. Two functions take the place of its own in the DLL. Storage of
// fibres has what thread-local storage lacks: when it is given up, the blocks of all threads are.
//
// It takes memory for what is thrown, and keeps some for the time when there is none left. But with
// this compiler that store is guarded by a lock which is itself only made when it is first needed:
// without memory it cannot be made, of which an exception tells, for which there is no memory...
// until the stack is used up. The store here needs no lock.
#include <windows.h>
#include <cxxabi.h>

#include <cstdlib>
#include <cstring>

namespace {

/// As the C++ ABI lays it out.
struct ExceptionState {
    void* caught;
    unsigned int uncaught;
};

class StateOfThreads {
 public:
    StateOfThreads() : slot_(FlsAlloc(FreeState)) {}
    ~StateOfThreads() {
        const DWORD slot = slot_;
        slot_ = FLS_OUT_OF_INDEXES;
        if (slot != FLS_OUT_OF_INDEXES) FlsFree(slot);
    }

    ExceptionState* Current() {
        if (slot_ == FLS_OUT_OF_INDEXES) return &shared_;
        if (void* state = FlsGetValue(slot_)) return static_cast<ExceptionState*>(state);
        void* state = HeapAlloc(GetProcessHeap(), HEAP_ZERO_MEMORY, sizeof(ExceptionState));
        if (!state || !FlsSetValue(slot_, state)) {
            FreeState(state);
            return &shared_;
        }
        return static_cast<ExceptionState*>(state);
    }

 private:
    static void WINAPI FreeState(void* state) { HeapFree(GetProcessHeap(), 0, state); }

    DWORD slot_;
    ExceptionState shared_{};  ///< where there is nothing better: right for one thread
};

// Made before anything else of the DLL, and gone after it.
__attribute__((init_priority(101))) StateOfThreads states;

/// Memory for exceptions when there is no other: a few at once in each of a few threads.
class SpareBlocks {
 public:
    void* Take(std::size_t size) noexcept {
        if (size > sizeof(Block)) return nullptr;
        for (std::size_t i = 0; i < kBlocks; ++i)
            if (InterlockedExchange(&taken_[i], 1) == 0) return &blocks_[i];
        return nullptr;
    }
    /// Whether the memory is one of the blocks, which is then free again.
    bool Give(void* memory) noexcept {
        for (std::size_t i = 0; i < kBlocks; ++i) {
            if (&blocks_[i] != memory) continue;
            InterlockedExchange(&taken_[i], 0);
            return true;
        }
        return false;
    }

 private:
    static constexpr std::size_t kBlocks = 32;
    struct alignas(16) Block {
        unsigned char bytes[1024];
    };
    Block blocks_[kBlocks];
    LONG volatile taken_[kBlocks];
};

SpareBlocks spare;  // zero before anything runs, as it has no constructor

#ifndef __SEH__
// In 32 bits the unwinder makes its lock with the first exception, and ends the process when there
// is no memory for it: the first one is thrown while the DLL is being loaded.
[[maybe_unused]] const bool unwinderHasItsLock = [] {
    try {
        throw 0;
    } catch (int) {
        return true;
    }
}();
#endif

/// The run-time library's own record stands directly before what is thrown. This is more than it
/// takes with any way of unwinding, and keeps what is thrown aligned.
constexpr std::size_t kRecordSize = 256;

void* Allocate(std::size_t size) noexcept {
    void* memory = std::malloc(size);
    if (!memory) memory = spare.Take(size);
    if (!memory) std::abort();
    return memory;
}

void Free(void* memory) noexcept {
    if (!spare.Give(memory)) std::free(memory);
}

}  // namespace

namespace __cxxabiv1 {

extern "C" void* __cxa_allocate_exception(std::size_t size) noexcept {
    void* const record = Allocate(kRecordSize + size);
    std::memset(record, 0, kRecordSize);
    return static_cast<unsigned char*>(record) + kRecordSize;
}

extern "C" void __cxa_free_exception(void* thrown) noexcept {
    Free(static_cast<unsigned char*>(thrown) - kRecordSize);
}

// Of an exception that is thrown again from a std::exception_ptr: the record alone.
extern "C" __cxa_dependent_exception* __cxa_allocate_dependent_exception() noexcept {
    void* const record = std::memset(Allocate(kRecordSize), 0, kRecordSize);
    return static_cast<__cxa_dependent_exception*>(record);
}

extern "C" void __cxa_free_dependent_exception(__cxa_dependent_exception* record) noexcept {
    Free(record);
}

extern "C" __cxa_eh_globals* __cxa_get_globals() noexcept {
    return reinterpret_cast<__cxa_eh_globals*>(states.Current());
}

extern "C" __cxa_eh_globals* __cxa_get_globals_fast() noexcept {
    return reinterpret_cast<__cxa_eh_globals*>(states.Current());
}

}  // namespace __cxxabiv1
