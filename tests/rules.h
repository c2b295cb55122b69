#pragma once

#include <array>

#include "fakes.h"

/// What must hold for the console after every user action, as seen by the user.
namespace rules {

using forms::Control;

inline std::size_t driveSize(const std::string& fileText) {
    return fileText.size() > 1 && fileText[1] == ':' ? 2 : 0;
}

inline std::string lead(const std::string& fileText) {
    const std::size_t drive = driveSize(fileText);
    const std::size_t file = fileText.rfind('\\') + 1;  // 0 without a folder
    return (drive ? fileText.substr(0, drive) + "\r\n" : "") +
           (file > drive ? "cd \"" + fileText.substr(drive, file - drive) + "\"\r\n" : "");
}

/// The stem of a name that needs no short form.
inline std::string stem(const std::string& fileText) {
    std::string name = fileText.substr(std::max(driveSize(fileText), fileText.rfind('\\') + 1));
    name = name.substr(0, name.rfind('.'));
    return name.size() > 8 ? "" : name;
}

inline void expectPlay(tools::PlayPanel& panel, const core::AppState& state) {
    const bool replay = panel.chkPlayback.Value;
    ASSERT_EQ(panel.optRecord(0).Value + panel.optRecord(1).Value + panel.optRecord(2).Value, 1);
    ASSERT_EQ(panel.optPlayer(0).Value + panel.optPlayer(1).Value + panel.optPlayer(2).Value, 1);
    ASSERT_EQ(panel.optPlayer(0).isTabStop() + panel.optPlayer(1).isTabStop() +
                  panel.optPlayer(2).isTabStop(),
              1);
    for (const Control* control : panel.labLogfile.parent()->children())
        ASSERT_EQ(control->Enabled, replay || control == &panel.chkPlayback);
    const std::string paths[] = {state.GuiPlayerPath, state.ConsolePlayerPath, state.DosPlayerPath};
    ASSERT_EQ(panel.txtCmdlineP.Text(),
              lead(panel.txtFnameP.Text) + "\"" + paths[panel.player()] + "\" " +
                  stem(panel.txtFnameP.Text) + (panel.chkKbug.Value ? " -d" : "") +
                  (panel.chkTrace.Value ? " -t" : "") + (panel.chkSingle.Value ? " -s" : "") +
                  (panel.optRecord(0).Value ? "" : " -L") +
                  (replay ? " < " + panel.txtLogfile.Text() : "") + "\r\n");
}

inline void expectCompile(tools::CompilePanel& panel, const core::AppState& state) {
    std::string tool = "\"" + state.CompilerPath + "\"";
    for (int i = 0; i < panel.lstInclude.ListCount(); ++i)
        tool += " -Include \"\"";
    const std::string name = stem(panel.txtFname.Text);
    tool += " " + name + (panel.optFormat(2).Value ? " -Pack" : "") +
            (panel.chkDebug.Value ? " -Debug" : "") + (panel.chkFullsource.Value ? " -Full" : "") +
            (panel.optCharset(1).Value   ? " -CharSet ISO"
             : panel.optCharset(2).Value ? " -CharSet Mac"
                                         : "") +
            " -List -Height 0";
    const std::string text = panel.txtCmdline.Text;
    const std::string start = lead(panel.txtFname.Text) + tool + "\r\n";
    ASSERT_TRUE(text.starts_with(start)) << text << start;
    const std::string viewer = text.substr(start.size());
    ASSERT_EQ(viewer.starts_with("notepad "), panel.optEditor(3).Value);
    ASSERT_TRUE(viewer.ends_with(" " + name + ".lis\r\nexit\r\n")) << text;
}

inline void expectSpelling(tools::SpellingPanel& panel, const core::AppState& state) {
    const char* codes = panel.optCodes(0).Value   ? " -FF"
                        : panel.optCodes(1).Value ? " -FD"
                                                  : " -FR";
    const char* param = panel.optParam(0).Value   ? " -PC"
                        : panel.optParam(1).Value ? " -PQ"
                        : panel.optParam(2).Value ? " -PD"
                                                  : " -PR";
    const bool named = panel.chkOutputfile.Value;
    const std::string name = stem(panel.txtFnameS.Text);
    const std::string output = named ? panel.txtFnameO.Text() : name + ".txt";
    std::string text = lead(panel.txtFnameS.Text) + "\"" + state.ExtractorPath + "\" " + name +
                       (panel.chkOverwrite.Value ? " -OO" : "") + codes + param +
                       (panel.chkLineNum.Value ? " -NL" : "") + (named ? "  -OF" + output : "") +
                       "\r\n";
    if (panel.chkAutoOpen.Value) text += "\"" + state.WordProcessorPath + "\"  " + output + "\r\n";
    ASSERT_EQ(panel.txtCmdlineS.Text(), text);
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

/// Checks every rule above. Changed paths reach the command texts only when these are rebuilt.
inline void expectAll(console::frmConsole& form, const core::AppState& state, bool pathsChanged) {
    if (pathsChanged) {
        form.compile.UpdateCmdline();
        form.play.UpdateCmdlineP();
        form.spelling.UpdateCmdlineS();
    }
    expectConsole(form);
    expectCompile(form.compile, state);
    expectPlay(form.play, state);
    expectSpelling(form.spelling, state);
    const int folders = form.compile.lstInclude.ListCount();
    ASSERT_LE(folders, core::maxIncludes);
    for (int i = 0; i < folders; ++i)
        ASSERT_EQ(form.compile.lstInclude.List(i), state.IncludeFolders[i]);
    ASSERT_EQ(state.IncludeFolders[folders], "");
}

}  // namespace rules
