#include "guide.h"

namespace tour {

namespace {

const std::string console = "The Norvane Workbench";
const std::string games = "c:\\my games";
const std::string cave = games + "\\cave";
const std::string quest = games + "\\wizardquest";
const std::string library = "c:\\kelm\\standard library";

const std::string kelm = "c:\\kelm\\programs\\kelm.exe";
const std::string krun = "c:\\kelm\\programs\\krun.exe";
const std::string winkrun = "c:\\kelm\\programs\\winkrun.exe";
const std::string dosKrun = "c:\\kelm\\dos\\krun.exe";
const std::string klex = "c:\\kelm\\programs\\klex.exe";
const std::string editor = "c:\\kelm\\editor\\editor.exe";
const std::string notepad = "notepad";

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

/// The tour of each part of the program, in order.
struct Tour {
    Guide& guide;
    const System& system;

    /// From a panel's action button back to the box of its file, and from the panel's first option.
    const std::string fromButton = "Shift+Tab Shift+Tab";
    const std::string fromOption = "Shift+Tab Shift+Tab " + fromButton;

    void done() const { guide.absent(system.terminal); }
    /// The editor has opened the file; checks how it was called and closes it.
    void seenInEditor(const std::string& program, const std::string& file,
                      const std::string& argument) const {
        guide.appears(file + " - Practice Editor");
        guide.called({program, {argument}});
        guide.close();
        done();
        guide.appears(console);
    }
    void calledCompiler(const Texts& arguments) const {
        guide.called(
            {kelm, Texts{"-Include", system.library} + arguments + Texts{"-List", "-Height", "0"}});
    }
    /// Leaves the dialog or message box by a key. The window below is visible all the time, so only
    /// the disappearing of this one shows that the key worked.
    void leave(const std::string& keys, const std::string& below = console) const {
        guide.press(keys);
        guide.vanishes();
        guide.appears(below);
    }
    /// A message box appears and is answered by a key.
    void box(const std::string& title, const std::string& keys) const {
        guide.appears(title);
        leave(keys);
    }

    void start() const {
        guide.appears(system.splash);
        guide.press("space");
        guide.appears(console);
    }

    void compileByMouse() const {
        guide.click("txtFname");
        guide.retype(cave + ".kel");
        guide.click("chkDebug");
        guide.click("btnCompile");
        calledCompiler({"cave", "-Debug"});
        seenInEditor(notepad, "cave.lis", system.caveListing);
        guide.holds(cave + ".kcd", caveTexts);
    }

    /// Adds the games to the include folders.
    void addFolder() const {
        const std::string list = "Include File search list";
        guide.press("Alt+M");
        guide.appears(list);
        guide.press("Alt+A");
        guide.appears("Select folder to add to search list");
        guide.retype(games);
        leave("Return", list);
        leave("Alt+C");
    }

    /// Sets a box of a dialog of the Settings menu, past others and the Browse buttons.
    void setLocation(const std::string& item, const std::string& title, int box,
                     const std::string& program) const {
        guide.press("Alt+G " + item);
        guide.appears(title);
        for (int passed = 0; passed < box; ++passed)
            guide.press("Tab Tab");
        guide.retype(program);
        leave("Return");
    }

    void dialogs() const {
        const std::string programs = "Kelm Programs and Documenation File Locations";
        addFolder();
        setLocation("K", programs, 2, winkrun);
        setLocation("O", "Other Program Locations", 3, editor);
        guide.press("Alt+H A");
        box("About the Norvane Workbench", "Return");
    }

    /// The name of more than eight letters gets a short form.
    void compileByKeyboard() const {
        const auto compiled = [&](const std::string& stem) {
            calledCompiler({"-Include", system.games, stem, "-Pack", "-Debug", "-Full"});
            seenInEditor(editor, stem + ".lis", stem + ".lis");
        };
        guide.press("Alt+E Tab space Alt+P Alt+C");
        box("Game newer than Source", "Alt+Y");
        compiled("cave");
        guide.press(fromButton);
        guide.retype(games + "\\dragon.kel");
        guide.press("Alt+C");
        box(console, "Return");  // there is no such file
        guide.press("Alt+B");
        guide.appears("Select source code file");
        guide.retype(quest + ".kel");
        leave("Return");
        guide.press("Alt+C");
        compiled(system.quest);
        guide.holds(games + "\\" + system.quest + ".kcd", questTexts);
    }

