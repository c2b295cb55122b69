#include "stops.h"

namespace tour {

namespace {

using Way = std::vector<Action>;

Way operator+(Way first, const Way& more) {
    first.insert(first.end(), more.begin(), more.end());
    return first;
}

const std::string console = "The Norvane Workbench";
const std::string folders = "Include File search list";
const Way leave{Press{"Escape"}, Vanish{}, Appear{console}};

/// Moves to the Browse button after the file's box, presses it by the key, and leaves its dialog.
Way browse(const std::string& key, const std::string& title) {
    return Way{Press{key}, Appear{title}} + leave;
}

}  // namespace

std::vector<Stop> stops() {
    const std::string programs = "Kelm Programs and Documenation File Locations";
    const std::string others = "Other Program Locations";
    const std::string folder = "Select folder to add to search list";
    const std::string about = "About the Norvane Workbench";
    const std::string library = "c:\\kelm\\standard library";
    const Action hide = Press{"Alt+I"};
    const Action nextTab = Press{"Ctrl+Tab"};
    const Action next = Press{"Tab"};
    const Sight hidden{"Hide Options", State::Checked};
    const std::vector<std::string> listOrder{
        "Close", "Include folders", "Add", "Edit", "Delete", "Up", "Down", "Cancel"};
    const std::vector<std::string> folderOrder{"Folder Name", "Drive", "Folders", "OK", "Cancel"};
    return {
        {"Splash", console, {Appear{"nwbw"}}, {"OK", State::Focused}},
        {"Compile", console, {Press{"space"}, Vanish{}, Appear{console}}, {"Modify"}},
        {"Compile, hidden", console, {hide}, hidden},
        {"Play", console, {nextTab}, {"Log file"}},
        {"Play, replay", console, {Press{"Alt+R"}}, {"Log file", State::Enabled}},
        {"Play, hidden", console, {Press{"Alt+R"}, hide}, hidden},
        {"Message", console, {Press{"Alt+P"}, Appear{console}}, {"OK", State::Focused}},
        {"Spelling", console, leave + Way{nextTab}, {"Extract"}},
        {"Spelling, named output", console, {Press{"Alt+C"}}, {"Output filename"}},
        {"Spelling, hidden", console, {hide}, hidden},
        {"Edit", console, {nextTab}, {"My Text Editor"}},
        {"Edit, hidden", console, {hide}, hidden},
        {"Edit, at the tabs", console, {next}, {"Edit", State::Focused}},
        {"Compile, by the tabs", console, {Press{"Right"}}, {"Compile", State::Focused}},
        {"Browse",
         console,
         Way{next, next} + browse("space", "Select source code file") +
             browse("Return", "Select source code file"),
         {"Browse", State::Focused}},
        {"Kelm programs",
         programs,
         {Press{"Alt+G"}, Press{"K"}, Appear{programs}},
         {"KELM Compiler", State::Focused}},
        {"Other programs",
         others,
         leave + Way{Press{"Alt+G"}, Press{"O"}, Appear{others}},
         {"Web Browser", State::Focused}},
        {"About",
         about,
         leave + Way{Press{"Alt+H"}, Press{"A"}, Appear{about}},
         {"OK", State::Focused}},
        {"Include list",
         folders,
         leave + Way{hide, Press{"Alt+M"}, Appear{folders}},
         {"Close", State::Focused},
         listOrder},
        {"Include list, a folder selected",
         folders,
         {next, Press{"Down"}},
         {library, State::Selected},
         listOrder},
        {"Include folder",
         folder,
         {Press{"Alt+A"}, Appear{folder}},
         {"Folder Name", State::Focused},
         folderOrder},
        {"Include folder, another opened",
         folder,
         {next, next, Press{"Home"}, Press{"Return"}},
         {"my games"},
         folderOrder},
    };
}

std::vector<Menu> menus() {
    const Way leaveDialogs = Way{Press{"Escape"}, Vanish{}, Appear{folders}} + leave;
    return {{"Settings, by its letter", leaveDialogs + Way{Press{"Alt+G"}}, "Other Programs ..."},
            {"Help, by its letter", {Press{"Alt+H"}}, "About"},
            {"File, by F10", {Press{"F10"}}, "Exit"},
            {"Settings, by the arrow keys", {Press{"F10"}, Press{"Right"}}, "Other Programs ..."}};
}

}  // namespace tour
