#pragma once

#include <deque>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "core/module1.h"
#include "forms/form.h"

namespace dialogs {

/// A frame around adjacent rows of a locations dialog.
struct LocationGroup {
    const char* name;
    const char* caption;
};

/// One path that a locations dialog edits. The row's controls have its index.
struct Location {
    int index;
    const char* label;
    std::string core::AppState::*field;
    const char* title;   ///< of the file dialog
    const char* filter;  ///< of the file dialog
    const LocationGroup* group = nullptr;
    bool grooveAbove = false;  ///< a groove separates the row from the one above
};

/// A dialog of paths, one per row. It edits copies; OK stores them unchecked and saves the
/// settings.
class LocationsDialog : public forms::Form {
  public:
    /// loadOrder holds the locations' indices.
    LocationsDialog(forms::Application& application, core::Program& program,
                    const std::string& name, const std::string& caption,
                    std::vector<Location> locations, std::vector<int> loadOrder);

    void Form_Load() override;

  private:
    void btnBrowse_Click(int index);
    void OKButton_Click();
    void CancelButton_Click() { Unload(); }

    [[nodiscard]] const Location& location(int index) const;

    // These add controls at `top`, in twips; the first two return the top of what follows.
    int addGroove(int top);
    int addGroup(std::span<const Location> rows, int top);
    void addRow(const Location& location, forms::Container& container, int left, int top);
    void addButtons(int top);

    core::Program& program_;
    const std::vector<Location> locations_;
    const std::vector<int> loadOrder_;
    std::deque<forms::Frame> frames_;
    std::deque<forms::Groove> grooves_;

  public:
    forms::CommonDialog CommonDialog1{*this, {.name = "CommonDialog1"}};
    forms::ControlArray<forms::Label> Label1{"Label1"};
    forms::ControlArray<forms::TextBox> txtFname{"txtFname"};
    forms::ControlArray<forms::Button> btnBrowse{
        "btnBrowse",
        [this](int index) { btnBrowse_Click(index); },
    };
    std::unique_ptr<forms::Button> CancelButton;
    std::unique_ptr<forms::Button> OKButton;
};

/// The locations of the KELM programs and documents.
class frmSettings : public LocationsDialog {
  public:
    frmSettings(forms::Application& application, core::Program& program);
};

/// The locations of the other programs.
class frmSettings2 : public LocationsDialog {
  public:
    frmSettings2(forms::Application& application, core::Program& program);
};

}  // namespace dialogs