    void playByMouse() const {
        guide.press("Ctrl+Tab");
        guide.click("txtFnameP");
        guide.retype(cave + ".kcd");
        guide.click("chkTrace");
        guide.click("optRecord(1)");
        guide.click("btnPlay");
        guide.appears(system.terminal);
        guide.type("look\nquit\n");
        guide.vanishes();
        guide.appears(console);
        guide.called({winkrun, {"cave", "-t", "-L"}, {"look", "quit"}});
        guide.holds(cave + ".log", "look\nquit\n");
    }

    /// Replays the log with the MSDOS player.
    void playByKeyboard() const {
        guide.press("Alt+E Alt+T Alt+R Tab");
        guide.retype("cave.log");
        guide.press("Alt+M " + fromOption);
        guide.retype(games + "\\" + system.quest + ".kcd");
        guide.press("Alt+P");
        guide.called({dosKrun, {system.quest}, {"look", "quit"}});
        done();
    }

    void spellingByMouse() const {
        guide.press("Ctrl+Tab");
        guide.click("txtFnameS");
        guide.retype(quest + ".kel");
        for (const char* control : {"optCodes(2)", "optParam(3)", "chkLineNum", "chkOutputfile"})
            guide.click(control);
        guide.click("txtFnameO");
        guide.retype("words.txt");
        guide.click("btnExtract");
        guide.called({klex, {system.quest, "-FR", "-PR", "-NL", "-OFwords.txt"}});
        seenInEditor(editor, "words.txt", "words.txt");
        guide.holds(games + "\\words.txt", questTexts);
    }

    void spellingByKeyboard() const {
        guide.press("Alt+R Alt+U Alt+D Alt+C " + fromOption);
        guide.retype(cave + ".kel");
        guide.press("Alt+E");
        guide.called({klex, {"cave", "-FF", "-PC"}});
        seenInEditor(editor, "cave.txt", "cave.txt");
        guide.press("Alt+E");
        box(console, "Return");  // the output exists
        guide.press("Alt+O Alt+W Alt+E");
        guide.called({klex, {"cave", "-OO", "-FF", "-PC"}});
        done();
    }

    void edit() const {
        guide.press("Ctrl+Tab");
        guide.click("txtFnameE");
        guide.retype(quest + ".kel");
        guide.click("btnEdit");
        seenInEditor(editor, "wizardquest.kel", quest + ".kel");
        guide.press("Alt+N " + fromOption);
        guide.retype(cave + ".kel");
        guide.press("Alt+E");
        seenInEditor(notepad, "cave.kel", cave + ".kel");
    }

    void end() const {
        guide.press("Alt+F X");
        guide.ends();
        std::string text;
        for (const std::string& line :
             Texts{"'1.0 Norvane Workbench'", kelm, winkrun, winkrun, dosKrun, klex} +
                 Texts{editor, editor, "", "", "", "", "", cave + ".kel", quest + ".kel"} +
                 Texts{games + "\\" + system.quest + ".kcd", cave + ".kel"} + Texts(4, " 0 ") +
                 Texts{" 2 ", " 1 ", library, games})
            text += line + "\n";
        guide.holds("nwbw.ini", text);
    }
};

}  // namespace

void takeTour(Guide& guide, const System& system) {
    const Tour tour{guide, system};
    tour.start();
    tour.compileByMouse();
    tour.dialogs();
    tour.compileByKeyboard();
    tour.playByMouse();
    tour.playByKeyboard();
    tour.spellingByMouse();
    tour.spellingByKeyboard();
    tour.edit();
    tour.end();
}

}  // namespace tour
