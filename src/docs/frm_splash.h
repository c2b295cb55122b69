#pragma once

#include <functional>

#include "core/module1.h"
#include "forms/form.h"

namespace docs {

/// The first window of a run. It stays until the user dismisses it, then opens the console.
class frmSplash : public forms::Form {
  public:
    /// openConsole creates and shows the console.
    frmSplash(forms::Application& application, std::function<void()> openConsole);

    void Form_Load() override;
    void Form_KeyPress(int keyAscii) override;

  private:
    void Command1_Click() { dismiss(); }
    void Frame1_Click() { dismiss(); }
    void dismiss();

    std::function<void()> openConsole_;

    inline static const forms::Font text{.family = "MS Sans Serif", .points = 9.75};

  public:
    forms::Frame Frame1{
        *this,
        {
            .name = "Frame1",
            .place = {120, 120, 7080, 4050},
            .event = [this] { Frame1_Click(); },
        },
    };
    forms::Image imgLogo{
        Frame1,
        {
            .name = "imgLogo",
            .text = "logo",
            .place = {120, 120, 6855, 2400},
        },
    };
    forms::Label lblProductName{
        Frame1,
        {
            .name = "lblProductName",
            .caption = "Product",
            .place = {2805, 2400, 1425, 510},
            .centred = true,
            .autoSize = true,
            .font = {.family = "Times New Roman", .points = 21.75, .italic = true},
        },
    };
    forms::Label Label1{
        Frame1,
        {
            .name = "Label1",
            .caption = "For Windows",
            .place = {5520, 2880, 1455, 375},
            .font = text,
        },
    };
    forms::Button Command1{
        Frame1,
        {
            .name = "Command1",
            .caption = "&OK",
            .place = {3000, 3240, 1095, 375},
            .event = [this] { Command1_Click(); },
        },
    };
    forms::Label lblCopyright{
        Frame1,
        {
            .name = "lblCopyright",
            .caption = "Version 1, January 2002",
            .place = {120, 3720, 2775, 255},
            .font = text,
        },
    };
};

}  // namespace docs
