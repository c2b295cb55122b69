#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "forms/controls.h"
#include "forms/file_lists.h"
#include "platform/win32/control_peer.h"

namespace win32 {

/// Gives the controls of the form peers, with windows inside the form's, in order of tabbing. A
/// panel out of sight is filled when it first comes into sight. A control's window bears the id
/// firstId + its position among the form's controls. Each peer with a window is added to peers.
/// Style and peers must live as long as the form.
void buildPeers(forms::Form& form, HWND window, const Style& style,
                std::vector<ControlPeer*>& peers);
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
std::unique_ptr<forms::Peer> makePeer(forms::ListBox& list, const Site& site);
std::unique_ptr<forms::Peer> makePeer(forms::DriveList& list, const Site& site);
std::unique_ptr<forms::Peer> makePeer(forms::FolderList& list, const Site& site);
std::unique_ptr<forms::Peer> makePeer(forms::TabStrip& tabs, const Site& site);
std::unique_ptr<forms::Peer> makePeer(forms::StatusBar& bar, const Site& site);

/// The panel calls fill when it first comes into sight.
std::unique_ptr<forms::Peer> makePeer(forms::PictureBox& panel, const Site& site,
                                      std::function<void()> fill);

/// An item of the menu bar of the site's parent, which is told the site's id for a choice.
std::unique_ptr<forms::Peer> makePeer(forms::MenuItem& item, const Site& site);

}  // namespace win32
