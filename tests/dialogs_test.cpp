#include <gtest/gtest.h>

#include "dialogs/frm_include_add.h"
#include "dialogs/frm_include_list.h"
#include "dialogs/locations_dialog.h"
#include "docs/frm_about.h"
#include "docs/system_info.h"
#include "model.h"

using namespace model;
using core::AppState;

namespace {

const std::string ini = "c:\\nwb\\nwbw.ini";

struct Dialogs : testing::Test {
    Desk desk;
    FakeRuntime& runtime = desk.runtime;
    FakeToolkit& toolkit = desk.toolkit;
    AppState& state = desk.program.state;
    console::frmConsole& form = desk.open();

    template <typename Kind>
    void nextDialog(const std::function<void(Kind&)>& user) {
        toolkit.users.emplace_back(
            [user](forms::Form& shown) { user(dynamic_cast<Kind&>(shown)); });
    }
    std::vector<std::string> folders() {
        std::vector<std::string> list;
        for (int i = 0; i < form.compile.lstInclude.ListCount(); ++i) {
            list.push_back(form.compile.lstInclude.List(i));
        }
        return list;
    }
    std::vector<std::string> boxes() {
        std::vector<std::string> texts;
        for (const auto& box : std::exchange(runtime.boxes, {})) {
            texts.push_back(std::to_string(box.flags) + " " + box.text);
        }
        return texts;
    }
};

TEST_F(Dialogs, ALocationsDialogStoresItsPathsOnlyOnOk) {
    const struct {
        forms::MenuItem& item;
        std::string caption;
        std::map<int, std::string AppState::*> fields;
    } dialogs[] = {{form.mnuOptionsPrograms,
                    "Kelm Programs and Documenation File Locations",
                    {{0, &AppState::CompilerPath},
                     {3, &AppState::GuiPlayerPath},
                     {4, &AppState::ConsolePlayerPath},
                     {1, &AppState::DosPlayerPath},
                     {5, &AppState::ExtractorPath},
                     {8, &AppState::ManualHtmlPath},
                     {7, &AppState::ManualPdfPath},
                     {6, &AppState::TutorialPath}}},
                   {form.mnuOptionsOther,
                    "Other Program Locations",
                    {{0, &AppState::BrowserPath},
                     {1, &AppState::AcrobatPath},
                     {2, &AppState::EditorPath},
                     {9, &AppState::WordProcessorPath}}}};
    for (const auto& dialog : dialogs) {
        using Dialog = dialogs::LocationsDialog;
        const auto typeAll = [&](Dialog& shown) {
            EXPECT_EQ(shown.Caption(), dialog.caption);
            for (const auto& [index, field] : dialog.fields) {
                EXPECT_EQ(shown.txtFname(index).Text(), state.*field);
                shown.txtFname(index).type("c:\\" + std::to_string(index));
            }
        };
        for (const auto& leave : {std::function<void(Dialog&)>([](Dialog& d) { d.pressCancel(); }),
                                  std::function<void(Dialog&)>([](Dialog& d) { d.close(); })}) {
            nextDialog<Dialog>([&](Dialog& shown) {
                typeAll(shown);
                leave(shown);
            });
            dialog.item.click();
            for (const auto& [index, field] : dialog.fields)
                EXPECT_EQ(state.*field, "");
            EXPECT_FALSE(runtime.files.contains(ini));
        }
        nextDialog<Dialog>([&](Dialog& shown) {
            typeAll(shown);
            shown.pressDefault();
            EXPECT_TRUE(shown.unloaded());
        });
        dialog.item.click();
        for (const auto& [index, field] : dialog.fields) {
            EXPECT_EQ(state.*field, "c:\\" + std::to_string(index));
        }
        EXPECT_EQ(runtime.files.erase(ini), 1u);
    }
    EXPECT_FALSE(form.help.mnuHelpManual.Enabled) << "settled at the next start";
}

TEST_F(Dialogs, EveryBrowseButtonAsksInItsOwnWordsAndFillsItsOwnBox) {
    const std::string all = "|All Files (*.*)|*.*";
    const std::string programs = "Programs (*.exe)|*.exe" + all;
    const auto press = [&](forms::Form& shown, const std::string& button, const std::string& box,
                           const std::string& title, const std::string& filter) {
        auto& text = dynamic_cast<forms::TextBox&>(*shown.find(box));
        for (const std::string chosen : {"", "d:\\new file.x"}) {
            text.Text = "c:\\old." + box;
            toolkit.fileChosen = chosen;
            shown.find(button)->click();
            EXPECT_EQ(toolkit.fileAsked.title, title);
            EXPECT_EQ(toolkit.fileAsked.filter, filter);
            EXPECT_EQ(toolkit.fileAsked.name, "c:\\old." + box);
            EXPECT_EQ(text.Text(), chosen.empty() ? "c:\\old." + box : chosen);
        }
    };
    const std::string source = "Source File (*.kel)|*.kel";
    const std::string sourceTitle = "Select source code file";
    press(form, "btnBrowseE", "txtFnameE", sourceTitle,
          source + "|Included Source File (*.i)|*.i" + all);
    form.tbsOptions.pick(2);
    press(form, "btnBrowse", "txtFname", sourceTitle, source + all);
    form.tbsOptions.pick(3);
    press(form, "btnBrowseP", "txtFnameP", "Select game file",
          "Game ('Kcode') File (*.kcd)|*.kcd" + all);
    form.play.chkPlayback.click();
    press(form, "btnBrowselog", "txtLogfile", "Select command-log file",
          "Log File (*.log)|*.log" + all);
    form.tbsOptions.pick(4);
    press(form, "btnBrowseS", "txtFnameS", sourceTitle, source + all);
    form.spelling.chkOutputfile.click();
    press(form, "btnBrowseO", "txtFnameO", "Select text file", "Source File (*.txt)|*.txt" + all);

    const auto row = [&](forms::Form& shown, int index, const std::string& title,
                         const std::string& filter) {
        const std::string number = "(" + std::to_string(index) + ")";
        press(shown, "btnBrowse" + number, "txtFname" + number, title, filter);
    };
    nextDialog<dialogs::frmSettings>([&](auto& shown) {
        row(shown, 0, "Locate 'kelm.exe' compiler program", programs);
        row(shown, 3, "Locate 'winkrun.exe' player program", programs);
        row(shown, 4, "Locate 'krun.exe' Windows player program", programs);
        row(shown, 1, "Locate 'krun.exe' MSDOS player program", programs);
        row(shown, 5, "Locate 'klex.exe' text extractor program", programs);
        row(shown, 8, "Locate the KELM HTML-format manual - 'kelmTOC.html'",
            "HTML (*.html)|*.html" + all);
        row(shown, 7, "Locate the KELM Adobe Acrobat-format manual - 'kelmmanual28.pdf'",
            "Acrobat Files (*.pdf)|*.pdf" + all);
        row(shown, 6, "Locate Tutorial 'contents.htm' file", "HTML (*.htm)|*.htm" + all);
    });
    form.mnuOptionsPrograms.click();
    nextDialog<dialogs::frmSettings2>([&](auto& shown) {
        row(shown, 0, "Locate web-browser or HTML viewer program - eg:IExplore.exe", programs);
        row(shown, 1, "Locate Adobe Acrobat Reader program - eg:acroread.exe", programs);
        row(shown, 2, "Locate your text editor software - eg 'PFE32.exe'", programs);
        row(shown, 9, "Locate your wordprocessor software - eg 'winword.exe'", programs);
    });
    form.mnuOptionsOther.click();
    EXPECT_TRUE(toolkit.users.empty());
}

TEST_F(Dialogs, TheIncludeListIsEditedAsACopyAndClosedIntoTheState) {
    using List = dialogs::frmIncludeList;
    using Add = dialogs::frmIncludeAdd;
    form.tbsOptions.pick(2);
    state.IncludeFolders = {"a", "b", "c", "d", "e"};
    const auto typeFolder = [&](const std::string& folder, const std::string& caption) {
        nextDialog<Add>([=](Add& add) {
            EXPECT_EQ(add.Caption(), caption);
            add.txtFolder.type(folder);
            add.pressDefault();
        });
    };
    const std::string adding = "Select folder to add to search list";
    nextDialog<List>([&](List& list) {
        EXPECT_EQ(list.List1.ListIndex, -1);
        EXPECT_FALSE(list.btnChange.Enabled || list.btnDelete.Enabled || list.btnUp.Enabled);
        list.List1.pick(4);
        list.btnDown.click();
        list.btnUp.click();
        EXPECT_EQ(list.List1.List(3) + list.List1.List(4), "ed");
        EXPECT_EQ(list.List1.ListIndex, 3);
        list.btnDelete.click();
        EXPECT_FALSE(list.btnDelete.Enabled);
        list.List1.pick(0);
        list.btnUp.click();
        list.btnDelete.click();
        list.List1.pick(0);
        list.btnDelete.click();
        list.List1.pick(1);
        list.btnDelete.click();
        typeFolder("c:\\n w", adding);
        list.btnAdd.click();
        EXPECT_EQ(list.List1.ListIndex, 1);
        typeFolder("changed", "Edit folder name");
        list.List1.pick(0);
        list.btnChange.click();
        typeFolder("  ", adding);
        list.btnAdd.click();
        list.pressDefault();
    });
    form.compile.btnModifyIncludes.click();
    EXPECT_EQ(folders(), (std::vector<std::string>{"changed", "c:\\n w"}));
    EXPECT_EQ(state.IncludeFolders[2] + state.IncludeFolders[3], "d") << "only the end is marked";
    EXPECT_TRUE(runtime.files[ini].text.ends_with(lines({"changed", "c:\\n w"})));
    EXPECT_NE(form.compile.txtCmdline.Text().find(" -Include \"\" -Include \"\" "),
              std::string::npos);

    const auto before = runtime.files;
    nextDialog<List>([&](List& list) {
        for (int i = 2; i < core::mostIncludes; ++i) {
            typeFolder("f", adding);
            list.btnAdd.click();
        }
        EXPECT_EQ(boxes(), std::vector<std::string>{});
        list.btnAdd.click();
        EXPECT_EQ(boxes(),
                  std::vector<std::string>{"0 The search list is full. It can hold 20 folders."});
        list.pressCancel();
    });
    form.compile.btnModifyIncludes.click();
    EXPECT_EQ(folders().size(), 2u);
    EXPECT_EQ(runtime.files.at(ini).text, before.at(ini).text);
}

TEST_F(Dialogs, TheFolderDialogOpensOnTheFolderThatIsEdited) {
    runtime.tree = {{"c:\\", {"nwb", "Games"}}, {"c:\\nwb", {"b", "A"}}, {"c:\\nwb\\A", {}},
                    {"c:\\Games", {}},          {"d:\\", {"lib"}},       {"d:\\lib", {}}};
    const struct {
        std::string folder, path, drive, text;
        std::vector<std::string> boxes;
    } cases[] = {
        {"", "c:\\nwb", "c:", "", {}},
        {"games\\lib", "c:\\nwb", "c:", "games\\lib", {}},
        {"c:\\Games", "c:\\Games", "c:", "c:\\Games", {}},
        {"D:\\lib", "D:\\lib", "d:", "D:\\lib", {}},
        {"d:\\nosuch", "c:\\", "c:", "c:\\", {"0 Folder d:\\nosuch not found."}},
        {"e:\\x", "c:\\", "c:", "c:\\", {"0 Folder e:\\x not found."}},
    };
    runtime.tree["D:\\lib"] = {};
    state.IncludeFolders = {"entry"};
    form.tbsOptions.pick(2);
    for (const auto& c : cases) {
        state.IncludeFolders[0] = c.folder.empty() ? "entry" : c.folder;
        nextDialog<dialogs::frmIncludeList>([&](dialogs::frmIncludeList& list) {
            nextDialog<dialogs::frmIncludeAdd>([&](dialogs::frmIncludeAdd& add) {
                EXPECT_EQ(add.Dir1.Path(), c.path);
                EXPECT_EQ(add.Drive1.Drive(), c.drive);
                EXPECT_EQ(add.txtFolder.Text(), c.text);
                EXPECT_EQ(boxes(), c.boxes) << c.folder;
            });
            list.List1.pick(0);
            (c.folder.empty() ? list.btnAdd : list.btnChange).click();
        });
        form.compile.btnModifyIncludes.click();
    }

    nextDialog<dialogs::frmIncludeList>([&](dialogs::frmIncludeList& list) {
        nextDialog<dialogs::frmIncludeAdd>([&](dialogs::frmIncludeAdd& add) {
            std::string names;
            for (const auto& row : add.Dir1.rows()) {
                names += std::string(row.depth, '>') + row.name + " ";
            }
            EXPECT_EQ(names, "c:\\ >nwb >>A >>b ");
            add.Dir1.choose(2);
            EXPECT_EQ(add.txtFolder.Text(), "c:\\nwb\\A");
            add.Drive1.pick(2);
            EXPECT_EQ(boxes(), std::vector<std::string>{"48 Cannot open e:\\"});
            EXPECT_EQ(add.Drive1.Drive() + add.Dir1.Path(), "c:c:\\nwb\\A");
            add.Drive1.pick(1);
            EXPECT_EQ(add.txtFolder.Text(), "d:\\");
        });
        list.btnAdd.click();
    });
    form.compile.btnModifyIncludes.click();

    runtime.tree.erase("c:\\");
    state.IncludeFolders[0] = "d:\\nosuch";
    nextDialog<dialogs::frmIncludeList>([&](dialogs::frmIncludeList& list) {
        list.List1.pick(0);
        list.btnChange.click();
    });
    form.compile.btnModifyIncludes.click();
    const auto told = boxes();
    EXPECT_EQ(std::count(told.begin(), told.end(), "48 Cannot open c:\\"), 1);
}

TEST_F(Dialogs, HelpOpensEachDocumentInItsViewer) {
    state.ManualHtmlPath = "m.html";
    state.ManualPdfPath = "m.pdf";
    state.TutorialPath = "t.htm";
    form.help.fitToPaths();
    auto& help = form.help;
    const struct {
        forms::MenuItem& item;
        std::string viewer, document;
    } entries[] = {{help.mnuHelpStart, "b.exe", "c:\\nwb\\GettingStarted.htm"},
                   {help.mnuHelpContents, "b.exe", "c:\\nwb\\default.htm"},
                   {help.mnuHelpTutorial, "b.exe", "t.htm"},
                   {help.mnuHelpManual, "b.exe", "m.html"},
                   {help.mnuHelpManPDF, "a.exe", "m.pdf"},
                   {help.mnuHelpExample, "b.exe", "c:\\nwb\\examples.htm"},
                   {help.mnuHelpLibrary, "b.exe", "c:\\nwb\\UsingStd-iLibraryContents.htm"},
                   {help.mnuHelpPFE, "b.exe", "c:\\nwb\\SettingUpPFEContents.htm"},
                   {help.mnuHelpBeta, "b.exe", "c:\\nwb\\credits.htm"}};
    for (const auto& entry : entries) {
        state.BrowserPath = state.AcrobatPath = "";
        entry.item.click();
        const std::string name =
            entry.viewer == "b.exe" ? "Web Browser program " : "Acrobat Reader program ";
        EXPECT_EQ(boxes(), std::vector<std::string>{
                               "0 " + name +
                               " not found. Please correct program location in Settings menu."});
        state.BrowserPath = "b.exe";
        state.AcrobatPath = "a.exe";
        runtime.files[entry.viewer];
        runtime.shells.clear();
        entry.item.click();
        EXPECT_EQ(runtime.shells, std::vector<std::string>{"1 \"" + entry.viewer + "\" \"" +
                                                           entry.document + "\""});
    }
    state.TutorialPath.clear();
    help.fitToPaths();
    EXPECT_FALSE(help.mnuHelpTutorial.usable());
}

TEST_F(Dialogs, TheAboutBoxStartsSystemInformationWhereTheRegistryLeads) {
    const std::string path = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
    const std::string location = "SOFTWARE\\Microsoft\\Shared Tools Location";
    const auto press = [&]() -> std::string {
        nextDialog<docs::frmAbout>([](docs::frmAbout& about) {
            EXPECT_EQ(about.lblVersion.Caption(), "Version 1.0.0");
            EXPECT_EQ(about.lblTitle.Caption(), "The Norvane Workbench");
            about.cmdSysInfo.click();
            EXPECT_TRUE(about.pressCancel() && about.unloaded());
        });
        runtime.shells.clear();
        form.help.mnuHelpAbout.click();
        EXPECT_EQ(runtime.keysOpen, 0);
        const auto told = boxes();
        return runtime.shells.empty() ? told.at(0) : runtime.shells[0];
    };
    const std::string unavailable = "0 System Information Is Unavailable At This Time";
    EXPECT_EQ(press(), unavailable);
    runtime.registry[location]["MSINFO"] = {1, std::string("d:\\tools\0junk", 13)};
    EXPECT_EQ(press(), unavailable);
    runtime.files["d:\\tools\\MSINFO32.EXE"];
    EXPECT_EQ(press(), "1 d:\\tools\\MSINFO32.EXE");
    runtime.registry[path]["PATH"] = {1, "c:\\info.exe"};
    EXPECT_EQ(press(), "1 c:\\info.exe");
    runtime.registry[path]["PATH"] = {3, "c:\\info.exe"};
    EXPECT_EQ(press(), unavailable) << "the second key is not tried";

    runtime.registry[path]["N"] = {4, std::string("\x05\x01\x00\x00", 4)};
    std::string value = "before";
    EXPECT_TRUE(docs::GetKeyValue(runtime, 0x80000002, path, "N", value));
    EXPECT_EQ(value, "&h15");
    EXPECT_FALSE(docs::GetKeyValue(runtime, 0x80000002, path, "nosuch", value));
    EXPECT_EQ(value, "");
}

}  // namespace
