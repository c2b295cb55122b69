#pragma once

#include <stdexcept>

namespace forms {

/// A failed operation of the platform; what() is the system's own text, in UTF-8.
class RuntimeError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// An operation that the program itself refuses; what() is its own text.
class Refusal : public RuntimeError {
  public:
    using RuntimeError::RuntimeError;
};

}  // namespace forms
