#pragma once

#include <memory>
#include <vector>

#include "core/module1.h"
#include "forms/form.h"

namespace console {

/// Creates every form of the program, beginning with the console, without loading it.
std::vector<std::unique_ptr<forms::Form>> everyForm(forms::Application& application,
                                                    core::Program& program);

/// The whole program on top of its platform, assembled once for all systems.
class Workbench {
  public:
    /// Both must outlive the workbench.
    Workbench(core::Runtime& runtime, forms::Toolkit& toolkit);

    /// Creates every form of the program, for a toolkit that measures captions.
    std::vector<std::unique_ptr<forms::Form>> everyForm() {
        return console::everyForm(application_, program_);
    }

    /// Runs Main. The toolkit's message loop then drives the program until Toolkit::quit.
    void start();

    /// Saves the settings with what the console shows, if it is open. Needs no window.
    void save();

    forms::Application& application() { return application_; }

  private:
    void openConsole();

    forms::Application application_;
    core::Program program_;
};

}  // namespace console
