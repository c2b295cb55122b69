#include <algorithm>
#include <sstream>

#include "forms/focus.h"
#include "rules.h"

using namespace fakes;
using core::AppState;

namespace {

using Boxes = std::vector<FakeRuntime::Box>;

struct Dialogs : testing::Test, Desk {
    console::frmConsole& form = open();

    template <typename Kind>
    void nextDialog(const std::function<void(Kind&)>& user) {
        toolkit.user = [user](forms::Form& shown) { user(dynamic_cast<Kind&>(shown)); };
    }
};

/// Returns the form's lines of forms.txt: each control's place in twips, caption, tooltip,
/// accessible name, font, and "-" if it cannot be used. A panel that is not in use lies outside its
/// form.
std::string wording(forms::Form& form) {
    std::ostringstream lines;
    lines << form.name << '|' << form.Caption() << "|\n";
    for (const forms::Control* control : form.allControls()) {
        lines << control->fullName() << '|';
        if (control->Width > 0)
            lines << control->Left << ' ' << control->Top << ' ' << control->Width << ' '
                  << control->Height;
        lines << '|' << (control->name == "lblVersion" ? "" : control->Caption()) << '|'
              << control->tooltip << '|' << control->accessibleName() << '|' << control->font.family
              << (control->font.italic ? " italic" : "");
        if (control->font.points > 0) lines << ' ' << control->font.points;
        lines << (control->Enabled && control->Visible ? "|\n" : "|-\n");
        if (const auto* tabs = dynamic_cast<const forms::TabStrip*>(control))
            for (const auto& tab : tabs->Tabs)
                lines << "tab|" << tab.caption << '|' << tab.tooltip << "|\n";
    }
    return lines.str() + "\n";
}

/// Presses each usable Browse button of the form. Returns their lines of forms.txt: the box that
/// gets the name, and the title and filter of the file dialog.
std::string browse(forms::Form& form, FakeToolkit& toolkit) {
    const std::vector<forms::Control*> controls = form.allControls();
    for (forms::Control* control : controls)
        if (auto* box = control->pathBox()) box->Text = box->fullName();
    std::string lines;
    for (forms::Control* button : controls) {
        if (!button->name.starts_with("btnBrowse") || !button->usable()) continue;
        for (const std::string& chosen : {std::string(), "d:\\" + button->fullName()}) {
            toolkit.fileChosen = chosen;
            button->click();
        }
        for (forms::Control* control : controls) {
            const auto* box = control->pathBox();
            if (!box || box->Text() != toolkit.fileChosen) continue;
            EXPECT_EQ(toolkit.fileAsked.name, box->fullName());
            lines += button->fullName() + "|" + box->fullName() + "|" + toolkit.fileAsked.title +
                     "|" + toolkit.fileAsked.filter + "|\n";
        }
    }
    return lines;
}

TEST_F(Dialogs, EveryFormIsWordedAndLaidOutAsAgreed) {
    std::string lines;
    const std::vector<forms::Form*> all = everyForm(application, program);
    for (forms::Form* shown : all)
        lines += wording(*shown);
    form.play.chkPlayback.Value = 1;
    form.spelling.chkOutputfile.Value = 1;
    for (int tab = 1; tab <= 4; ++tab) {
        form.tbsOptions.pick(tab);
        lines += browse(form, toolkit);
    }
    lines += browse(*all[3], toolkit) + browse(*all[4], toolkit);
    expectAgreed("forms.txt", lines);
}

TEST_F(Dialogs, ALocationsDialogStoresItsPathsOnlyOnOk) {
    const struct {
        forms::MenuItem& item;
        std::string order;  // of the boxes, by index
        std::vector<std::string AppState::*> fields;
    } rows[] = {{form.mnuOptionsPrograms,
                 "03415876",
                 {&AppState::CompilerPath, &AppState::GuiPlayerPath, &AppState::ConsolePlayerPath,
                  &AppState::DosPlayerPath, &AppState::ExtractorPath, &AppState::ManualHtmlPath,
                  &AppState::ManualPdfPath, &AppState::TutorialPath}},
                {form.mnuOptionsOther,
                 "2901",
                 {&AppState::EditorPath, &AppState::WordProcessorPath, &AppState::BrowserPath,
                  &AppState::AcrobatPath}}};
    for (const auto& row : rows) {
        for (const bool kept : {true, false}) {
            runtime.files = {{ini, {"before"}}};
            nextDialog<dialogs::LocationsDialog>([&](auto& shown) {
                for (std::size_t i = 0; i < row.fields.size(); ++i) {
                    auto& box = shown.txtFname(row.order[i] - '0');
                    EXPECT_EQ(box.Text(), state.*row.fields[i]);
                    box.type(i ? (kept ? "kept" : "lost") + row.order.substr(i) : "");
                }
                EXPECT_TRUE(kept ? shown.pressDefault() : shown.pressCancel());
                EXPECT_TRUE(shown.unloaded());
            });
            row.item.click();
            for (std::size_t i = 0; i < row.fields.size(); ++i)
                EXPECT_EQ(state.*row.fields[i], i ? "kept" + row.order.substr(i) : "");
            EXPECT_EQ(runtime.files[ini].text != "before", kept);
        }
    }
}

using Names = std::vector<std::string>;

/// The include list, opened from the Compile panel on the folders given.
struct IncludeList : Dialogs {
    using List = dialogs::frmIncludeList;
    using Add = dialogs::frmIncludeAdd;

