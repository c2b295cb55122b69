#include "docs/frm_about.h"

#include "core/version.h"
#include "docs/system_info.h"

namespace docs {

frmAbout::frmAbout(forms::Application& application, core::Program& program)
    : Form(application, "frmAbout",
           {.caption = "About the Norvane Workbench", .place = {0, 0, 5940, 3570}}),
      program_(program) {}

void frmAbout::Form_Load() {
    lblVersion.Caption = "Version " + std::to_string(core::appMajor) + "." +
                         std::to_string(core::appMinor) + "." + std::to_string(core::appRevision);
    lblTitle.Caption = core::appTitle;
}

void frmAbout::cmdSysInfo_Click() {
    StartSysInfo(program_.runtime);
}

}  // namespace docs
