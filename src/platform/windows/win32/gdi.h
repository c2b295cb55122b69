#pragma once

#include <memory>
#include <type_traits>

#include "platform/windows/windows_api.h"

/// Owners of graphics objects of Windows.
namespace win32 {

struct GdiCloser {
    void operator()(void* object) const { DeleteObject(object); }
};
template <typename Handle>
using Gdi = std::unique_ptr<std::remove_pointer_t<Handle>, GdiCloser>;
using Font = Gdi<HFONT>;
using Bitmap = Gdi<HBITMAP>;

struct IconCloser {
    void operator()(HICON icon) const { DestroyIcon(icon); }
};
using Icon = std::unique_ptr<std::remove_pointer_t<HICON>, IconCloser>;

}  // namespace win32
