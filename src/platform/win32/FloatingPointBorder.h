#pragma once

#include <xmmintrin.h>

#include <utility>

namespace kestrel::win32 {

/// How a thread calculates: the control words of both units. As it is made: the way in which the
/// figures are defined, without traps, rounding to nearest, small numbers kept.
struct FloatingPointWay {
    unsigned sse = 0x1F80;
    unsigned short x87 = 0x037F;

    static FloatingPointWay Current() {
        FloatingPointWay way;
        way.sse = _mm_getcsr();
        __asm__ __volatile__("fnstcw %0" : "=m"(way.x87));
        return way;
    }
    /// Flags that calculations have raised go first: with traps on they would go off in the next
    /// instruction.
    void Set() const {
        __asm__ __volatile__("fnclex\n\tfldcw %0" : : "m"(x87));
        _mm_setcsr(sse);
    }
    bool operator==(const FloatingPointWay& other) const {
        constexpr unsigned kFlags = 0x3F;
        return ((sse ^ other.sse) & ~kFlags) == 0 && x87 == other.x87;
    }
};

/// The border between a host and the add-in, of one thread. Hosts differ: some have floating-point
/// traps on, some round or flush small numbers otherwise, and either would change the add-in's
/// figures or end the process in the middle of them. So each side calculates its own way, however
/// calls go to and fro. A crossing costs two stores of control words where both ways are the same.
class FloatingPointBorder {
    FloatingPointWay host_;  ///< while the add-in is at work
    bool inAddIn_ = false;

 public:
    /// The add-in is at work as long as it lives. Inside another one it does nothing.
    class InAddIn {
     public:
        explicit InAddIn(FloatingPointBorder& border)
            : border_(border), crossed_(!std::exchange(border.inAddIn_, true)) {
            if (crossed_) outer_ = std::exchange(border.host_, FloatingPointWay::Current());
            if (crossed_) FloatingPointWay().Set();
        }
        InAddIn(const InAddIn&) = delete;
        InAddIn& operator=(const InAddIn&) = delete;
        ~InAddIn() {
            if (!crossed_) return;
            std::exchange(border_.host_, outer_).Set();
            border_.inAddIn_ = false;
        }

     private:
        FloatingPointBorder& border_;
        const bool crossed_;
        FloatingPointWay outer_;
    };

    /// The add-in calls its host as long as it lives. What the host sets meanwhile stays its own.
    class InHost {
     public:
        explicit InHost(FloatingPointBorder& border)
            : border_(border), crossed_(std::exchange(border.inAddIn_, false)) {
            if (crossed_ && !(border.host_ == FloatingPointWay())) border.host_.Set();
        }
        InHost(const InHost&) = delete;
        InHost& operator=(const InHost&) = delete;
        ~InHost() {
            if (!crossed_) return;
            border_.host_ = FloatingPointWay::Current();
            if (!(border_.host_ == FloatingPointWay())) FloatingPointWay().Set();
            border_.inAddIn_ = true;
        }

     private:
        FloatingPointBorder& border_;
        const bool crossed_;
    };
};

}  // namespace kestrel::win32
