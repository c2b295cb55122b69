#include "console/workbench.h"

#include "console/frm_console.h"
#include "docs/frm_splash.h"

namespace console {

Workbench::Workbench(core::Runtime& runtime, forms::Toolkit& toolkit)
    : application_(
          toolkit,
          [&runtime](const std::string& text) {
              runtime.rtcMsgBox(text, core::Runtime::exclamation);
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
