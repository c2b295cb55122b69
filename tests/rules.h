#pragma once

#include <algorithm>
#include <array>

#include "fakes.h"

/// What must hold for the console after every user action, as seen by the user.
namespace rules {

using forms::Control;

/// Returns what a control puts on its tool's command line.
inline std::string when(bool on, const char* option) {
    return on ? option : "";
}

/// Expects a command text to have these options before `end`, and no others but the search list;
/// and a line for the file's drive, one for its folder, and `lines` more.
inline void expectCommand(const std::string& text, const std::string& fileText, int lines,
                          const std::string& options, const std::string& end, int folders = 0) {
    const auto count = [](const std::string& line) {
        static const std::regex option(" [-<]");
        return std::distance(std::sregex_iterator(line.begin(), line.end(), option), {});
    };
    ASSERT_NE(text.find(options + end), std::string::npos) << text << options + end;
    ASSERT_EQ(count(text), count(options + end) + folders) << text << options + end;
    const bool drive = fileText.find(':') == 1;
    const bool folder = fileText.find('\\') != std::string::npos;
    ASSERT_EQ(std::ranges::count(text, '\n'), drive + folder + lines) << text;
}

inline void expectPlay(tools::PlayPanel& panel) {
    const bool replay = panel.chkPlayback.Value;
    for (const auto* group : {&panel.optRecord, &panel.optPlayer}) {
        const auto& [one, two, three] = std::tie((*group)(0), (*group)(1), (*group)(2));
        ASSERT_EQ(one.Value + two.Value + three.Value, 1);
        ASSERT_EQ(one.isTabStop() + two.isTabStop() + three.isTabStop(), 1);
    }
    for (const Control* control : panel.labLogfile.parent()->children())
        ASSERT_EQ(control->Enabled, replay || control == &panel.chkPlayback);
    expectCommand(panel.txtCmdlineP.Text, panel.txtFnameP.Text, 1,
                  when(panel.chkKbug.Value, " -d") + when(panel.chkTrace.Value, " -t") +
                      when(panel.chkSingle.Value, " -s") + when(!panel.optRecord(0).Value, " -L") +
                      (replay ? " < " + panel.txtLogfile.Text() : ""),
                  "\r\n");
}

inline void expectCompile(tools::CompilePanel& panel) {
    expectCommand(panel.txtCmdline.Text, panel.txtFname.Text, 3,
                  when(panel.optFormat(2).Value, " -Pack") + when(panel.chkDebug.Value, " -Debug") +
                      when(panel.chkFullsource.Value, " -Full") +
                      when(panel.optCharset(1).Value, " -CharSet ISO") +
                      when(panel.optCharset(2).Value, " -CharSet Mac") + " -List -Height 0\r\n",
                  when(panel.optEditor(3).Value, "notepad "), panel.lstInclude.ListCount());
}

inline void expectSpelling(tools::SpellingPanel& panel, const core::AppState& state) {
    const bool named = panel.chkOutputfile.Value;
    const bool opened = panel.chkAutoOpen.Value;
    const std::string output = named ? panel.txtFnameO.Text() : "";
    std::string options = when(panel.chkOverwrite.Value, " -OO");
    for (const int i : {0, 1, 2})
        options += when(panel.optCodes(i).Value, std::array{" -FF", " -FD", " -FR"}[i]);
    for (const int i : {0, 1, 2, 3})
        options += when(panel.optParam(i).Value, std::array{" -PC", " -PQ", " -PD", " -PR"}[i]);
    options += when(panel.chkLineNum.Value, " -NL") + when(named, "  -OF") + output;
    expectCommand(panel.txtCmdlineS.Text, panel.txtFnameS.Text, 1 + opened, options,
                  opened ? "\r\n\"" + state.WordProcessorPath + "\"  " + output : "\r\n");
    for (const Control* own : std::initializer_list<const Control*>{
             &panel.lblDefaultFilename, &panel.txtFnameO, &panel.btnBrowseO})
        ASSERT_EQ(own->Visible, named) << own->name;
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
    const auto texts = [&form] {
        return std::array{form.compile.txtCmdline.Text(), form.play.txtCmdlineP.Text(),
                          form.spelling.txtCmdlineS.Text()};
    };
    const auto shown = texts();
    form.play.UpdateCmdlineP();
    form.spelling.UpdateCmdlineS();
    form.compile.UpdateCmdline();  // last, so that the stem is not the Spelling panel's
    ASSERT_TRUE(pathsChanged || shown == texts());
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
