#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "forms/controls.h"
#include "forms/file_lists.h"
#include "platform/windows/win32/control_peer.h"

namespace win32 {

/// Creates the peers of the form's controls, with windows inside the form's, in tab order. A hidden
/// panel is filled when it first becomes visible. A control's window gets the id firstId + its
/// position among the form's controls. Adds each peer with a window to `peers`. `style` and `peers`
/// must outlive the form.
void buildPeers(forms::Form& form, HWND window, const Style& style,
                std::vector<ControlPeer*>& peers);
inline constexpr int firstId = 100;

/// Create the peer of a control, with its window on the site.
std::unique_ptr<forms::Peer> makePeer(forms::Label& label, const Site& site);
std::unique_ptr<forms::Peer> makePeer(forms::Line& line, const Site& site);
std::unique_ptr<forms::Peer> makePeer(forms::Image& image, const Site& site);
std::unique_ptr<forms::Peer> makePeer(forms::Button& button, const Site& site);
std::unique_ptr<forms::Peer> makePeer(forms::CheckBox& box, const Site& site);
std::unique_ptr<forms::Peer> makePeer(forms::OptionButton& option, const Site& site);
std::unique_ptr<forms::Peer> makePeer(forms::TextBox& box, const Site& site);
std::unique_ptr<forms::Peer> makePeer(forms::Frame& frame, const Site& site);
std::unique_ptr<forms::Peer> makePeer(forms::ListBox& list, const Site& site);
std::unique_ptr<forms::Peer> makePeer(forms::DriveList& list, const Site& site);
std::unique_ptr<forms::Peer> makePeer(forms::FolderList& list, const Site& site);
std::unique_ptr<forms::Peer> makePeer(forms::TabStrip& tabs, const Site& site);
std::unique_ptr<forms::Peer> makePeer(forms::StatusBar& bar, const Site& site);

/// Calls `fill` when the panel first becomes visible.
std::unique_ptr<forms::Peer> makePeer(forms::PictureBox& panel, const Site& site,
                                      std::function<void()> fill);

/// Creates an item in the menu bar of the site's parent, which gets the site's id when the user
/// chooses it.
std::unique_ptr<forms::Peer> makePeer(forms::MenuItem& item, const Site& site);

}  // namespace win32
