#pragma once

#include "core/module1.h"
#include "forms/form.h"

namespace docs {

/// The About box; it can also start the system's information program.
class frmAbout : public forms::Form {
  public:
    frmAbout(forms::Application& application, core::Program& program);

    void Form_Load() override;

  private:
    void cmdOK_Click() { Unload(); }
    void cmdSysInfo_Click();

    core::Program& program_;

  public:
    forms::Image picIcon{
        *this,
        {
            .name = "picIcon",
            .text = "nwbw",
            .place = {240, 240, 720, 720},
        },
    };
    forms::Label lblTitle{
        *this,
        {
            .name = "lblTitle",
            .caption = "Application Title",
            .place = {1200, 240, 4500, 420},
            .font = {.points = 14},
        },
    };
    forms::Label lblVersion{
        *this,
        {
            .name = "lblVersion",
            .caption = "Version",
            .place = {1200, 690, 4500, 270},
        },
    };
    forms::Label lblDescription{
        *this,
        {
            .name = "lblDescription",
            .caption =
                "An MS Windows 32-bit graphical user interface for writing interactive fiction "
                "using the KELM Adventure Language. The language, its compiler and its players "
                "are the work of the authors of KELM; this front-end, for Windows and for "
                "Linux, is the work of the makers of the Norvane Workbench.",
            .place = {1200, 1050, 4500, 1170},
        },
    };
    forms::Groove groove{
        *this,
        {.name = "Line1", .index = 1},
        {.name = "Line1", .index = 0},
        {240, 2340, 5460},
    };
    forms::Label lblDisclaimer{
        *this,
        {
            .name = "lblDisclaimer",
            .caption =
                "Please send reports and suggestions to the makers of the Norvane Workbench, "
                "at the place where you obtained it. The KELM programs and documents are not "
                "part of it.",
            .place = {240, 2490, 3960, 900},
        },
    };
    forms::Button cmdOK{
        *this,
        {
            .name = "cmdOK",
            .caption = "OK",
            .place = {4305, 2490, 1395, 375},
            .isDefault = true,
            .isCancel = true,
            .event = [this] { cmdOK_Click(); },
        },
    };
    forms::Button cmdSysInfo{
        *this,
        {
            .name = "cmdSysInfo",
            .caption = "&System Info...",
            .place = {4305, 2955, 1395, 375},
            .event = [this] { cmdSysInfo_Click(); },
        },
    };
};

}  // namespace docs
