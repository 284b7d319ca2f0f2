#pragma once

#include <stdexcept>
#include <string>

/// The kinds of failure that the add-in tells apart. Everything else that is thrown is a
/// programming fault (`std::logic_error`).
namespace kestrel {

/// A call to the host failed; what() is the host's own description.
class HostError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// A document, text or number could not be read; what() is a sentence fit for the user.
class DataError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// A checked calculation overflowed, divided by zero or met an invalid operand. A number that
/// is not finite never leaves a calculation: this is raised in its place.
class ArithmeticError : public DataError {
 public:
    using DataError::DataError;
};

}  // namespace kestrel
