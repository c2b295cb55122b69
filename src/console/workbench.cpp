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
          [this] { saveOnBug(); }),
      program_{runtime, application_, {}} {}

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
    console_ = &application_.load<frmConsole>(program_);
    console_->Show();
}

void Workbench::saveOnBug() {
    // Before the console is filled, it lacks what the file has; after it has closed, all is saved.
    if (console_ && application_.Count() > 0) console_->save();
}

}  // namespace console
