#include "assistive_user.h"

#include <algorithm>
#include <iostream>
#include <set>
#include <stdexcept>

#include "guide.h"

namespace tour {

namespace {

const std::string console = "The Norvane Workbench";
const std::vector<std::string> tabs = {"Edit", "Compile", "Play", "Spelling"};
const std::vector<std::string> files = {"c:\\my games\\cave.kel", "c:\\my games\\wizardquest.kel"};

/// What a ticked box or a selected option, by accessible name, adds to a script.
const std::vector<std::pair<std::string, std::string>> switches = {
    {"Packed", " -Pack"},
    {"Debug", " -Debug"},
    {"List full sourcecode", " -Full"},
    {"ISO", " -CharSet ISO"},
    {"Macintosh", " -CharSet Mac"},
    {"Use Notepad", "notepad "},
    {"Overwrite any existing file with same name", " -OO"},
    {"Format Output with the Codes", " -FF"},
    {"Print Format Codes in Output", " -FD"},
    {"Convert to words (Uppercase)", " -PC"},
    {"Convert to words (in Quote-marks)", " -PQ"},
    {"Print codes in Output", " -PD"},
    {"Don't show line numbers in output file", " -NL"},
    {"Automatically open output file in Wordprocessor", "winword.exe"}};

bool isFileBox(const AccessibleObject& object) {
    return object.name == "KELM source code file" || object.name == "KELM game file";
}

const AccessibleObject* find(const std::vector<AccessibleObject>& window, const std::string& name,
                             const std::string& role) {
    const auto found = std::find_if(
        window.begin(), window.end(),
        [&](const AccessibleObject& object) { return object.name == name && object.role == role; });
    return found == window.end() ? nullptr : &*found;
}

bool canAct(const AccessibleObject& object) {
    static const std::set<std::string> roles = {"push button",  "button",    "check box",
                                                "radio button", "text",      "list item",
                                                "table cell",   "tree item", "page tab"};
    return object.is(State::Enabled) && roles.contains(object.role);
}

}  // namespace

void AssistiveUser::work(int actions) {
    for (int done = 0; done < actions; ++done) {
        Objects window;
        if (!happens([&] { return !(window = bus_.top("nwbw")).empty(); }))
            throw std::runtime_error("the program has gone");
        remember(window);
        // The file dialog is the toolkit's own.
        const AccessibleObject* cancel = find(window, "Cancel", "push button");
        if (find(window, "Look in:", "label") && cancel) {
            bus_.act(*cancel);
            continue;
        }
        Objects targets;
        std::copy_if(window.begin(), window.end(), std::back_inserter(targets), canAct);
        if (targets.empty()) continue;
        const AccessibleObject& target = targets[any(targets.size())];
        std::cout << "  " << target.role << " [" << target.name << "]" << std::endl;
        act(window, target);
    }
}

void AssistiveUser::act(const Objects& window, const AccessibleObject& target) {
    if (target.role == "text") {
        bus_.setText(target, files[any(files.size())]);
        return;
    }
    bus_.act(target);
    if (target.name == "Compile" || target.name == "Extract") {
        const std::string script = demo_.text("~kelmcon.bat");
        const bool box = bus_.top("nwbw").front().path != window.front().path;
        if (!box && !script.empty() && target.role.ends_with("button")) checkScript(window, script);
    }
}

void AssistiveUser::remember(const Objects& window) {
    if (window.front().name != console) return;
    for (std::size_t i = 0; i < tabs.size(); ++i) {
        if (!find(window, tabs[i], "property page")) continue;
        tab_ = static_cast<int>(i);
        seen_[i] = true;
        for (const AccessibleObject& object : window) {
            if (isFileBox(object)) panels_[i].file = bus_.text(object);
            if (object.name == "Hide Options") panels_[i].hidden = object.is(State::Checked);
        }
    }
}

void AssistiveUser::checkScript(const Objects& before, const std::string& script) {
    ++scripts_;
    for (const auto& [name, text] : switches) {
        for (const AccessibleObject& object : before) {
            if (object.name != name) continue;
            if ((script.find(text) != std::string::npos) != object.is(State::Checked))
                throw std::runtime_error("the script contradicts the state of \"" + name +
                                         "\" on the screen:\n" + script);
        }
    }
    const bool quest = panels_[tab_].file == files[1];
    if ((script.find(" WIZARD~1 ") != std::string::npos) != quest)
        throw std::runtime_error("the script is for another file:\n" + script);
}

void AssistiveUser::leave() {
    while (bus_.top("nwbw").front().name != console ||
           find(bus_.top("nwbw"), "OK", "push button")) {
        const Objects window = bus_.top("nwbw");
        for (const char* name : {"OK", "Cancel", "Close"})
            if (const AccessibleObject* button = find(window, name, "push button")) {
                bus_.act(*button);
                break;
            }
    }
    for (const std::string& tab : tabs) {
        const Objects window = bus_.top("nwbw");
        bus_.act(*find(window, tab, "page tab"));
        remember(bus_.top("nwbw"));
    }
}

void AssistiveUser::checkSettings() const {
    constexpr std::size_t firstFile = 13;
    constexpr std::size_t firstHidden = 17;
    constexpr std::size_t startTab = 22;
    const auto settings = lines(demo_.text("nwbw.ini"));
    for (std::size_t i = 0; i < tabs.size(); ++i) {
        if (!seen_[i]) throw std::runtime_error("never saw the tab " + tabs[i]);
        const bool hidden = settings.at(firstHidden + i).find('1') != std::string::npos;
        if (settings.at(firstFile + i) != panels_[i].file || hidden != panels_[i].hidden)
            throw std::runtime_error("the settings differ from the screen: " + tabs[i] + ", " +
                                     settings.at(firstFile + i) + ", " + panels_[i].file);
    }
    if (settings.at(startTab).find(std::to_string(tab_ + 1)) == std::string::npos)
        throw std::runtime_error("the settings have another tab: " + settings.at(startTab));
}

}  // namespace tour
