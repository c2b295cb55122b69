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

/// Tells that the widget now holds the widgets of the controls in its container.
using Filled = std::function<void(QWidget& widget)>;

/// Gives the controls of the form peers with widgets inside the window, in order of tabbing. A
/// panel out of sight is filled when it first comes into sight. The window must outlive the peers.
void buildPeers(forms::Form& form, QMainWindow& window, const Filled& filled);

/// The control of the form that the widget shows or is a part of; null if there is none.
forms::Control* controlOf(forms::Form& form, const QWidget* widget);

/// The peer of one kind of control; its widget is made inside the parent.
std::unique_ptr<forms::Peer> makePeer(forms::Label& label, QWidget& parent);
std::unique_ptr<forms::Peer> makePeer(forms::Line& line, QWidget& parent);
std::unique_ptr<forms::Peer> makePeer(forms::Image& image, QWidget& parent);
std::unique_ptr<forms::Peer> makePeer(forms::Button& button, QWidget& parent);
std::unique_ptr<forms::Peer> makePeer(forms::CheckBox& box, QWidget& parent);
std::unique_ptr<forms::Peer> makePeer(forms::OptionButton& option, QWidget& parent);
std::unique_ptr<forms::Peer> makePeer(forms::TextBox& box, QWidget& parent);
std::unique_ptr<forms::Peer> makePeer(forms::Frame& frame, QWidget& parent);
std::unique_ptr<forms::Peer> makePeer(forms::ListBox& list, QWidget& parent);
std::unique_ptr<forms::Peer> makePeer(forms::DriveList& list, QWidget& parent);
std::unique_ptr<forms::Peer> makePeer(forms::FolderList& list, QWidget& parent);
std::unique_ptr<forms::Peer> makePeer(forms::TabStrip& tabs, QWidget& parent);

/// The panel calls fill when it first comes into sight.
std::unique_ptr<forms::Peer> makePeer(forms::PictureBox& panel, QWidget& parent,
                                      std::function<void(QWidget& panel)> fill);

/// These two stand in the window itself: along its bottom edge, and in its menu bar or in the
/// menu that holds the item.
std::unique_ptr<forms::Peer> makePeer(forms::StatusBar& bar, QMainWindow& window);
std::unique_ptr<forms::Peer> makePeer(forms::MenuItem& item, QMainWindow& window);

}  // namespace qt
