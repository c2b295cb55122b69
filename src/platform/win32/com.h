#pragma once

#include <memory>

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

/// What a call of the form `make(Interface**)` gives; empty if it fails.
template <typename Interface, typename Make>
Com<Interface> comFrom(const Make& make) {
    Interface* object = nullptr;
    make(&object);
    return Com<Interface>(object);
}

}  // namespace win32
