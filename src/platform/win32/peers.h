#pragma once

#include <memory>
#include <vector>

#include "forms/controls.h"
#include "forms/file_lists.h"
#include "platform/win32/control_peer.h"

namespace win32 {

/// Gives every control of the form a peer, with a window inside the form's, in order of tabbing.
/// A control's window bears the id firstId + its position among the form's controls. The windows
/// are not drawn in full before the peers' first update. Gives the peers with windows.
std::vector<ControlPeer*> buildPeers(forms::Form& form, HWND window);
inline constexpr int firstId = 100;

/// The peer of one kind of control; its window is made on the site.
std::unique_ptr<forms::Peer> makePeer(forms::Label& label, const Site& site);
std::unique_ptr<forms::Peer> makePeer(forms::Line& line, const Site& site);
std::unique_ptr<forms::Peer> makePeer(forms::Image& image, const Site& site);
std::unique_ptr<forms::Peer> makePeer(forms::Button& button, const Site& site);
std::unique_ptr<forms::Peer> makePeer(forms::CheckBox& box, const Site& site);
std::unique_ptr<forms::Peer> makePeer(forms::OptionButton& option, const Site& site);
std::unique_ptr<forms::Peer> makePeer(forms::TextBox& box, const Site& site);
std::unique_ptr<forms::Peer> makePeer(forms::Frame& frame, const Site& site);
std::unique_ptr<forms::Peer> makePeer(forms::PictureBox& panel, const Site& site);
std::unique_ptr<forms::Peer> makePeer(forms::ListBox& list, const Site& site);
std::unique_ptr<forms::Peer> makePeer(forms::DriveList& list, const Site& site);
std::unique_ptr<forms::Peer> makePeer(forms::FolderList& list, const Site& site);
std::unique_ptr<forms::Peer> makePeer(forms::TabStrip& tabs, const Site& site);
std::unique_ptr<forms::Peer> makePeer(forms::StatusBar& bar, const Site& site);

/// An item of the menu bar of the site's parent, which is told the site's id for a choice.
std::unique_ptr<forms::Peer> makePeer(forms::MenuItem& item, const Site& site);

}  // namespace win32
