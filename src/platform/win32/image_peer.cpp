#include "platform/win32/control_peer.h"
#include "platform/win32/peers.h"
#include "platform/win32/picture.h"
#include "platform/win32/units.h"

namespace win32 {

namespace {

/// A picture, stretched to the control. Handles clicks, so that they do not count as its
/// container's.
class ImagePeer : public PeerOf<forms::Image> {
  public:
    ImagePeer(forms::Image& image, const Site& site)
        : PeerOf(image, site, {L"STATIC", SS_OWNERDRAW | SS_NOTIFY}) {}

    [[nodiscard]] bool transparent() const override { return true; }

    void drawItem(const DRAWITEMSTRUCT& item) override {
        const int width = widthOf(item.rcItem);
        const int height = heightOf(item.rcItem);
        const auto brush = reinterpret_cast<HBRUSH>(
            SendMessageW(GetParent(window()), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(item.hDC),
                         reinterpret_cast<LPARAM>(window())));
        FillRect(item.hDC, &item.rcItem, brush);
        DrawIconEx(item.hDC, 0, 0, picture_.get(), width, height, 0, nullptr, DI_NORMAL);
    }

  protected:
    void updateGeometry() override {
        ControlPeer::updateGeometry();
        const SIZE size{widthOf(place()), heightOf(place())};
        if (size.cx == size_.cx && size.cy == size_.cy) return;
        size_ = size;
        picture_ = loadPicture(control_.picture, size.cx, size.cy);
        InvalidateRect(window(), nullptr, TRUE);
    }

  private:
    SIZE size_{};
    Icon picture_;
};

}  // namespace

std::unique_ptr<forms::Peer> makePeer(forms::Image& image, const Site& site) {
    return std::make_unique<ImagePeer>(image, site);
}

}  // namespace win32
