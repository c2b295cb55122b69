#pragma once

#include <stdexcept>

namespace forms {

/// A failed operation of the platform; what() is the system's own text, in UTF-8.
class RuntimeError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

}  // namespace forms
