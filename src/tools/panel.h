#pragma once

#include <initializer_list>
#include <string>

#include "forms/controls.h"

/// What the four panels share: the places of their common controls and the behaviour of their hide
/// boxes. Lengths are in twips, relative to the panel. Every control that a user operates is inside
/// the window at its default size.
///
/// To add an option to a panel:
/// 1. In the panel's header declare the control in its frame, in reading order, with panel::row for
///    its place, and give the frame one more row. A caption that occurs twice in the form takes a
///    name for screen readers as well. Declare its handler, and a field for its part of the
///    command.
/// 2. In the panel's source let the handler set the field and rebuild the command text, and add the
///    field to the rebuild. A new frame goes to applyHideBox too.
/// 3. In tests add the control's part of the command to rules.h: the test that clicks every option
///    and the random walk check it from there. Then the lists of what the forms look like change:
///    forms.txt, widgets.txt and windows.txt. A failing test leaves a new list in the folder
///    tests of its build.
/// 4. In pages/default.htm add its row and its mnemonic, and run scripts/take-pictures.
namespace tools::panel {

inline constexpr forms::Place whole{0, 0, 6120, 5250};
inline constexpr int left = 120;
inline constexpr int width = 5820;

inline constexpr forms::Place fileLabel{left, 30, 3000, 225};
inline constexpr forms::Place fileText{left, 270, 3990, 345};
inline constexpr forms::Place browseButton{4200, 255, 840, 375};
inline constexpr forms::Place actionButton{5100, 255, 840, 375};
inline constexpr forms::Place hideBox{left, 690, 1800, 270};
inline constexpr int ruleTop = 1005;

// Never visible: the box only stores the command text.
inline constexpr forms::Place commandLabel{left, 4545, 1800, 225};
inline constexpr forms::Place commandText{left, 4770, width, 450};

inline constexpr int optionsTop = 1095;
inline constexpr int rowHeight = 270;

/// Returns the height of a frame with this number of rows.
constexpr int frameHeight(int rows) {
    return 390 + rows * rowHeight;
}

/// Returns the place of a row, counted from 0, inside a frame of the given width. Rows below
/// something else that the frame holds are lowered by its height.
constexpr forms::Place row(int number, int frameWidth, int lowered = 0) {
    return {120, 315 + number * rowHeight + lowered, frameWidth - 180, rowHeight};
}

inline constexpr const char* browseCaption = "&Browse";
inline constexpr const char* sourceTitle = "Select source code file";
inline constexpr const char* sourceFilter = "Source File (*.kel)|*.kel|All Files (*.*)|*.*";
inline constexpr const char* hideCaption = "H&ide Options";
inline constexpr const char* hideTooltip =
    "Remove the options from view (but options remain as set)";

/// Hides or shows the options as the hide box says; their values stay. The command lines are only
/// ever hidden.
inline void applyHideBox(const forms::CheckBox& box, std::initializer_list<forms::Control*> options,
                         std::initializer_list<forms::Control*> commandLines = {}) {
    for (forms::Control* option : options)
        option->Visible = box.Value == 0;
    if (box.Value == 0) return;
    for (forms::Control* line : commandLines)
        line->Visible = false;
}

}  // namespace tools::panel
