/// A walk through every form of the real program by keys only, listening on the accessibility bus
/// like a screen reader. Everything that takes the focus must have a name of its own, a role and
/// its states, be reachable by Tab or an arrow key, and come in reading order. Then acts at random
/// through the bus only.
///
///     dbus-run-session walk PROJECT_FOLDER BUILD_FOLDER

#include <QCoreApplication>
#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <set>
#include <stdexcept>

#include "hand.h"
#include "run_on_hidden_display.h"
#include "stops.h"

namespace {

using namespace tour;

using Round = std::vector<Spoken>;

const std::set<std::string> roles = {"push button", "button", "check box", "radio button", "text",
                                     "list",        "tree",   "combo box", "page tab list"};

bool isControl(const Spoken& spoken) {
    return roles.contains(spoken.role);
}

void demand(bool holds, const std::string& what, const Spoken& spoken) {
    if (!holds) throw std::runtime_error(what + ": " + spoken.role + " \"" + spoken.name + "\"");
}

/// The control's path in the window's tree, from the window down.
std::vector<int> wayTo(const std::vector<Spoken>& all, const Spoken& control) {
    const auto found = std::find_if(all.begin(), all.end(), [&](const Spoken& candidate) {
        return candidate.path == control.path;
    });
    std::vector<int> way;
    for (int at = static_cast<int>(found - all.begin()); at >= 0; at = all.at(at).parent)
        way.insert(way.begin(), at);
    return way;
}

/// True if b comes after a when reading row by row, each frame as a whole.
bool readsBefore(const std::vector<Spoken>& all, const Spoken& a, const Spoken& b) {
    const auto wayToA = wayTo(all, a);
    const auto wayToB = wayTo(all, b);
    const auto [inA, inB] = std::mismatch(wayToA.begin(), wayToA.end(), wayToB.begin());
    const QRect& first = all.at(*inA).place;
    const QRect& then = all.at(*inB).place;
    const int shared = std::min(first.bottom(), then.bottom()) - std::max(first.top(), then.top());
    return 2 * shared > std::min(first.height(), then.height()) ? first.left() < then.left()
                                                                : first.top() < then.top();
}

class Walk {
  public:
    Walk(Guide& guide, const AccessibilityBus& bus) : guide_(guide), bus_(bus) {}

    /// Throws std::runtime_error if the form violates a rule.
    void visit(const Stop& stop) {
        begin(stop.what, stop.way);
        arrive(stop.title, stop.arrival);
        checkNames();
        const Round round = tabRound();
        for (const Spoken& control : round)
            std::cout << "  [" << control.name << "]";
        std::cout << std::endl;
        checkOrder(round, stop.order);
    }

    /// Visits all of the menu's enabled items by the arrow keys, and closes it.
    void visit(const Menu& menu) {
        begin(menu.what, menu.way);
        arrive(core::appTitle, {menu.item});
        std::vector<Spoken> items;
        for (const Spoken& spoken : window_) {
            if (spoken.role != "menu item" || window_[spoken.parent].role == "menu bar") continue;
            demand(!spoken.name.empty(), "no name", spoken);
            if (spoken.is(State::Enabled)) items.push_back(spoken);
        }
        for (const Spoken& item : items) {
            demand(happens([&] { return is(item, State::Focused); }), "no key reaches", item);
            guide_(Press{"Down"});
        }
        guide_(Press{"Escape"});
        demand(happens([&] { return !is(items.front(), State::Showing); }), "stays", items.front());
        guide_(Press{"Escape"});  // out of the menu bar
        focused();
    }

  private:
    void begin(const std::string& what, const std::vector<Action>& way) {
        std::cout << what << std::endl;
        for (const Action& action : way)
            std::visit(guide_, action);
    }

    /// Reads the window once it has appeared and has the mark of arrival.
    void arrive(const std::string& title, const Sight& sight) {
        const auto seen = [&](const Spoken& spoken) {
            return spoken.name == sight.name && spoken.is(sight.state) == sight.holds;
        };
        const bool arrived = happens([&] {
            window_ = bus_.window("nwbw");
            return !window_.empty() && window_.front().name == title &&
                   std::any_of(window_.begin(), window_.end(), seen);
        });
        if (!arrived) throw std::runtime_error("no \"" + sight.name + "\" as awaited in " + title);
    }

    void checkNames() const {
        std::set<std::string> names;
        for (const Spoken& spoken : window_) {
            demand(spoken.role != "separator" || spoken.name.empty(), "a name too many", spoken);
            if (!isControl(spoken)) continue;
            demand(!spoken.name.empty(), "no name", spoken);
            demand(spoken.role == "page tab list" || names.insert(spoken.name).second,
                   "a name used twice", spoken);
            demand(
                spoken.role != "text" || spoken.is(State::Editable) || spoken.is(State::ReadOnly),
                "neither editable nor read-only", spoken);
        }
    }

