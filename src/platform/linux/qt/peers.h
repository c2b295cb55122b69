#pragma once

#include <functional>
#include <memory>

#include "forms/controls.h"
#include "forms/file_lists.h"

class QMainWindow;
class QWidget;

namespace forms {
class Form;
}

namespace qt {

class ControlPeer;

/// Called when `widget` contains the widgets of its container's controls.
using Filled = std::function<void(QWidget& widget)>;

/// Creates the peers of the form's controls, with widgets inside the window, in tab order. A hidden
/// panel is filled when it first becomes visible. The window must outlive the peers.
void buildPeers(forms::Form& form, QMainWindow& window, const Filled& filled);

/// Returns the form's control that the widget shows or is a part of, or null.
forms::Control* controlOf(forms::Form& form, const QWidget* widget);

/// Create the peer of a control, with its widget inside the parent.
std::unique_ptr<ControlPeer> makePeer(forms::Label& label, QWidget& parent);
std::unique_ptr<ControlPeer> makePeer(forms::Line& line, QWidget& parent);
std::unique_ptr<ControlPeer> makePeer(forms::Image& image, QWidget& parent);
std::unique_ptr<ControlPeer> makePeer(forms::Button& button, QWidget& parent);
std::unique_ptr<ControlPeer> makePeer(forms::CheckBox& box, QWidget& parent);
std::unique_ptr<ControlPeer> makePeer(forms::OptionButton& option, QWidget& parent);
std::unique_ptr<ControlPeer> makePeer(forms::TextBox& box, QWidget& parent);
std::unique_ptr<ControlPeer> makePeer(forms::Frame& frame, QWidget& parent);
std::unique_ptr<ControlPeer> makePeer(forms::ListBox& list, QWidget& parent);
std::unique_ptr<ControlPeer> makePeer(forms::DriveList& list, QWidget& parent);
std::unique_ptr<ControlPeer> makePeer(forms::FolderList& list, QWidget& parent);
std::unique_ptr<ControlPeer> makePeer(forms::TabStrip& tabs, QWidget& parent);

/// Calls `fill` when the panel first becomes visible.
std::unique_ptr<ControlPeer> makePeer(forms::PictureBox& panel, QWidget& parent,
                                      std::function<void(QWidget& panel)> fill);

/// These two belong to the window: the bar at its bottom edge, the item in its menu bar or in the
/// menu of the parent item.
std::unique_ptr<forms::Peer> makePeer(forms::StatusBar& bar, QMainWindow& window);
std::unique_ptr<forms::Peer> makePeer(forms::MenuItem& item, QMainWindow& window);

}  // namespace qt
