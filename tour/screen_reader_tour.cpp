/// A tour through every form of the real program by keys only, listening on the accessibility bus
/// like a screen reader. Every control that takes the focus must have a name of its own, a role and
/// its states, be reachable by Tab or an arrow key, and come in reading order. Then acts at random
/// through the bus only.
///
///     dbus-run-session screen_reader_tour PROJECT_FOLDER BUILD_FOLDER

#include <QCoreApplication>
#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <set>
#include <stdexcept>

#include "assistive_user.h"
#include "run_on_hidden_display.h"
#include "stops.h"

namespace {

using namespace tour;

using Round = std::vector<AccessibleObject>;

const std::set<std::string> roles = {"push button", "button", "check box", "radio button", "text",
                                     "list",        "tree",   "combo box", "page tab list"};

bool isControl(const AccessibleObject& object) {
    return roles.contains(object.role);
}

void demand(bool holds, const std::string& what, const AccessibleObject& object) {
    if (!holds) throw std::runtime_error(what + ": " + object.role + " \"" + object.name + "\"");
}

/// Returns the control's path in the window's tree, from the window down.
std::vector<int> pathTo(const std::vector<AccessibleObject>& all, const AccessibleObject& control) {
    const auto found = std::find_if(all.begin(), all.end(), [&](const AccessibleObject& candidate) {
        return candidate.path == control.path;
    });
    std::vector<int> path;
    for (int at = static_cast<int>(found - all.begin()); at >= 0; at = all.at(at).parent)
        path.insert(path.begin(), at);
    return path;
}

/// True if b comes after a when reading row by row, each frame as a whole.
bool readsBefore(const std::vector<AccessibleObject>& all, const AccessibleObject& a,
                 const AccessibleObject& b) {
    const auto pathToA = pathTo(all, a);
    const auto pathToB = pathTo(all, b);
    const auto [inA, inB] = std::mismatch(pathToA.begin(), pathToA.end(), pathToB.begin());
    const QRect& first = all.at(*inA).place;
    const QRect& then = all.at(*inB).place;
    const int shared = std::min(first.bottom(), then.bottom()) - std::max(first.top(), then.top());
    return 2 * shared > std::min(first.height(), then.height()) ? first.left() < then.left()
                                                                : first.top() < then.top();
}

class ScreenReaderTour {
  public:
    ScreenReaderTour(Guide& guide, const AccessibilityBus& bus) : guide_(guide), bus_(bus) {}

    /// Throws std::runtime_error if the form violates a rule.
    void visit(const Stop& stop) {
        begin(stop.what, stop.way);
        arrive(stop.title, stop.arrival);
        checkNames();
        const Round round = tabRound();
        for (const AccessibleObject& control : round)
            std::cout << "  [" << control.name << "]";
        std::cout << std::endl;
        checkOrder(round, stop.order);
    }

    /// Visits all of the menu's enabled items by the arrow keys, and closes it.
    void visit(const Menu& menu) {
        begin(menu.what, menu.way);
        arrive(core::appTitle, {menu.item});
        std::vector<AccessibleObject> items;
        for (const AccessibleObject& object : window_) {
            if (object.role != "menu item" || window_[object.parent].role == "menu bar") continue;
            demand(!object.name.empty(), "no name", object);
            if (object.is(State::Enabled)) items.push_back(object);
        }
        for (const AccessibleObject& item : items) {
            demand(happens([&] { return is(item, State::Focused); }), "no key reaches", item);
            guide_(Press{"Down"});
        }
        guide_(Press{"Escape"});
        demand(happens([&] { return !is(items.front(), State::Showing); }), "the menu stays open",
               items.front());
        guide_(Press{"Escape"});  // out of the menu bar
        focused();
    }

  private:
    void begin(const std::string& what, const std::vector<Action>& way) {
        std::cout << what << std::endl;
        for (const Action& action : way)
            std::visit(guide_, action);
    }

    /// Reads the window once it has appeared and shows the sight that the arrival gives.
    void arrive(const std::string& title, const Sight& sight) {
        const auto seen = [&](const AccessibleObject& object) {
            return object.name == sight.name && object.is(sight.state) == sight.holds;
        };
        const bool arrived = happens([&] {
            window_ = bus_.window("nwbw");
            return !window_.empty() && window_.front().name == title &&
                   std::any_of(window_.begin(), window_.end(), seen);
        });
        if (!arrived) throw std::runtime_error("no \"" + sight.name + "\" as expected in " + title);
    }

    void checkNames() const {
        std::set<std::string> names;
        for (const AccessibleObject& object : window_) {
            demand(object.role != "separator" || object.name.empty(), "an unexpected name", object);
            if (!isControl(object)) continue;
            demand(!object.name.empty(), "no name", object);
            demand(object.role == "page tab list" || names.insert(object.name).second,
                   "a name used twice", object);
            demand(
                object.role != "text" || object.is(State::Editable) || object.is(State::ReadOnly),
                "neither editable nor read-only", object);
        }
    }

