#include "docs/help_menu.h"

#include "core/text.h"
#include "docs/frm_about.h"
#include "tools/checks.h"

namespace docs {

HelpMenu::HelpMenu(core::Program& program, forms::Container& bar) : program_(program), bar_(bar) {}

void HelpMenu::fitToPaths() {
    const core::AppState& state = program_.state;
    mnuHelpManual.Enabled = !state.ManualHtmlPath.empty();
    mnuHelpManPDF.Enabled = !state.ManualPdfPath.empty();
    mnuHelpTutorial.Enabled = !state.TutorialPath.empty();
}

void HelpMenu::mnuHelpManPDF_Click() {
    view("Acrobat Reader program ", program_.state.AcrobatPath, program_.state.ManualPdfPath);
}

void HelpMenu::mnuHelpAbout_Click() {
    bar_.form().application().load<frmAbout>(program_).ShowModal(bar_.form());
}

void HelpMenu::openPage(const std::string& page) {
    browse(program_.runtime.AppPath() + page);
}

void HelpMenu::browse(const std::string& document) {
    view("Web Browser program ", program_.state.BrowserPath, document);
}

/// Opens the document in the viewer, which has to report a missing document itself.
void HelpMenu::view(const char* viewerName, const std::string& viewer,
                    const std::string& document) {
    if (!tools::requireProgram(program_.runtime, viewerName, viewer,
                               " not found. Please correct program location in Settings menu.")) {
        return;
    }
    program_.runtime.rtcShell(core::quoted(viewer) + " " + core::quoted(document),
                              core::Runtime::normalFocus);
}

}  // namespace docs
