#pragma once

#include <unistd.h>

#include <cerrno>
#include <string>
#include <system_error>
#include <utility>

namespace kestrel::posix {

inline std::string LastError() { return std::generic_category().message(errno); }

/// Owns a file descriptor.
class Descriptor {
 public:
    explicit Descriptor(int value) : value_(value) {}
    ~Descriptor() {
        if (IsOpen()) ::close(value_);
    }
    Descriptor(Descriptor&& other) noexcept : value_(std::exchange(other.value_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(value_, other.value_);
        return *this;
    }

    int Get() const { return value_; }
    bool IsOpen() const { return value_ >= 0; }

    /// Closes now, so that an error of the last write shows; answers whether it went well.
    bool Close() { return ::close(std::exchange(value_, -1)) == 0; }

 private:
    int value_;
};

}  // namespace kestrel::posix