    /// True if the control has the state now.
    [[nodiscard]] bool is(AccessibleObject control, State state) const {
        control.states = bus_.states(control);
        return control.is(state);
    }

    /// Returns the focused control, or null.
    const AccessibleObject* findFocused() {
        const AccessibleObject* found = nullptr;
        for (AccessibleObject& object : window_) {
            if (!isControl(object)) continue;
            object.states = bus_.states(object);
            if (!object.is(State::Focused)) continue;
            demand(!found, "a second control in focus", object);
            found = &object;
        }
        return found;
    }

    AccessibleObject focused() {
        const AccessibleObject* found = nullptr;
        if (!happens([&] { return (found = findFocused()) != nullptr; }))
            throw std::runtime_error("no control has the focus");
        return *found;
    }

    /// Presses the key, which must move the focus, and returns the newly focused control.
    AccessibleObject press(const char* key, const AccessibleObject& from) {
        guide_(Press{key});
        demand(happens([&] { return !is(from, State::Focused); }),
               std::string(key) + " does not move the focus from", from);
        return focused();
    }

    /// Cycles by Tab, and by the arrow keys among options; must visit everything focusable.
    Round tabRound() {
        const bool isAlone = std::count_if(window_.begin(), window_.end(), isControl) == 1;
        std::set<QString> met;
        Round round;
        for (AccessibleObject now = focused(); met.insert(now.path).second;) {
            round.push_back(now);
            if (now.role == "radio button") meetOptions(now, met);
            if (now.role == "check box") toggle(now);
            if (isAlone) break;
            now = press("Tab", now);
        }
        for (const AccessibleObject& object : window_)
            demand(!isControl(object) || !object.is(State::Enabled) || met.contains(object.path),
                   "no key reaches", object);
        return round;
    }

    /// Moves by the arrow keys to both ends of the options, and back to the selected one.
    void meetOptions(const AccessibleObject& start, std::set<QString>& met) {
        std::vector<AccessibleObject> options;
        std::copy_if(window_.begin(), window_.end(), std::back_inserter(options),
                     [&](const AccessibleObject& object) {
                         return object.role == start.role && object.is(State::Enabled) &&
                                window_[object.parent].path == window_[start.parent].path;
                     });
        const int last = static_cast<int>(options.size()) - 1;
        int at = 0;
        while (options[at].path != start.path)
            ++at;
        const int home = at;
        for (const int goal : {0, last, home}) {
            while (at != goal) {
                const AccessibleObject now = press(at < goal ? "Down" : "Up", options[at]);
                at += at < goal ? 1 : -1;
                demand(now.path == options[at].path, "an arrow key moved the focus to", now);
                demand(now.is(State::Checked), "reached but not selected", now);
                met.insert(now.path);
            }
        }
    }

    /// Space must toggle the box, twice.
    void toggle(const AccessibleObject& box) {
        const bool ticked = box.is(State::Checked);
        for (const bool expected : {!ticked, ticked}) {
            guide_(Press{"space"});
            demand(happens([&] { return is(box, State::Checked) == expected; }),
                   "Space does not work on", box);
        }
    }

    /// In the whole cycle only the step from the end to the start goes back.
    void checkOrder(const Round& round, const std::vector<std::string>& given) const {
        const auto rank = [&](const AccessibleObject& control) {
            return std::find(given.begin(), given.end(), control.name) - given.begin();
        };
        int back = 0;
        for (std::size_t i = 0; i < round.size() && round.size() > 1; ++i) {
            const AccessibleObject& next = round[(i + 1) % round.size()];
            const bool forth =
                given.empty() ? readsBefore(window_, round[i], next) : rank(round[i]) < rank(next);
            demand(forth || ++back == 1, "out of order", next);
        }
    }

    Guide& guide_;
    const AccessibilityBus& bus_;
    std::vector<AccessibleObject> window_;  ///< as on arrival, with states updated since
};

void takeTour(const Display& display, const Demo& demo, const std::filesystem::path& pictures) {
    setenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1", 1);
    setenv("TERMINAL", "true", 1);  // the scripts are only read, not run
    const AccessibilityBus bus;
    Guide guide(display, demo, pictures);
    ScreenReaderTour tour(guide, bus);
    for (const Stop& stop : stops())
        tour.visit(stop);
    for (const Menu& menu : menus())
        tour.visit(menu);

    const char* wanted = std::getenv("NWBW_ACTIONS");
    const char* seed = std::getenv("NWBW_SEED");
    AssistiveUser user(bus, demo, seed ? std::stoi(seed) : 1);
    user.work(wanted ? std::stoi(wanted) : 500);
    user.leave();
    guide(Close{});
    guide(End{});
    user.checkSettings();
    std::cout << "Through the bus only: " << user.scripts() << " scripts written" << std::endl;
    if (user.scripts() == 0) throw std::runtime_error("no action has written a script");
}

}  // namespace

int main(int argumentCount, char** arguments) {
    const QCoreApplication application(argumentCount, arguments);
    return runOnHiddenDisplay("screen_reader_tour", argumentCount, arguments, takeTour);
}
