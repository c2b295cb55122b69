#pragma once

#include <memory>

#include "platform/windows/windows_api.h"

namespace win32 {

struct ComRelease {
    template <typename Interface>
    void operator()(Interface* object) const {
        object->Release();
    }
};
/// Owns a reference to a COM object; may be empty.
template <typename Interface>
using Com = std::unique_ptr<Interface, ComRelease>;

/// Returns the object that `make(Interface**)` creates, or null if its HRESULT is a failure.
template <typename Interface, typename Make>
Com<Interface> comFrom(const Make& make) {
    Interface* object = nullptr;
    return SUCCEEDED(make(&object)) ? Com<Interface>(object) : nullptr;
}

}  // namespace win32
