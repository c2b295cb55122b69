#pragma once

#include "core/module1.h"
#include "forms/application.h"

namespace console {

class frmConsole;

/// The whole program on top of its platform, assembled once for all systems.
class Workbench {
  public:
    /// Both must outlive the workbench.
    Workbench(core::Runtime& runtime, forms::Toolkit& toolkit);

    /// Runs Main. The toolkit's message loop then drives the program until Toolkit::quit.
    void start();

    forms::Application& application() { return application_; }

  private:
    void openConsole();
    void saveOnBug();

    forms::Application application_;
    core::Program program_;
    frmConsole* console_ = nullptr;  ///< null until it is filled
};

}  // namespace console
