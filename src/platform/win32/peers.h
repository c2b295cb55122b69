#pragma once

#include <memory>
#include <vector>

#include "forms/controls.h"
#include "forms/file_lists.h"
#include "platform/win32/control_peer.h"

namespace win32 {

/// Gives every control of the form a peer, with a window inside the form's, in order of tabbing.
/// A control's window bears the id firstId + its position among the form's controls. The windows
/// are neither in place nor drawn before the peers' first update. Gives the peers with windows.
std::vector<ControlPeer*> buildPeers(forms::Form& form, HWND window);
inline constexpr int firstId = 100;

/// The peer of one kind of control; its window is made inside the parent.
std::unique_ptr<forms::Peer> makePeer(forms::Label& label, HWND parent);
std::unique_ptr<forms::Peer> makePeer(forms::Line& line, HWND parent);
std::unique_ptr<forms::Peer> makePeer(forms::Image& image, HWND parent);
std::unique_ptr<forms::Peer> makePeer(forms::Button& button, HWND parent);
std::unique_ptr<forms::Peer> makePeer(forms::CheckBox& box, HWND parent);
std::unique_ptr<forms::Peer> makePeer(forms::OptionButton& option, HWND parent);
std::unique_ptr<forms::Peer> makePeer(forms::TextBox& box, HWND parent);
std::unique_ptr<forms::Peer> makePeer(forms::Frame& frame, HWND parent);
std::unique_ptr<forms::Peer> makePeer(forms::PictureBox& panel, HWND parent);
std::unique_ptr<forms::Peer> makePeer(forms::ListBox& list, HWND parent);
std::unique_ptr<forms::Peer> makePeer(forms::DriveList& list, HWND parent);
std::unique_ptr<forms::Peer> makePeer(forms::FolderList& list, HWND parent);
std::unique_ptr<forms::Peer> makePeer(forms::TabStrip& tabs, HWND parent);
std::unique_ptr<forms::Peer> makePeer(forms::StatusBar& bar, HWND parent);

/// An item of the menu bar of the form's window; the id is what the window is told for a choice.
std::unique_ptr<forms::Peer> makePeer(forms::MenuItem& item, HWND window, int id);

}  // namespace win32
