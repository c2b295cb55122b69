#include "steps.h"

#include "core/text.h"

namespace tour {

namespace {

using Steps = std::vector<Step>;
using Texts = std::vector<std::string>;

const std::string console = "The Norvane Workbench";
const std::string games = "c:\\my games";
const std::string cave = games + "\\cave";
const std::string quest = games + "\\wizardquest";

const std::string kelm = "c:\\kelm\\programs\\kelm.exe";
const std::string krun = "c:\\kelm\\programs\\krun.exe";
const std::string dosKrun = "c:\\kelm\\dos\\krun.exe";
const std::string klex = "c:\\kelm\\programs\\klex.exe";
const std::string editor = "c:\\kelm\\editor\\editor.exe";
const std::string winword = "c:\\office\\winword.exe";
const std::string notepad = "notepad";

// The dialogs replace the demo's console player and word processor by these.
const std::string consolePlayer = "c:\\kelm\\programs\\winkrun.exe";
const std::string wordProcessor = editor;

const std::string library = "c:\\kelm\\standard library";

const std::string caveTexts =
    "You stand before a cave. A path leads down into the dark.\n"
    "A brass lantern lies here.\n"
    "The cave is cold and smells of rain.\n"
    "You hear water, far below.\n";
const std::string questTexts =
    "The wizard looks up from his book. 'You are late,' he says.\n"
    "Three doors lead out of the tower.\n";

Texts operator+(Texts first, const Texts& more) {
    first.insert(first.end(), more.begin(), more.end());
    return first;
}

Steps operator+(Steps first, const Steps& more) {
    first.insert(first.end(), more.begin(), more.end());
    return first;
}

const Step backToConsole{"Go back to the console", Appear{console}};

/// Replaces the text of the focused box.
Steps retype(const std::string& text) {
    return {{"Select the old name", Press{"Ctrl+A"}}, {"Type " + text, Type{text}}};
}

Steps click(const std::string& caption, const std::string& control) {
    return {{"Click " + caption, Click{control}}};
}

Steps press(const std::string& keys, const std::string& why) {
    return {{"Press " + keys + ": " + why, Press{keys}}};
}

/// Moves the focus from a panel's action button back to the box of its file.
Steps fromButtonToFile() {
    return press("Shift+Tab", "Browse") + press("Shift+Tab", "the file's box");
}

/// Moves the focus from a panel's first option back to the box of its file.
Steps fromOptionToFile() {
    return press("Shift+Tab", "the hide box") + press("Shift+Tab", "the action button") +
           fromButtonToFile();
}

/// The script has finished.
Steps done(const System& system) {
    return {{"The terminal has gone", Absent{system.terminal}}};
}

/// The editor has opened the file; checks how it was called and closes it.
Steps seenInEditor(const System& system, const std::string& program, const std::string& file,
                   const std::string& argument) {
    return Steps{{"The editor appears", Appear{file + " - Practice Editor"}},
                 {"It was called as expected", Call{program, games, {argument}}},
                 {"Close the editor", Close{}}} +
           done(system) + Steps{backToConsole};
}

/// A panel's script; its commands run in the games folder.
Steps wrote(const Texts& commands, const Texts& tail = {""}) {
    return {{"The script that was written",
             Script{Texts{"c:", "cd \"\\my games\\\""} + commands + tail}}};
}

Steps wroteCompile(const std::string& library, const std::string& options,
                   const std::string& viewer) {
    return wrote({core::quoted(kelm) + " -Include " + core::quoted(library) + " " + options +
                      " -List -Height 0",
                  viewer, "exit"},
                 {"", "", "pause", "", "", "exit", ""});
}

Steps called(const std::string& program, const Texts& arguments, const Texts& input = {}) {
    return {{"The tool was called as expected", Call{program, games, arguments, input}}};
}

Steps calledCompiler(const std::string& library, const Texts& arguments) {
    return called(kelm, Texts{"-Include", library} + arguments + Texts{"-List", "-Height", "0"});
}

Steps fileHolds(const std::string& file, const std::string& text) {
    return {{"The file " + file + " is as expected", FileHolds{file, text}}};
}

/// Closes the dialog or message box by a key. The window below is visible all the time, so only the
/// disappearing of this one shows that the key worked.
Steps leave(const std::string& keys, const std::string& why, const Step& below = backToConsole) {
    return press(keys, why) + Steps{{"It disappears", Vanish{}}, below};
}

/// A message box appears and is answered by a key.
Steps box(const std::string& title, const std::string& keys) {
    return Steps{{"A message box appears", Appear{title}}} + leave(keys, "the answer");
}

Scene start(const System& system) {
    return {"The start",
            {{"The splash appears", Appear{system.splash}},
             {"Press a key, which closes it", Press{"space"}},
             {"The console appears on the Compile tab", Appear{console}}}};
}

Scene compileByMouse(const System& system) {
    return {"Compile, with the mouse",
            click("the file's box", "txtFname") + retype(cave + ".kel") +
                click("Debug", "chkDebug") + click("Compile", "btnCompile") +
                calledCompiler(system.tools.library, {"cave", "-Debug"}) +
                seenInEditor(system, notepad, "cave.lis", system.caveListing) +
                wroteCompile(system.scripts.library, "cave -Debug", "notepad cave.lis") +
                fileHolds(cave + ".kcd", caveTexts)};
}

/// The part of the settings file that the tour changes.
struct Settings {
    std::string consolePlayer = krun;
    std::string wordProcessor = winword;
    Texts files = {cave + ".kel", cave + ".kel", cave + ".kcd", cave + ".kel"};
    std::string player = "1";
    std::string startTab = "2";
    Texts folders = {library};
};

/// The settings file on the disk has this content.
Steps saved(const Settings& settings) {
    Texts all{"'1.0 Norvane Workbench'",
              kelm,
              "c:\\kelm\\programs\\winkrun.exe",
              settings.consolePlayer,
              dosKrun,
              klex,
              editor,
              settings.wordProcessor};
    all = all + Texts(5) + settings.files + Texts(4, " 0 ") +
          Texts{" " + settings.player + " ", " " + settings.startTab + " "} + settings.folders;
    std::string text;
    for (const std::string& line : all)
        text += line + "\n";
    return fileHolds("nwbw.ini", text);
}

/// Moves from box to box of a locations dialog, past the Browse buttons.
Steps toBox(int count) {
    Steps steps;
    for (int i = 0; i < count; ++i)
        steps = steps + press("Tab", "Browse") + press("Tab", "the next box");
    return steps;
}

Steps openDialog(const std::string& menu, const std::string& item, const std::string& title) {
    return press(menu, "the menu") + press(item, "its item") +
           Steps{{"The dialog appears", Appear{title}}};
}

Scene dialogs() {
    const std::string programs = "Kelm Programs and Documenation File Locations";
    const std::string others = "Other Program Locations";
    const Step list{"The list of include folders appears", Appear{"Include File search list"}};
    const Step folder{"The folder dialog appears", Appear{"Select folder to add to search list"}};
    Settings settings;
    Scene scene{"The dialogs, with the keyboard", {}};
    const auto go = [&scene](const Steps& steps) { scene.steps = scene.steps + steps; };

    go(press("Alt+M", "modify the include folders") + Steps{list} + press("Alt+A", "add one") +
       Steps{folder} + retype(games) + leave("Return", "OK", list) + leave("Escape", "cancel"));
    go(press("Alt+M", "modify them after all") + Steps{list} + press("Alt+A", "add one") +
       Steps{folder} + retype(games) + leave("Return", "OK", list) + leave("Alt+C", "close"));
    settings.folders = {library, games};
    go(saved(settings));

    go(openDialog("Alt+G", "K", programs) + toBox(2) + retype(consolePlayer) +
       leave("Escape", "cancel") + saved(settings));
    go(openDialog("Alt+G", "K", programs) + toBox(2) + retype(consolePlayer) +
       leave("Return", "OK"));
    settings.consolePlayer = consolePlayer;
    go(saved(settings));

    go(openDialog("Alt+G", "O", others) + toBox(3) + retype(wordProcessor) + leave("Return", "OK"));
    settings.wordProcessor = wordProcessor;
    go(saved(settings));

    go(openDialog("Alt+H", "A", "About the Norvane Workbench") + leave("Return", "OK"));
    return scene;
}

Scene compileByKeyboard(const System& system) {
    const auto called = [&](const std::string& stem) {
        return calledCompiler(system.tools.library,
                              {"-Include", system.tools.games, stem, "-Pack", "-Debug", "-Full"}) +
               seenInEditor(system, editor, stem + ".lis", stem + ".lis");
    };
    const std::string stem = system.scripts.quest;
    return {"Compile a name of more than eight letters, with the keyboard",
            press("Alt+E", "the listing in my editor") + press("Tab", "the next option") +
                press("space", "all of the source in the listing") + press("Alt+P", "packed") +
                press("Alt+C", "compile again") + box("Game newer than Source", "Alt+Y") +
                called("cave") + fromButtonToFile() + retype(games + "\\dragon.kel") +
                press("Alt+C", "compile a missing file") + box(console, "Return") +
                fromButtonToFile() + retype(quest + ".kel") + press("Alt+C", "compile") +
                called(system.tools.quest) +
                wroteCompile(system.scripts.library,
                             "-Include " + core::quoted(system.scripts.games) + " " + stem +
                                 " -Pack -Debug -Full",
                             core::quoted(editor) + " " + stem + ".lis") +
                fileHolds(games + "\\" + system.tools.quest + ".kcd", questTexts)};
}

Scene playByMouse(const System& system) {
    return {"Play, with the mouse",
            press("Ctrl+Tab", "the next tab") + click("the file's box", "txtFnameP") +
                retype(cave + ".kcd") + click("Trace", "chkTrace") +
                click("Full Transcript", "optRecord(1)") + click("Play", "btnPlay") +
                Steps{{"The player's terminal appears", Appear{system.terminal}},
                      {"Play a little", Type{"look\nquit\n"}},
                      {"The terminal disappears", Vanish{}},
                      backToConsole} +
                called(consolePlayer, {"cave", "-t", "-L"}, {"look", "quit"}) +
                wrote({core::quoted(consolePlayer) + " cave -t -L"}) +
                fileHolds(cave + ".log", "look\nquit\n")};
}

Scene playByKeyboard(const System& system) {
    return {"Replay with the MSDOS player, with the keyboard",
            press("Alt+E", "no recording") + press("Alt+T", "no trace") + press("Alt+R", "replay") +
                press("Tab", "the log's box") + retype("cave.log") +
                press("Alt+M", "the MSDOS player") + fromOptionToFile() +
                retype(games + "\\" + system.tools.quest + ".kcd") + press("Alt+P", "play") +
                called(dosKrun, {system.tools.quest}, {"look", "quit"}) +
                wrote({core::quoted(dosKrun) + " " + system.scripts.quest + " < cave.log"}) +
                done(system)};
}

Scene spellingByMouse(const System& system) {
    return {
        "Spelling, with the mouse",
        press("Ctrl+Tab", "the next tab") + click("the file's box", "txtFnameS") +
            retype(quest + ".kel") + click("Remove codes", "optCodes(2)") +
            click("Remove parameter codes", "optParam(3)") +
            click("No line numbers", "chkLineNum") + click("A name of my own", "chkOutputfile") +
            click("the output's box", "txtFnameO") + retype("words.txt") +
            click("Extract", "btnExtract") +
            called(klex, {system.tools.quest, "-FR", "-PR", "-NL", "-OFwords.txt"}) +
            seenInEditor(system, wordProcessor, "words.txt", "words.txt") +
            wrote({core::quoted(klex) + " " + system.scripts.quest + " -FR -PR -NL  -OFwords.txt",
                   core::quoted(wordProcessor) + "  words.txt"}) +
            fileHolds(games + "\\words.txt", questTexts)};
}

Scene spellingByKeyboard(const System& system) {
    return {"Spelling, with the keyboard",
            press("Alt+R", "format with the codes") + press("Alt+U", "upper case words") +
                press("Alt+D", "line numbers again") + press("Alt+C", "the default name") +
                fromOptionToFile() + retype(cave + ".kel") + press("Alt+E", "extract") +
                called(klex, {"cave", "-FF", "-PC"}) +
                seenInEditor(system, wordProcessor, "cave.txt", "cave.txt") +
                wrote({core::quoted(klex) + " cave -FF -PC",
                       core::quoted(wordProcessor) + "  cave.txt"}) +
                press("Alt+E", "extract again, over an existing file") + box(console, "Return") +
                press("Alt+O", "overwrite") + press("Alt+W", "no word processor") +
                press("Alt+E", "extract") + called(klex, {"cave", "-OO", "-FF", "-PC"}) +
                wrote({core::quoted(klex) + " cave -OO -FF -PC"}) + done(system)};
}

Scene editByMouse(const System& system) {
    return {"Edit, with the mouse",
            press("Ctrl+Tab", "round to the first tab") + click("the file's box", "txtFnameE") +
                retype(quest + ".kel") + click("Edit", "btnEdit") +
                seenInEditor(system, editor, "wizardquest.kel", quest + ".kel")};
}

Scene editByKeyboard(const System& system) {
    return {"Edit with Notepad, with the keyboard",
            press("Alt+N", "Notepad") + fromOptionToFile() + retype(cave + ".kel") +
                press("Alt+E", "edit") + seenInEditor(system, notepad, "cave.kel", cave + ".kel")};
}

Scene end(const System& system) {
    Settings settings{consolePlayer, wordProcessor};
    settings.files = {cave + ".kel", quest + ".kel", games + "\\" + system.tools.quest + ".kcd",
                      cave + ".kel"};
    settings.player = "2";
    settings.startTab = "1";
    settings.folders = {library, games};
    return {"The end", press("Alt+F", "the File menu") + press("X", "Exit") +
                           Steps{{"The program ends", End{}}} + saved(settings)};
}

}  // namespace

std::vector<Scene> scenes(const System& system) {
    return {start(system),
            compileByMouse(system),
            dialogs(),
            compileByKeyboard(system),
            playByMouse(system),
            playByKeyboard(system),
            spellingByMouse(system),
            spellingByKeyboard(system),
            editByMouse(system),
            editByKeyboard(system),
            end(system)};
}

}  // namespace tour
