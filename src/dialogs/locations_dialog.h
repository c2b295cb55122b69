#pragma once

#include <deque>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "core/module1.h"
#include "forms/form.h"

namespace dialogs {

/// A frame around neighbouring rows of a dialog of locations.
struct LocationGroup {
    const char* name;
    const char* caption;
};

/// One path that a dialog of locations edits. The index names the row's controls.
struct Location {
    int index;
    const char* label;
    std::string core::AppState::*field;
    const char* title;   ///< of the file dialog
    const char* filter;  ///< of the file dialog
    const LocationGroup* group = nullptr;
    bool grooveAbove = false;  ///< a groove parts the row from the one before
};

/// A dialog of paths, one to a row. It works on a copy until OK, tests nothing, and saves at once.
class LocationsDialog : public forms::Form {
  public:
    LocationsDialog(forms::Application& application, core::Program& program,
                    const std::string& name, const std::string& caption,
                    std::vector<Location> locations);

    void Form_Load() override;

  private:
    void btnBrowse_Click(int index);
    void OKButton_Click();
    void CancelButton_Click() { Unload(); }

    // These lay out the form downwards from a top, in twips; the first two give the next top.
    int addGroove(int top);
    int addGroup(std::span<const Location> rows, int top);
    void addRow(const Location& location, forms::Container& container, int left, int top);
    void addButtons(int top);

    core::Program& program_;
    const std::vector<Location> locations_;
    std::deque<forms::Frame> frames_;
    std::deque<forms::Groove> grooves_;

  public:
    forms::CommonDialog CommonDialog1{*this, {.name = "CommonDialog1"}};
    forms::ControlArray<forms::Label> Label1{"Label1"};
    forms::ControlArray<forms::TextBox> txtFname{"txtFname"};
    forms::ControlArray<forms::Button> btnBrowse{"btnBrowse",
                                                 [this](int index) { btnBrowse_Click(index); }};
    std::unique_ptr<forms::Button> CancelButton;
    std::unique_ptr<forms::Button> OKButton;
};

/// Where the KELM programs and documents lie.
class frmSettings : public LocationsDialog {
  public:
    frmSettings(forms::Application& application, core::Program& program);
};

/// Where the programs lie that do not belong to KELM.
class frmSettings2 : public LocationsDialog {
  public:
    frmSettings2(forms::Application& application, core::Program& program);
};

}  // namespace dialogs
