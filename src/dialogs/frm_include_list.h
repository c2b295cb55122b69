#pragma once

#include "core/module1.h"
#include "forms/form.h"

namespace dialogs {

/// Edits the list of include folders in a copy, List1. Close writes it back to the state's list and
/// to the console's.
class frmIncludeList : public forms::Form {
  public:
    frmIncludeList(forms::Application& application, core::Program& program);

  private:
    void List1_Click();
    void btnAdd_Click();
    void btnChange_Click();
    void btnDelete_Click();
    void btnUp_Click();
    void btnDown_Click();
    void btnClose_Click();
    void btnCancel_Click() { Unload(); }

    void askFolder(bool adding, const std::string& caption, const std::string& folder);
    void moveSelected(int by);

    core::Program& program_;

    static constexpr int buttonLeft = 4440;
    static constexpr int buttonWidth = 1095;
    static constexpr forms::Place button(int row) {
        return {buttonLeft, 180 + row * 465, buttonWidth, 375};
    }

  public:
    // Declared in tab order.
    forms::Button btnClose{
        *this,
        {
            .name = "btnClose",
            .caption = "&Close",
            .place = button(5),
            .isDefault = true,
            .event = [this] { btnClose_Click(); },
        },
    };
    forms::ListBox List1{
        *this,
        {
            .name = "List1",
            .accessibleName = "Include folders",
            .place = {180, 180, 4110, 3165},
            .event = [this] { List1_Click(); },
        },
    };
    forms::Button btnAdd{
        *this,
        {
            .name = "btnAdd",
            .caption = "&Add",
            .place = button(0),
            .event = [this] { btnAdd_Click(); },
        },
    };
    forms::Button btnChange{
        *this,
        {
            .name = "btnChange",
            .caption = "&Edit",
            .place = button(1),
            .enabled = false,
            .event = [this] { btnChange_Click(); },
        },
    };
    forms::Button btnDelete{
        *this,
        {
            .name = "btnDelete",
            .caption = "De&lete",
            .place = button(2),
            .enabled = false,
            .event = [this] { btnDelete_Click(); },
        },
    };
    forms::Button btnUp{
        *this,
        {
            .name = "btnUp",
            .caption = "&Up",
            .place = button(3),
            .enabled = false,
            .event = [this] { btnUp_Click(); },
        },
    };
    forms::Button btnDown{
        *this,
        {
            .name = "btnDown",
            .caption = "&Down",
            .place = button(4),
            .enabled = false,
            .event = [this] { btnDown_Click(); },
        },
    };
    forms::Button btnCancel{
        *this,
        {
            .name = "btnCancel",
            .caption = "Ca&ncel",
            .place = button(6),
            .isCancel = true,
            .event = [this] { btnCancel_Click(); },
        },
    };
};

}  // namespace dialogs
