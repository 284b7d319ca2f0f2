// The C++ run-time library keeps, for each thread, which exceptions are under way. Its own way of
// doing so with this compiler takes a slot of thread-local storage, two handles and some memory of
// the process that it never gives back: a host that loads and unloads the DLL a thousand times
// would run out of slots. These two functions take the place of its own in the DLL. Storage of
// fibres has what thread-local storage lacks: when it is given up, the blocks of all threads are.
#include <windows.h>
// windows.h first
#include <cxxabi.h>

namespace __gnu_cxx {
void __freeres();  // gives back the memory kept for throwing when there is none left
}

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
        __gnu_cxx::__freeres();
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

}  // namespace

namespace __cxxabiv1 {

extern "C" __cxa_eh_globals* __cxa_get_globals() noexcept {
    return reinterpret_cast<__cxa_eh_globals*>(states.Current());
}

extern "C" __cxa_eh_globals* __cxa_get_globals_fast() noexcept {
    return reinterpret_cast<__cxa_eh_globals*>(states.Current());
}

}  // namespace __cxxabiv1
