#pragma once

#include <string>
#include <variant>
#include <vector>

/// The tour as a list: what a user does and what must happen, on any system.
namespace tour {

// User actions, in the window that appeared last.
struct Press {
    std::string keys;  ///< "Alt+D", "Ctrl+Tab"
};
struct Type {
    std::string text;
};
struct Click {
    std::string control;  ///< full name of a control of the console
};
/// The window's close box.
struct Close {};

// Expected results.
/// A window with the title is visible, other than the current one. It becomes the current window.
struct Appear {
    std::string title;
};
/// The current window disappears.
struct Vanish {};
/// No window with the title is visible.
struct Absent {
    std::string title;
};
/// The command script has these lines, each ending in CRLF.
struct Script {
    std::vector<std::string> lines;
};
/// The program was called in the folder with the arguments and has read the input. Paths are long
/// ones on drive c.
struct Call {
    std::string program;
    std::string folder;
    std::vector<std::string> arguments;
    std::vector<std::string> input = {};
};
/// The file contains the text.
struct FileHolds {
    std::string file;
    std::string text;
};
/// The program has exited by itself, successfully.
struct End {};

using Action =
    std::variant<Press, Type, Click, Close, Appear, Vanish, Absent, Script, Call, FileHolds, End>;

struct Step {
    std::string what;
    Action action;
};

struct Scene {
    std::string name;
    std::vector<Step> steps;
};

/// The names that may appear in their short form: two folders and the stem of a file.
struct Names {
    std::string library;
    std::string games;
    std::string quest;
};

/// What differs between the systems.
struct System {
    std::string splash;       ///< title of the splash's window; its form has none
    std::string terminal;     ///< title of a script's window
    Names scripts;            ///< as they appear in a script
    Names tools;              ///< as the tools receive them and name their files
    std::string caveListing;  ///< as Notepad receives it from a script
};

/// Returns the whole tour, from the program's start to its end.
std::vector<Scene> scenes(const System& system);

}  // namespace tour
