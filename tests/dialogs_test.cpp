#include <sstream>

#include "rules.h"

using namespace fakes;

namespace {

struct Dialogs : testing::Test, Desk {
    console::frmConsole& form = open();
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

TEST_F(Dialogs, EveryFormIsWordedAndLaidOutAsAgreed) {
    std::string lines;
    for (forms::Form* shown : everyForm(application, program))
        lines += wording(*shown);
    expectAgreed("forms.txt", lines);
}

TEST_F(Dialogs, TheAboutBoxStartsSystemInformationWhereTheRegistryLeads) {
    auto& path = runtime.registry[R"(SOFTWARE\Microsoft\Shared Tools\MSINFO)"];
    auto& folder = runtime.registry[R"(SOFTWARE\Microsoft\Shared Tools Location)"];
    const auto expectStarted = [&](const std::string& program) {
        toolkit.user = [](forms::Form& shown) {
            auto& about = dynamic_cast<docs::frmAbout&>(shown);
            EXPECT_EQ(about.lblVersion.Caption(), "Version " NWBW_VERSION);
            about.cmdSysInfo.click();
            EXPECT_TRUE(about.pressCancel() && about.unloaded());
        };
        form.help.mnuHelpAbout.click();
        EXPECT_EQ(runtime.keysOpen, 0);
        const bool none = program.empty();
        EXPECT_EQ(runtime.newBoxes(),
                  std::vector<FakeRuntime::Box>(
                      none, {"System Information Is Unavailable At This Time"}));
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
