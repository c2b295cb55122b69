#pragma once

#include <string>
#include <utility>
#include <vector>

#include "accessibility_bus.h"
#include "steps.h"

/// The screen reader tour as a list: every form of the program, and the keys that open it.
namespace tour {

/// Shows that the tour has arrived: a control or an item of one that has the state, or does not
/// have it.
struct Sight {
    Sight(std::string name, State state = State::Showing, bool holds = true)
        : name(std::move(name)), state(state), holds(holds) {}

    std::string name;
    State state;
    bool holds;
};

struct Stop {
    std::string what;
    std::string title;        ///< of the window
    std::vector<Action> way;  ///< from the previous stop
    Sight arrival;
    std::vector<std::string> order = {};  ///< the tab order, if it is not the reading order
};

/// Each tab of the console with and without its options, then the dialogs and message boxes.
std::vector<Stop> stops();

/// An open menu of the console.
struct Menu {
    std::string what;
    std::vector<Action> way;  ///< from the last stop, or from the console
    std::string item;         ///< one of its items
};

/// Each menu, opened by its mnemonic or by F10 and the arrow keys.
std::vector<Menu> menus();

}  // namespace tour
