#pragma once

#include <string>
#include <utility>
#include <vector>

#include "accessibility_bus.h"
#include "steps.h"

/// The walk as a list: every form of the program, and the keys that lead to it.
namespace tour {

/// What tells that the walk has arrived: a control, or an item of one, that has the state or lacks
/// it.
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
    std::vector<Action> way;  ///< from the stop before
    Sight arrival;
    std::vector<std::string> order = {};  ///< of tabbing, where it is given and not that of reading
};

/// Each tab of the console with its options and without, then the dialogs and boxes.
std::vector<Stop> stops();

/// A menu of the console, opened.
struct Menu {
    std::string what;
    std::vector<Action> way;  ///< from the last stop, or from the console
    std::string item;         ///< one that it holds
};

/// Each menu, by its letter or by F10 and the arrow keys.
std::vector<Menu> menus();

}  // namespace tour
