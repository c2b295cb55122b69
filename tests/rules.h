#pragma once

#include <algorithm>
#include <array>

#include "fakes.h"

/// What must hold for the console after every user action, as seen by the user.
namespace rules {

using forms::Control;

/// What a control puts on its tool's command line while it is on.
struct Option {
    int on;
    std::string text;
};

/// Expects a command text to have the options that are on, in this order and before `end`, and no
/// others but the search list; and a line for the file's drive, one for its folder, and `lines`
/// more.
inline void expectCommand(const std::string& text, const std::string& fileText, int lines,
                          const std::vector<Option>& options, const std::string& end,
                          int folders = 0) {
    std::string on;
    for (const Option& option : options)
        if (option.on) on += option.text;
    const auto count = [](const std::string& line) {
        int found = 0;
        for (std::size_t i = 1; i < line.size(); ++i)
            found += line[i - 1] == ' ' && (line[i] == '-' || line[i] == '<');
        return found;
    };
    ASSERT_NE(text.find(on + end), std::string::npos) << text << on + end;
    ASSERT_EQ(count(text), count(on + end) + folders) << text << on + end;
    const bool drive = fileText.find(':') == 1;
    const bool folder = fileText.find('\\') != std::string::npos;
    ASSERT_EQ(std::ranges::count(text, '\n'), drive + folder + lines) << text;
}

inline void expectPlay(tools::PlayPanel& panel) {
    const bool replay = panel.chkPlayback.Value;
    ASSERT_EQ(panel.optRecord(0).Value + panel.optRecord(1).Value + panel.optRecord(2).Value, 1);
    ASSERT_EQ(panel.optPlayer(0).Value + panel.optPlayer(1).Value + panel.optPlayer(2).Value, 1);
    ASSERT_EQ(panel.optPlayer(0).isTabStop() + panel.optPlayer(1).isTabStop() +
                  panel.optPlayer(2).isTabStop(),
              1);
    for (const Control* control : panel.labLogfile.parent()->children())
        ASSERT_EQ(control->Enabled, replay || control == &panel.chkPlayback);
    expectCommand(panel.txtCmdlineP.Text, panel.txtFnameP.Text, 1,
                  {{panel.chkKbug.Value, " -d"},
                   {panel.chkTrace.Value, " -t"},
                   {panel.chkSingle.Value, " -s"},
                   {!panel.optRecord(0).Value, " -L"},
                   {replay, " < " + panel.txtLogfile.Text()}},
                  "\r\n");
}

inline void expectCompile(tools::CompilePanel& panel) {
    expectCommand(panel.txtCmdline.Text, panel.txtFname.Text, 3,
                  {{panel.optFormat(2).Value, " -Pack"},
                   {panel.chkDebug.Value, " -Debug"},
                   {panel.chkFullsource.Value, " -Full"},
                   {panel.optCharset(1).Value, " -CharSet ISO"},
                   {panel.optCharset(2).Value, " -CharSet Mac"},
                   {true, " -List -Height 0\r\n"}},
                  panel.optEditor(3).Value ? "notepad " : "\"", panel.lstInclude.ListCount());
}

inline void expectSpelling(tools::SpellingPanel& panel, const core::AppState& state) {
    const bool named = panel.chkOutputfile.Value;
    const bool opened = panel.chkAutoOpen.Value;
    const std::string output = named ? panel.txtFnameO.Text() : "";
    expectCommand(panel.txtCmdlineS.Text, panel.txtFnameS.Text, 1 + opened,
                  {{panel.chkOverwrite.Value, " -OO"},
                   {panel.optCodes(0).Value, " -FF"},
                   {panel.optCodes(1).Value, " -FD"},
                   {panel.optCodes(2).Value, " -FR"},
                   {panel.optParam(0).Value, " -PC"},
                   {panel.optParam(1).Value, " -PQ"},
                   {panel.optParam(2).Value, " -PD"},
                   {panel.optParam(3).Value, " -PR"},
                   {panel.chkLineNum.Value, " -NL"},
                   {named, "  -OF" + output}},
                  opened ? "\r\n\"" + state.WordProcessorPath + "\"  " + output : "\r\n");
    ASSERT_EQ(panel.txtFnameO.Visible, named);
    ASSERT_EQ(panel.lblDefname.Visible, !named);
}

inline void expectConsole(console::frmConsole& form) {
    for (int i = 0; i < 4; ++i) {
        const bool inUse = i + 1 == form.tbsOptions.SelectedItem;
        ASSERT_EQ(form.picOptions(i).Enabled, inUse);
        ASSERT_EQ(form.picOptions(i).Left, inUse ? 210 : -20000);
    }
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
    std::vector<std::string> texts;
    for (const bool rebuilt : {false, true}) {
        if (rebuilt) {
            form.play.UpdateCmdlineP();
            form.spelling.UpdateCmdlineS();
            form.compile.UpdateCmdline();  // last, so that the stem is not the Spelling panel's
        }
        for (const auto* box :
             {&form.compile.txtCmdline, &form.play.txtCmdlineP, &form.spelling.txtCmdlineS})
            texts.push_back(box->Text);
    }
    for (int i = 0; i < 3 && !pathsChanged; ++i)
        ASSERT_EQ(texts[i], texts[i + 3]);
    expectConsole(form);
    expectCompile(form.compile);
    expectPlay(form.play);
    expectSpelling(form.spelling, state);
    const int folders = form.compile.lstInclude.ListCount();
    ASSERT_LE(folders, core::maxIncludes);
    for (int i = 0; i < folders; ++i)
        ASSERT_EQ(form.compile.lstInclude.List(i), state.IncludeFolders[i]);
    ASSERT_EQ(state.IncludeFolders[folders], "");
}

}  // namespace rules
