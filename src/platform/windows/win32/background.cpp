#include "platform/windows/win32/background.h"

#include <uxtheme.h>
#include <vssym32.h>

#include <algorithm>

#include "forms/form.h"
#include "platform/windows/win32/fonts.h"

namespace win32 {

namespace {

bool holdsTabs(const forms::Container& container) {
    const auto& children = container.children();
    return std::ranges::any_of(children, [](const forms::Control* child) {
        return dynamic_cast<const forms::TabStrip*>(child) != nullptr;
    });
}

/// A function of the library of visual styles. Windows would look for a library that the program
/// names beside the program first.
template <typename Function>
Function* fromUxTheme(const char* name) {
    static const HMODULE library =
        LoadLibraryExW(L"uxtheme.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

}  // namespace

COLORREF tabPageColour() {
    const auto open = fromUxTheme<decltype(OpenThemeData)>("OpenThemeData");
    const auto draw = fromUxTheme<decltype(DrawThemeBackground)>("DrawThemeBackground");
    const auto close = fromUxTheme<decltype(CloseThemeData)>("CloseThemeData");
    const HTHEME theme = open(nullptr, L"TAB");
    if (!theme) return GetSysColor(COLOR_3DFACE);
    constexpr int size = 32;
    const RECT page{0, 0, size, size};
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    const Bitmap bitmap(CreateCompatibleBitmap(screen, size, size));
    const HGDIOBJ before = SelectObject(memory, bitmap.get());
    FillRect(memory, &page, GetSysColorBrush(COLOR_3DFACE));
    draw(theme, memory, TABP_BODY, 0, &page, nullptr);
    const COLORREF colour = GetPixel(memory, size / 2, size / 2);
    SelectObject(memory, before);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    close(theme);
    return colour;
}

COLORREF backgroundOf(forms::Container& container, COLORREF tabPage) {
    const std::uint32_t formColour = container.form().style.background;
    const bool coloured = formColour != forms::FormStyle::noColour;
    if (!container.parent()) {
        return coloured ? RGB(formColour >> 16 & 0xff, formColour >> 8 & 0xff, formColour & 0xff)
                        : GetSysColor(COLOR_3DFACE);
    }
    if (coloured) return GetSysColor(COLOR_WINDOW);
    return holdsTabs(*container.parent()) ? tabPage : backgroundOf(*container.parent(), tabPage);
}

HBRUSH brush(HDC device, COLORREF colour) {
    SetDCBrushColor(device, colour);
    return static_cast<HBRUSH>(GetStockObject(DC_BRUSH));
}

void fill(HWND window, HDC device, COLORREF colour) {
    RECT client;
    GetClientRect(window, &client);
    FillRect(device, &client, brush(device, colour));
}

}  // namespace win32
