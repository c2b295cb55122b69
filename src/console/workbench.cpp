#include "console/workbench.h"

#include "console/frm_console.h"
#include "dialogs/frm_include_add.h"
#include "dialogs/frm_include_list.h"
#include "dialogs/locations_dialog.h"
#include "docs/frm_about.h"
#include "docs/frm_splash.h"

namespace console {

std::vector<std::unique_ptr<forms::Form>> everyForm(forms::Application& application,
                                                    core::Program& program) {
    std::vector<std::unique_ptr<forms::Form>> forms;
    auto console = std::make_unique<frmConsole>(application, program);
    forms::ListBox& list = console->compile.lstInclude;
    forms.push_back(std::move(console));
    forms.push_back(std::make_unique<docs::frmSplash>(application, [] {}));
    forms.push_back(std::make_unique<docs::frmAbout>(application, program));
    forms.push_back(std::make_unique<dialogs::frmSettings>(application, program));
    forms.push_back(std::make_unique<dialogs::frmSettings2>(application, program));
    forms.push_back(std::make_unique<dialogs::frmIncludeList>(application, program));
    forms.push_back(std::make_unique<dialogs::frmIncludeAdd>(application, program, list));
    return forms;
}

Workbench::Workbench(core::Runtime& runtime, forms::Toolkit& toolkit)
    : application_(
          toolkit,
          [&runtime](const std::string& text, bool refused) {
              runtime.rtcMsgBox(text, refused ? core::Runtime::okOnly : core::Runtime::exclamation);
          },
          [this] { save(); }),
      program_{runtime} {}

void Workbench::start() {
    application_.dispatch([this] {
        core::Main(program_, [this] {
            auto& splash = application_.load<docs::frmSplash>([this] { openConsole(); });
            splash.Show();
            splash.Refresh();
        });
    });
}

void Workbench::openConsole() {
    application_.load<frmConsole>(program_).Show();
}

void Workbench::save() {
    if (core::Console* console = program_.state.ConsoleForm) console->save();
}

}  // namespace console
