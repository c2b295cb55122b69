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
/// An object of the system's component model that is released with its owner; empty for none.
template <typename Interface>
using Com = std::unique_ptr<Interface, ComRelease>;

/// What a call of the form `make(Interface**)`, which gives an HRESULT, makes; empty if it fails.
template <typename Interface, typename Make>
Com<Interface> comFrom(const Make& make) {
    Interface* object = nullptr;
    return SUCCEEDED(make(&object)) ? Com<Interface>(object) : nullptr;
}

}  // namespace win32
