#pragma once

#include <algorithm>
#include <array>
#include <sstream>

#include "fakes.h"

/// What must hold for the console after every user action, as seen by the user.
namespace rules {

using forms::Control;

/// The options of the three commands in their order, each after the control that switches it on.
inline constexpr const char* options[] = {
    "optFormat(2)= -Pack|chkDebug= -Debug|chkFullsource= -Full|optCharset(1)= -CharSet ISO|"
    "optCharset(2)= -CharSet Mac|optEditor(3)=notepad ",
    "chkKbug= -d|chkTrace= -t|chkSingle= -s|optRecord(1)= -L|optRecord(2)= -L|chkPlayback= < ",
    "chkOverwrite= -OO|optCodes(0)= -FF|optCodes(1)= -FD|optCodes(2)= -FR|optParam(0)= -PC|"
    "optParam(1)= -PQ|optParam(2)= -PD|optParam(3)= -PR|chkLineNum= -NL|chkOutputfile=  -OF"};

inline std::array<std::string, 3> commandsOf(console::frmConsole& form) {
    return {form.compile.txtCmdline.Text, form.play.txtCmdlineP.Text,
            form.spelling.txtCmdlineS.Text};
}

/// Expects in each command text the options that are on, and no others but the compiler's own two
/// and its search list; and a line for the file's drive, one for its folder, and those of tools.
inline void expectCommands(console::frmConsole& form) {
    const auto texts = commandsOf(form);
    const std::string files[] = {form.compile.txtFname.Text, form.play.txtFnameP.Text,
                                 form.spelling.txtFnameS.Text};
    const int tools[] = {3, 1, 1 + form.spelling.chkAutoOpen.Value};
    const int others[] = {2 + form.compile.lstInclude.ListCount(), 0, 0};
    for (const int command : {0, 1, 2}) {
        const std::string& text = texts[command];
        std::istringstream rows(options[command]);
        int on = others[command];
        std::size_t at = 0;
        for (std::string name, option; std::getline(rows, name, '=');) {
            std::getline(rows, option, '|');
            Control* control = form.find(name);
            const auto* box = dynamic_cast<forms::CheckBox*>(control);
            if (box ? !box->Value : !control->option()->Value) continue;
            at = text.find(option, at);
            ASSERT_NE(at, std::string::npos) << text << option;
            on += option.starts_with(' ');
        }
        static const std::regex option(" [-<]");
        ASSERT_EQ(std::distance(std::sregex_iterator(text.begin(), text.end(), option), {}), on)
            << text;
        const bool drive = files[command].find(':', 1) == 1;
        const bool folder = files[command].find('\\') != std::string::npos;
        ASSERT_EQ(std::ranges::count(text, '\n'), drive + folder + tools[command]) << text;
    }
}

inline void expectPlay(tools::PlayPanel& panel) {
    const bool replay = panel.chkPlayback.Value;
    for (const Control* control : panel.labLogfile.parent()->children())
        ASSERT_EQ(control->Enabled, replay || control == &panel.chkPlayback);
}

inline void expectSpelling(tools::SpellingPanel& panel) {
    const bool named = panel.chkOutputfile.Value;
    for (const Control* own : std::initializer_list<const Control*>{
             &panel.lblDefname, &panel.lblDefaultFilename, &panel.txtFnameO, &panel.btnBrowseO})
        ASSERT_EQ(own->Visible, named != (own == &panel.lblDefname)) << own->name;
}

inline void expectConsole(console::frmConsole& form) {
    for (int i = 0; i < 4; ++i) {
        const bool inUse = i + 1 == form.tbsOptions.SelectedItem;
        ASSERT_EQ(form.picOptions(i).Enabled, inUse);
        ASSERT_EQ(form.picOptions(i).Left, inUse ? 210 : -20000);
    }
    std::map<const Control*, int> selected, tabStops;
    for (Control* control : form.allControls())
        if (const auto* option = control->option()) {
            selected[option->parent()] += option->Value;
            tabStops[option->parent()] += option->isTabStop();
        }
    for (const auto& [group, count] : selected)
        ASSERT_EQ(std::pair(count, tabStops[group]), std::pair(1, 1)) << group->name;
    for (const forms::CheckBox* box : {&form.edit.chkHideE, &form.compile.chkHideC,
                                       &form.play.chkHideP, &form.spelling.chkHideS}) {
        for (const Control* control : box->parent()->children()) {
            const bool option =
                dynamic_cast<const forms::Frame*>(control) || control->name == "chkLineNum";
            const bool command = control->name.find("Cmdline") != std::string::npos;
            ASSERT_EQ(control->Visible, option ? box->Value == 0 : !command) << control->name;
        }
    }
}

/// Checks every rule above, and that no command text was left behind by what it is made of. Only
/// changed paths reach it later.
inline void expectAll(console::frmConsole& form, const core::AppState& state, bool pathsChanged) {
    const auto shown = commandsOf(form);
    form.play.UpdateCmdlineP();
    form.spelling.UpdateCmdlineS();
    form.compile.UpdateCmdline();  // last, so that the stem is not the Spelling panel's
    ASSERT_TRUE(pathsChanged || shown == commandsOf(form));
    expectConsole(form);
    expectCommands(form);
    expectPlay(form.play);
    expectSpelling(form.spelling);
    const int folders = form.compile.lstInclude.ListCount();
    ASSERT_LE(folders, core::maxIncludes);
    for (int i = 0; i < folders; ++i)
        ASSERT_EQ(form.compile.lstInclude.List(i), state.IncludeFolders[i]);
    ASSERT_EQ(state.IncludeFolders[folders], "");
}

}  // namespace rules