    /// True if the control has the state now.
    [[nodiscard]] bool is(Spoken control, State state) const {
        control.states = bus_.states(control);
        return control.is(state);
    }

    /// Returns the focused control, or null.
    const Spoken* findFocused() {
        const Spoken* found = nullptr;
        for (Spoken& spoken : window_) {
            if (!isControl(spoken)) continue;
            spoken.states = bus_.states(spoken);
            if (!spoken.is(State::Focused)) continue;
            demand(!found, "one of two in focus", spoken);
            found = &spoken;
        }
        return found;
    }

    Spoken focused() {
        const Spoken* found = nullptr;
        if (!happens([&] { return (found = findFocused()) != nullptr; }))
            throw std::runtime_error("no control has the focus");
        return *found;
    }

    /// Presses the key, which must move the focus, and returns the newly focused control.
    Spoken press(const char* key, const Spoken& from) {
        guide_(Press{key});
        demand(happens([&] { return !is(from, State::Focused); }),
               std::string(key) + " does not lead on from", from);
        return focused();
    }

    /// Cycles by Tab, and by the arrow keys among options; must visit everything focusable.
    Round tabRound() {
        const auto stays = std::count_if(window_.begin(), window_.end(), isControl) == 1;
        std::set<QString> met;
        Round round;
        for (Spoken now = focused(); met.insert(now.path).second;) {
            round.push_back(now);
            if (now.role == "radio button") meetOptions(now, met);
            if (now.role == "check box") toggle(now);
            if (stays) break;
            now = press("Tab", now);
        }
        for (const Spoken& spoken : window_)
            demand(!isControl(spoken) || !spoken.is(State::Enabled) || met.contains(spoken.path),
                   "no key reaches", spoken);
        return round;
    }

    /// Moves by the arrow keys to both ends of the options, and back to the selected one.
    void meetOptions(const Spoken& start, std::set<QString>& met) {
        std::vector<Spoken> options;
        std::copy_if(window_.begin(), window_.end(), std::back_inserter(options),
                     [&](const Spoken& spoken) {
                         return spoken.role == start.role && spoken.is(State::Enabled) &&
                                window_[spoken.parent].path == window_[start.parent].path;
                     });
        const int last = static_cast<int>(options.size()) - 1;
        int at = 0;
        while (options[at].path != start.path)
            ++at;
        const int home = at;
        for (const int goal : {0, last, home}) {
            while (at != goal) {
                const Spoken now = press(at < goal ? "Down" : "Up", options[at]);
                at += at < goal ? 1 : -1;
                demand(now.path == options[at].path, "an arrow key led astray to", now);
                demand(now.is(State::Checked), "reached but not selected", now);
                met.insert(now.path);
            }
        }
    }

    /// Space must toggle the box, twice.
    void toggle(const Spoken& box) {
        const bool ticked = box.is(State::Checked);
        for (const bool expected : {!ticked, ticked}) {
            guide_(Press{"space"});
            demand(happens([&] { return is(box, State::Checked) == expected; }),
                   "Space does not work on", box);
        }
    }

    /// In the whole cycle only the step from the end to the start goes back.
    void checkOrder(const Round& round, const std::vector<std::string>& given) const {
        const auto rank = [&](const Spoken& control) {
            return std::find(given.begin(), given.end(), control.name) - given.begin();
        };
        int back = 0;
        for (std::size_t i = 0; i < round.size() && round.size() > 1; ++i) {
            const Spoken& next = round[(i + 1) % round.size()];
            const bool forth =
                given.empty() ? readsBefore(window_, round[i], next) : rank(round[i]) < rank(next);
            demand(forth || ++back == 1, "out of order", next);
        }
    }

    Guide& guide_;
    const AccessibilityBus& bus_;
    std::vector<Spoken> window_;  ///< as on arrival, with states updated since
};

void walk(const Display& display, const Demo& demo, const std::filesystem::path& pictures) {
    setenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1", 1);
    setenv("TERMINAL", "true", 1);  // the scripts are only read, not run
    const AccessibilityBus bus;
    Guide guide(display, demo, pictures);
    Walk walk(guide, bus);
    for (const Stop& stop : stops())
        walk.visit(stop);
    for (const Menu& menu : menus())
        walk.visit(menu);

    const char* wanted = std::getenv("NWBW_ACTIONS");
    const char* seed = std::getenv("NWBW_SEED");
    Hand hand(bus, demo, seed ? std::stoi(seed) : 1);
    hand.work(wanted ? std::stoi(wanted) : 500);
    hand.leave();
    guide(Close{});
    guide(End{});
    hand.checkSettings();
    std::cout << "By the bus alone: " << hand.scripts() << " scripts" << std::endl;
    if (hand.scripts() == 0) throw std::runtime_error("no action has written a script");
}

}  // namespace

int main(int argumentCount, char** arguments) {
    const QCoreApplication application(argumentCount, arguments);
    return runOnHiddenDisplay("walk", argumentCount, arguments, walk);
}
