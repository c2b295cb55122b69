#include "platform/windows/win32/background.h"
#include "platform/windows/win32/control_peer.h"
#include "platform/windows/win32/peers.h"
#include "platform/windows/win32/reflection.h"
#include "platform/windows/win32/units.h"

namespace win32 {

namespace {

const wchar_t* panelClass() {
    static const wchar_t* const name = [] {
        WNDCLASSEXW kind{};
        kind.cbSize = sizeof kind;
        kind.lpfnWndProc = DefWindowProcW;
        kind.hInstance = GetModuleHandleW(nullptr);
        kind.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));  // the arrow
        kind.lpszClassName = L"NorvanePanel";
        RegisterClassExW(&kind);
        return kind.lpszClassName;
    }();
    return name;
}

/// A window that contains others: passes on their messages and draws their background.
template <typename Kind>
class ContainerPeer : public PeerOf<Kind> {
  public:
    ContainerPeer(Kind& container, const Site& site, const wchar_t* className, DWORD style = 0)
        : PeerOf<Kind>(container, site, {className, style | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT}),
          background_(backgroundOf(container, site.style.tabPage)) {}

    void restyle(const Style& style) override {
        ControlPeer::restyle(style);
        background_ = backgroundOf(this->control_, style.tabPage);
    }
    [[nodiscard]] bool transparent() const override { return true; }

  protected:
    /// Called when the left button goes down on the container itself.
    virtual void pressed() {}

    LRESULT handle(UINT message, WPARAM first, LPARAM second) override {
        switch (message) {
            case WM_NCHITTEST:
                return HTCLIENT;  // a group box would let clicks through
            case WM_LBUTTONDOWN:
                pressed();
                return 0;
            case WM_ERASEBKGND:
                fill(this->window(), reinterpret_cast<HDC>(first), background_);
                return TRUE;
            default:
                break;
        }
        const HWND window = this->window();  // the message may end the peer
        if (const auto answer = reflect(message, first, second, background_)) return *answer;
        return DefSubclassProc(window, message, first, second);
    }

  private:
    COLORREF background_;
};

class FramePeer : public ContainerPeer<forms::Frame> {
  public:
    FramePeer(forms::Frame& frame, const Site& site)
        : ContainerPeer(frame, site, frame.Caption().empty() ? panelClass() : L"BUTTON",
                        frame.Caption().empty() ? 0 : BS_GROUPBOX) {}

  protected:
    void draw() override { drawText(control_.Caption); }
    void pressed() override { control_.click(); }
};

/// A panel on a page, clipped to it so that the page's edges stay visible.
class PanelPeer : public ContainerPeer<forms::PictureBox> {
  public:
    PanelPeer(forms::PictureBox& panel, const Site& site, std::function<void()> fill)
        : ContainerPeer(panel, site, panelClass()), fill_(std::move(fill)) {}

    void fitInto(const RECT& room) override {
        const LONG edge = pixels(45, dpi());
        room_ = {room.left, room.top, room.right - edge, room.bottom - edge};
        updateGeometry();
    }

  protected:
    [[nodiscard]] RECT place() const override { return within(ContainerPeer::place(), room_); }
    void draw() override {
        if (fill_ && control_.inSight()) std::exchange(fill_, nullptr)();
    }

  private:
    RECT room_{};
    /// Creates the windows inside when the panel first becomes visible.
    std::function<void()> fill_;
};

}  // namespace

std::unique_ptr<forms::Peer> makePeer(forms::Frame& frame, const Site& site) {
    return std::make_unique<FramePeer>(frame, site);
}

std::unique_ptr<forms::Peer> makePeer(forms::PictureBox& panel, const Site& site,
                                      std::function<void()> fill) {
    return std::make_unique<PanelPeer>(panel, site, std::move(fill));
}

}  // namespace win32
