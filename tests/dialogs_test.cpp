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

}  // namespace
