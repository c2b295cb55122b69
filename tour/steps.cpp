#include "core/text.h"
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
const std::string winword = "c:\\office\\winword.exe";
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

/// What the tour has changed in the settings file.
struct Settings {
    std::string consolePlayer = krun;
    std::string wordProcessor = winword;
    Texts files = {cave + ".kel", cave + ".kel", cave + ".kcd", cave + ".kel"};
    std::string player = "1";
    std::string startTab = "2";
    Texts folders = {library};
};

/// The tour of each part of the program, in order.
struct Tour {
    Guide& guide;
    const System& system;
    Settings settings = {};

    /// From a panel's action button back to the box of its file, and from the panel's first option.
    const std::string fromButton = "Shift+Tab Shift+Tab";
    const std::string fromOption = "Shift+Tab Shift+Tab " + fromButton;

    /// The settings file on the disk has the settings.
    void saved() const {
        Texts all{
            "'1.0 Norvane Workbench'", kelm, winkrun, settings.consolePlayer, dosKrun, klex, editor,
            settings.wordProcessor};
        all = all + Texts(5) + settings.files + Texts(4, " 0 ") +
              Texts{" " + settings.player + " ", " " + settings.startTab + " "} + settings.folders;
        std::string text;
        for (const std::string& line : all)
            text += line + "\n";
        guide.holds("nwbw.ini", text);
    }
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
    /// A panel's script; its commands run in the games folder.
    void wrote(const Texts& commands, const Texts& tail = {""}) const {
        guide.wrote(Texts{"c:", "cd \"\\my games\\\""} + commands + tail);
    }
    void wroteCompile(const std::string& options, const std::string& viewer) const {
        wrote({core::quoted(kelm) + " -Include " + options + " -List -Height 0", viewer, "exit"},
              {"", "", "pause", "", "", "exit", ""});
    }
    void calledCompiler(const Texts& arguments) const {
        guide.called({kelm, Texts{"-Include", system.tools.library} + arguments +
                                Texts{"-List", "-Height", "0"}});
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
        wroteCompile(core::quoted(system.scripts.library) + " cave -Debug", "notepad cave.lis");
        guide.holds(cave + ".kcd", caveTexts);
    }

    /// Adds the games to the include folders, and leaves the list by the keys.
    void addFolder(const std::string& keys) const {
        const std::string list = "Include File search list";
        guide.press("Alt+M");
        guide.appears(list);
        guide.press("Alt+A");
        guide.appears("Select folder to add to search list");
        guide.retype(games);
        leave("Return", list);
        leave(keys);
    }

    /// Sets a box of a dialog of the Settings menu, past others and the Browse buttons.
    void setLocation(const std::string& item, const std::string& title, int box,
                     const std::string& program, const std::string& keys) const {
        guide.press("Alt+G " + item);
        guide.appears(title);
        for (int passed = 0; passed < box; ++passed)
            guide.press("Tab Tab");
        guide.retype(program);
        leave(keys);
        saved();
    }

    void dialogs() {
        const std::string programs = "Kelm Programs and Documenation File Locations";
        addFolder("Escape");
        addFolder("Alt+C");
        settings.folders = {library, games};
        saved();
        setLocation("K", programs, 2, winkrun, "Escape");
        settings.consolePlayer = winkrun;
        setLocation("K", programs, 2, winkrun, "Return");
        settings.wordProcessor = editor;
        setLocation("O", "Other Program Locations", 3, editor, "Return");
        guide.press("Alt+H A");
        box("About the Norvane Workbench", "Return");
    }

    /// The name of more than eight letters gets a short form.
    void compileByKeyboard() const {
        const std::string include = core::quoted(system.scripts.library) + " -Include " +
                                    core::quoted(system.scripts.games) + " ";
        const auto compiled = [&](const std::string& stem) {
            calledCompiler({"-Include", system.tools.games, stem, "-Pack", "-Debug", "-Full"});
            seenInEditor(editor, stem + ".lis", stem + ".lis");
        };
        guide.press("Alt+E Tab space Alt+P Alt+C");
        box("Game newer than Source", "Alt+Y");
        compiled("cave");
        guide.press(fromButton);
        guide.retype(games + "\\dragon.kel");
        guide.press("Alt+C");
        box(console, "Return");  // there is no such file
        guide.press(fromButton);
        guide.retype(quest + ".kel");
        guide.press("Alt+C");
        compiled(system.tools.quest);
        wroteCompile(include + system.scripts.quest + " -Pack -Debug -Full",
                     core::quoted(editor) + " " + system.scripts.quest + ".lis");
        guide.holds(games + "\\" + system.tools.quest + ".kcd", questTexts);
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
        wrote({core::quoted(winkrun) + " cave -t -L"});
        guide.holds(cave + ".log", "look\nquit\n");
    }

    /// Replays the log with the MSDOS player.
    void playByKeyboard() {
        settings.player = "2";
        settings.files[2] = games + "\\" + system.tools.quest + ".kcd";
        guide.press("Alt+E Alt+T Alt+R Tab");
        guide.retype("cave.log");
        guide.press("Alt+M " + fromOption);
        guide.retype(settings.files[2]);
        guide.press("Alt+P");
        guide.called({dosKrun, {system.tools.quest}, {"look", "quit"}});
        wrote({core::quoted(dosKrun) + " " + system.scripts.quest + " < cave.log"});
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
        guide.called({klex, {system.tools.quest, "-FR", "-PR", "-NL", "-OFwords.txt"}});
        seenInEditor(editor, "words.txt", "words.txt");
        wrote({core::quoted(klex) + " " + system.scripts.quest + " -FR -PR -NL  -OFwords.txt",
               core::quoted(editor) + "  words.txt"});
        guide.holds(games + "\\words.txt", questTexts);
    }

    void spellingByKeyboard() const {
        guide.press("Alt+R Alt+U Alt+D Alt+C " + fromOption);
        guide.retype(cave + ".kel");
        guide.press("Alt+E");
        guide.called({klex, {"cave", "-FF", "-PC"}});
        seenInEditor(editor, "cave.txt", "cave.txt");
        wrote({core::quoted(klex) + " cave -FF -PC", core::quoted(editor) + "  cave.txt"});
        guide.press("Alt+E");
        box(console, "Return");  // the output exists
        guide.press("Alt+O Alt+W Alt+E");
        guide.called({klex, {"cave", "-OO", "-FF", "-PC"}});
        wrote({core::quoted(klex) + " cave -OO -FF -PC"});
        done();
    }

    void edit() {
        settings.files[1] = quest + ".kel";
        settings.startTab = "1";
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
        saved();
    }
};

}  // namespace

void takeTour(Guide& guide, const System& system) {
    Tour tour{guide, system};
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
