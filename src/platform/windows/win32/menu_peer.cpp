#include "forms/form.h"
#include "platform/windows/wide.h"
#include "platform/windows/win32/peers.h"

namespace win32 {

namespace {

/// A menu item, which opens a menu if it has items of its own. All menus belong to the window's
/// bar.
class MenuPeer : public forms::Peer {
  public:
    MenuPeer(forms::MenuItem& item, const Site& site)
        : item_(item), window_(site.parent), id_(site.id) {
        MENUITEMINFOW info = emptyInfo(MIIM_ID);
        info.wID = id_;
        if (!item.children().empty()) {
            info.fMask |= MIIM_SUBMENU;
            info.hSubMenu = CreatePopupMenu();
        }
        InsertMenuItemW(parentMenu(), static_cast<UINT>(-1), TRUE, &info);
        update();
    }

    void update() override {
        std::wstring caption = platform::wide(item_.Caption());
        MENUITEMINFOW info = emptyInfo(MIIM_FTYPE | MIIM_STATE);
        info.fType = item_.Caption() == "-" ? MFT_SEPARATOR : MFT_STRING;
        info.fState = item_.Enabled ? MFS_ENABLED : MFS_DISABLED;
        if (info.fType == MFT_STRING) {
            info.fMask |= MIIM_STRING;
            info.dwTypeData = caption.data();
        }
        SetMenuItemInfoW(GetMenu(window_), id_, FALSE, &info);
        if (item_.parent() == &item_.form() && IsWindowVisible(window_)) DrawMenuBar(window_);
    }

  private:
    static MENUITEMINFOW emptyInfo(UINT mask) {
        MENUITEMINFOW info{};
        info.cbSize = sizeof info;
        info.fMask = mask;
        return info;
    }

    /// Returns the menu that contains the item.
    [[nodiscard]] HMENU parentMenu() const {
        if (const auto* above = dynamic_cast<MenuPeer*>(item_.parent()->peer())) {
            MENUITEMINFOW info = emptyInfo(MIIM_SUBMENU);
            GetMenuItemInfoW(GetMenu(window_), above->id_, FALSE, &info);
            return info.hSubMenu;
        }
        if (!GetMenu(window_)) SetMenu(window_, CreateMenu());
        return GetMenu(window_);
    }

    forms::MenuItem& item_;
    HWND window_;
    int id_;
};

}  // namespace

std::unique_ptr<forms::Peer> makePeer(forms::MenuItem& item, const Site& site) {
    return std::make_unique<MenuPeer>(item, site);
}

}  // namespace win32