    IncludeList() {
        runtime.tree = {{R"(c:\)", {"nwb", "Games"}}, {R"(c:\nwb)", {"B", "a"}},
                        {R"(c:\nwb\a)", {}},          {R"(c:\Games)", {}},
                        {R"(d:\)", {"lib"}},          {R"(D:\lib)", {}},
                        {R"(z:\)", {"lib"}},          {R"(z:\lib)", {}}};
    }
    void edit(const Names& folders, const std::function<void(List&)>& user) {
        form.tbsOptions.pick(2);
        std::ranges::copy(folders, state.IncludeFolders.begin());
        form.compile.lstInclude.AddItem("before");
        nextDialog<List>(user);
        form.compile.btnModifyIncludes.click();
    }
    /// Presses Add or Edit and enters the folder.
    void enter(forms::Button& button, const std::string& folder) {
        nextDialog<Add>([=, &button](Add& shown) {
            EXPECT_EQ(shown.Caption() == "Edit folder name", button.name == "btnChange");
            shown.txtFolder.type(folder);
            EXPECT_TRUE(shown.pressDefault() && shown.unloaded());
        });
        button.click();
    }
    /// Opens the folder dialog on the folder to edit, or to add one if it is empty.
    void editFolder(const std::string& folder, const std::function<void(Add&)>& user) {
        edit({folder.empty() ? "entry" : folder}, [&](List& list) {
            nextDialog<Add>(user);
            list.List1.pick(0);
            (folder.empty() ? list.btnAdd : list.btnChange).click();
            EXPECT_EQ(list.List1.ListCount(), 1);
        });
    }
};

TEST_F(IncludeList, AnEditedCopyIsClosedIntoTheState) {
    edit({"a", "b", "c", "d", "e", "f"}, [this](List& list) {
        const std::tuple<int, forms::Button&, int> moves[] = {
            {0, list.btnUp, 0}, {5, list.btnDown, 5}, {1, list.btnUp, 0}, {4, list.btnDown, 5}};
        for (const auto& [index, button, to] : moves) {
            list.List1.pick(index);
            button.click();
            EXPECT_EQ(list.List1.ListIndex, to) << index << button.name;
        }
        for (const int index : {5, 2, 3}) {
            list.List1.pick(index);
            list.btnDelete.click();
            EXPECT_FALSE(list.btnChange.Enabled || list.btnDelete.Enabled || list.btnUp.Enabled);
            EXPECT_EQ(std::exchange(toolkit.focused, ""), "List1");
            const auto isButton = [](auto& any) {
                return dynamic_cast<const forms::Button*>(&any);
            };
            EXPECT_EQ(forms::focusAfter(list.btnDelete, isButton), &list.btnCancel);
        }
        enter(list.btnAdd, "c:\\n w");
        EXPECT_EQ(list.List1.ListIndex, 3);
        list.List1.pick(1);
        enter(list.btnChange, "changed");
        enter(list.btnAdd, "  ");
        EXPECT_TRUE(list.pressDefault() && list.unloaded());
    });
    EXPECT_EQ((Names(state.IncludeFolders.begin(), state.IncludeFolders.begin() + 6)),
              (Names{"b", "changed", "d", "c:\\n w", "", "f"}))
        << "only the entry after the last is emptied";
    EXPECT_TRUE(runtime.files[ini].text.ends_with(lines("|b|changed|d|c:\\n w")));
    rules::expectAll(form, state, false);
}

TEST_F(IncludeList, AFullListTakesNoMoreAndCancelKeepsTheOld) {
    edit({}, [this](List& list) {
        for (int i = 0; i < core::maxIncludes; ++i)
            enter(list.btnAdd, "f");
        list.btnAdd.click();
        EXPECT_TRUE(runtime.told("The search list is full. It can hold 20 folders."));
        list.pressCancel();
    });
    EXPECT_EQ(form.compile.lstInclude.List(0), "before");
    EXPECT_TRUE(runtime.files.empty());
}

TEST_F(IncludeList, TheFolderDialogOpensOnTheFolderThatIsEdited) {
    const std::string nwb = runtime.current;
    // Coming back from a message activates the dialog no second time.
    runtime.whileBoxIsOpen = [&] {
        if (runtime.boxes.size() < 9) application.Forms(application.Count() - 1).activate();
    };
    const struct {
        std::string current, folder, path, text = path;
        std::size_t told = 0;  // how often the box for a missing folder appears
    } cases[] = {
        {nwb, "", nwb, ""},
        {R"(\\host\share)", "", R"(c:\)", ""},
        {nwb, R"(games\lib)", nwb, R"(games\lib)"},
        {nwb, "c:/Games/", R"(c:\Games)"},
        {nwb, R"(D:\lib)", R"(D:\lib)"},
        {nwb, "z://", R"(z:\)"},
        {nwb, "c:a", R"(c:\nwb\a)"},
        {nwb, R"(z:.\lib\..\\lib)", R"(z:\lib)"},
        {nwb, R"(c:\..\Games)", R"(c:\Games)"},
        {nwb, R"(e:\x)", R"(c:\)", R"(c:\)", 1},
        {R"(c:\)", R"(d:\nosuch)", R"(d:\)", R"(d:\)", 1},
        {R"(c:\)", R"(x:\y)", R"(c:\)", R"(x:\y)", 3},
    };
    for (const auto& c : cases) {
        runtime.current = c.current;
        editFolder(c.folder, [&](Add& add) {
            SCOPED_TRACE(c.folder);
            EXPECT_EQ(add.Dir1.Path(), c.path);
            EXPECT_EQ(add.Drive1.Drive(), std::string({c.path[0] == 'D' ? 'd' : c.path[0], ':'}));
            EXPECT_EQ(add.txtFolder.Text(), c.text);
            EXPECT_EQ(runtime.newBoxes(), Boxes(c.told, {"Folder " + c.folder + " not found."}));
            EXPECT_TRUE(add.pressCancel() && add.unloaded());
        });
    }
}

TEST_F(IncludeList, TheFolderDialogShowsTheTreeAndFollowsTheUser) {
    runtime.driveNames.back() = "q:";  // read anew
    editFolder("", [&](Add& add) {
        Names names;
        for (const auto& row : add.Dir1.rows())
            names.push_back(std::string(row.depth, '>') + row.name);
        EXPECT_EQ(names, (Names{R"(c:\)", ">nwb", ">>a", ">>B"}));
        for (const auto& [row, path] :
             {std::pair(2, R"(c:\nwb\a)"), {1, R"(c:\nwb)"}, {2, R"(c:\nwb\a)"}}) {
            add.Dir1.choose(row);
            EXPECT_EQ(add.txtFolder.Text(), path);
            EXPECT_EQ(add.Dir1.rows()[2].name, "a");
        }
        EXPECT_EQ(add.Drive1.drives().back(), "q:");
        add.Drive1.pick(2);
        EXPECT_EQ(runtime.newBoxes(), (Boxes{{R"(Cannot open e:\)", 48}}));
        EXPECT_EQ(add.Drive1.Drive() + add.Dir1.Path(), R"(c:c:\nwb\a)");
        for (const int drive : {1, 0}) {
            add.Drive1.pick(drive);
            EXPECT_EQ(add.txtFolder.Text(), runtime.driveNames[drive] + '\\');
        }
    });
    runtime.tree.erase(R"(c:\)");
    editFolder(R"(x:\y)", [](Add&) {});
    EXPECT_EQ(std::ranges::count(runtime.boxes, FakeRuntime::Box{R"(Cannot open c:\)", 48}), 1);
    runtime.current = R"(e:\)";
    editFolder("", [](Add& add) { EXPECT_EQ(add.Dir1.rows().size(), 1u) << "to go up from"; });
}

TEST_F(Dialogs, TheAboutBoxStartsSystemInformationWhereTheRegistryLeads) {
    auto& path = runtime.registry[R"(SOFTWARE\Microsoft\Shared Tools\MSINFO)"];
    auto& folder = runtime.registry[R"(SOFTWARE\Microsoft\Shared Tools Location)"];
    const auto expectStarted = [&](const std::string& program) {
        nextDialog<docs::frmAbout>([](docs::frmAbout& about) {
            EXPECT_EQ(about.lblVersion.Caption(), "Version " NWBW_VERSION);
            about.cmdSysInfo.click();
            EXPECT_TRUE(about.pressCancel() && about.unloaded());
        });
        form.help.mnuHelpAbout.click();
        EXPECT_EQ(runtime.keysOpen, 0);
        const bool none = program.empty();
        EXPECT_EQ(runtime.newBoxes(),
                  Boxes(none, {"System Information Is Unavailable At This Time"}));
        EXPECT_EQ(std::exchange(runtime.shells, {}),
                  std::vector(none ? 0 : 1, FakeRuntime::Shell{1, program}));
    };
    expectStarted("");
    folder["MSINFO"] = {1, std::string("d:\\tools\0junk", 13)};
    expectStarted("");
    runtime.files[R"(d:\tools\MSINFO32.EXE)"];
    expectStarted(R"(d:\tools\MSINFO32.EXE)");
    path["PATH"] = {1, R"(c:\info.exe)"};
    expectStarted(R"(c:\info.exe)");
    runtime.failAt = runtime.calls + 1;
    expectStarted("");  // a failed start shows the same message

    path["PATH"] = {4, "\x10\xef\xcd\xab\x89\x67\x45\x23\x01" + std::string(1, '\0') + "\x1"};
    expectStarted("&h123456789ABCDEF10");
}

}  // namespace
