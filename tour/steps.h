#pragma once

#include <string>
#include <variant>
#include <vector>

/// The tour as a list: what a user does and what must come of it, whatever the system below.
namespace tour {

// What the user does, in the window that appeared last.
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

// What must happen.
/// A window with the title is in view, other than the one that was worked until now. It gets the
/// keys and the clicks from here on.
struct Appear {
    std::string title;
};
/// The window that was worked goes.
struct Vanish {};
/// No window with the title is in view, be it that none has come or that it has gone.
struct Absent {
    std::string title;
};
/// The command script reads as given, and each line ends in CRLF.
struct Script {
    std::vector<std::string> lines;
};
/// The program has been called, in the folder and with the arguments, and has read the input.
/// Paths of files and folders are long ones of drive c.
struct Call {
    std::string program;
    std::string folder;
    std::vector<std::string> arguments;
    std::vector<std::string> input = {};
};
/// The file holds the text.
struct Left {
    std::string file;
    std::string text;
};
/// The program has ended by itself and without an error.
struct End {};

using Action =
    std::variant<Press, Type, Click, Close, Appear, Vanish, Absent, Script, Call, Left, End>;

struct Step {
    std::string what;
    Action action;
};

struct Scene {
    std::string name;
    std::vector<Step> steps;
};

/// What carries a short form of its name: two folders, and the stem of a file.
struct Names {
    std::string library;
    std::string games;
    std::string quest;
};

/// What the systems below do each in its own way.
struct System {
    std::string splash;       ///< title of the splash, which has none of its own
    std::string terminal;     ///< title of the window of a script
    Names scripts;            ///< as they stand in a script
    Names tools;              ///< as the script's programs receive them, and name their files
    std::string caveListing;  ///< as Notepad receives it from a script
};

/// The whole tour, from the start of the program to its end.
std::vector<Scene> scenes(const System& system);

}  // namespace tour
