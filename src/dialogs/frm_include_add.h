#pragma once

#include "core/module1.h"
#include "forms/file_lists.h"
#include "forms/form.h"

namespace dialogs {

/// Chooses one include folder from a drive list and a folder list, or by typing. OK puts it into
/// the caller's list. The caller sets the caption and the text before showing the dialog.
class frmIncludeAdd : public forms::Form {
  public:
    frmIncludeAdd(forms::Application& application, core::Program& program, forms::ListBox& list);

    void Form_Activate() override;

  private:
    void Drive1_Change() { Dir1.Path = Drive1.Drive(); }
    void Dir1_Change() { txtFolder.Text = Dir1.Path(); }
    void OKButton_Click();
    void CancelButton_Click() { Unload(); }

    core::Program& program_;
    forms::ListBox& list_;

  public:
    // Declared in tab order.
    forms::TextBox txtFolder{
        *this,
        {
            .name = "txtFolder",
            .text = "Text1",
            .accessibleName = "Folder Name",
            .place = {180, 390, 5100, 345},
            .holdsPath = true,
        },
    };
    forms::DriveList Drive1{
        *this,
        {
            .name = "Drive1",
            .accessibleName = "Drive",
            .place = {180, 855, 3900, 345},
            .event = [this] { Drive1_Change(); },
        },
        program_.runtime,
    };
    forms::FolderList Dir1{
        *this,
        {
            .name = "Dir1",
            .accessibleName = "Folders",
            .place = {180, 1275, 3900, 2445},
            .event = [this] { Dir1_Change(); },
        },
        program_.runtime,
    };
    forms::Button OKButton{
        *this,
        {
            .name = "OKButton",
            .caption = "OK",
            .place = {4185, 855, 1095, 375},
            .isDefault = true,
            .event = [this] { OKButton_Click(); },
        },
    };
    forms::Label Label1{
        *this,
        {
            .name = "Label1",
            .caption = "Folder Name",
            .place = {180, 150, 3000, 225},
        },
    };
    forms::Button CancelButton{
        *this,
        {
            .name = "CancelButton",
            .caption = "Cancel",
            .place = {4185, 1320, 1095, 375},
            .isCancel = true,
            .event = [this] { CancelButton_Click(); },
        },
    };
};

}  // namespace dialogs
