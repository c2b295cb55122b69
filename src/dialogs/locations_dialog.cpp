#include "dialogs/locations_dialog.h"

#include <algorithm>

#include "core/settings_file.h"
#include "tools/pick_file.h"

namespace dialogs {

using core::AppState;

namespace {

constexpr const char* programs = "Programs (*.exe)|*.exe|All Files (*.*)|*.*";
constexpr LocationGroup players = {"Frame1", "KELM Player Programs"};
constexpr LocationGroup manuals = {"Frame2", "KELM Manuals"};

const std::vector<Location> kelmLocations = {
    {0, "KELM Compiler", &AppState::CompilerPath, "Locate 'kelm.exe' compiler program", programs},
    {3, "Windows", &AppState::GuiPlayerPath, "Locate 'winkrun.exe' player program", programs,
     &players},
    {4, "Windows Console", &AppState::ConsolePlayerPath, "Locate 'krun.exe' Windows player program",
     programs, &players},
    {1, "DOS Console", &AppState::DosPlayerPath, "Locate 'krun.exe' MSDOS player program", programs,
     &players},
    {5, "KLex utility", &AppState::ExtractorPath, "Locate 'klex.exe' text extractor program",
     programs},
    {8, "HTML", &AppState::ManualHtmlPath, "Locate the KELM HTML-format manual - 'kelmTOC.html'",
     "HTML (*.html)|*.html|All Files (*.*)|*.*", &manuals},
    {7, "Adobe PDF", &AppState::ManualPdfPath,
     "Locate the KELM Adobe Acrobat-format manual - 'kelmmanual28.pdf'",
     "Acrobat Files (*.pdf)|*.pdf|All Files (*.*)|*.*", &manuals},
    {6, "Tutorial", &AppState::TutorialPath, "Locate Tutorial 'contents.htm' file",
     "HTML (*.htm)|*.htm|All Files (*.*)|*.*"},
};

const std::vector<Location> otherLocations = {
    {0, "Web Browser", &AppState::BrowserPath,
     "Locate web-browser or HTML viewer program - eg:IExplore.exe", programs},
    {1, "Acrobat Reader", &AppState::AcrobatPath,
     "Locate Adobe Acrobat Reader program - eg:acroread.exe", programs},
    {2, "Text Editor", &AppState::EditorPath, "Locate your text editor software - eg 'PFE32.exe'",
     programs, nullptr, true},
    {9, "Wordprocessor", &AppState::WordProcessorPath,
     "Locate your wordprocessor software - eg 'winword.exe'", programs},
};

// The layout, in twips. Rows inside a frame align with those outside.
constexpr int margin = 180;
constexpr int width = 7200;
constexpr int frameInset = 120;
constexpr int frameTitle = 360;
constexpr int rowHeight = 435;
constexpr int buttonWidth = 1095;
constexpr int buttonHeight = 375;

}  // namespace

LocationsDialog::LocationsDialog(forms::Application& application, core::Program& program,
                                 const std::string& name, const std::string& caption,
                                 std::vector<Location> locations, std::vector<int> loadOrder)
    : Form(application, name, {.caption = caption, .place = {0, 0, width, 0}}),
      program_(program),
      locations_(std::move(locations)),
      loadOrder_(std::move(loadOrder)) {
    int top = margin;
    for (auto row = locations_.begin(); row != locations_.end();) {
        const auto groupEnd = std::find_if(row, locations_.end(), [&](const Location& other) {
            return other.group != row->group;
        });
        if (row->grooveAbove) top = addGroove(top);
        if (row->group) {
            top = addGroup({row, groupEnd}, top);
            row = groupEnd;
        } else {
            addRow(*row++, *this, margin + frameInset, top);
            top += rowHeight;
        }
    }
    addButtons(top + 60);
    Height.store(top + 60 + buttonHeight + margin);
}

int LocationsDialog::addGroove(int top) {
    grooves_.emplace_back(*this, forms::Definition{.name = "Line1", .index = 7},
                          forms::Definition{.name = "Line4"},
                          forms::Groove::Span{margin, top, width - 2 * margin});
    return top + margin;
}

int LocationsDialog::addGroup(std::span<const Location> rows, int top) {
    const int height = frameTitle + static_cast<int>(rows.size()) * rowHeight + 60;
    const LocationGroup& group = *rows.front().group;
    forms::Frame& frame = frames_.emplace_back(
        *this, forms::Definition{.name = group.name,
                                 .caption = group.caption,
                                 .place = {margin, top, width - 2 * margin, height}});
    for (int inside = frameTitle; const Location& location : rows) {
        addRow(location, frame, frameInset, inside);
        inside += rowHeight;
    }
    return top + height + 120;
}

void LocationsDialog::addRow(const Location& location, forms::Container& container, int left,
                             int top) {
    constexpr int labelWidth = 1500;
    constexpr int textWidth = 4140;
    constexpr int browseWidth = 840;
    const int index = location.index;
    Label1.add(
        container,
        {.index = index, .caption = location.label, .place = {left, top + 60, labelWidth, 225}});
    txtFname.add(
        container,
        {.index = index, .place = {left + labelWidth, top, textWidth, 345}, .holdsPath = true});
    btnBrowse.add(container,
                  {.index = index,
                   .caption = "&Browse",
                   .accessibleName = std::string("Browse for ") + location.label,
                   .place = {left + labelWidth + textWidth + 90, top - 15, browseWidth, 375}});
}

void LocationsDialog::addButtons(int top) {
    constexpr int right = width - margin - buttonWidth;
    CancelButton = std::make_unique<forms::Button>(
        *this,
        forms::Definition{.name = "CancelButton",
                          .caption = "&Cancel",
                          .place = {right - buttonWidth - 120, top, buttonWidth, buttonHeight},
                          .isCancel = true,
                          .event = [this] { CancelButton_Click(); }});
    OKButton = std::make_unique<forms::Button>(
        *this, forms::Definition{.name = "OKButton",
                                 .caption = "&OK",
                                 .place = {right, top, buttonWidth, buttonHeight},
                                 .isDefault = true,
                                 .event = [this] { OKButton_Click(); }});
}

void LocationsDialog::Form_Load() {
    for (const int index : loadOrder_)
        txtFname(index).Text = program_.state.*location(index).field;
}

const Location& LocationsDialog::location(int index) const {
    return *std::ranges::find(locations_, index, &Location::index);
}

void LocationsDialog::btnBrowse_Click(int index) {
    tools::pickFile(CommonDialog1, location(index).title, location(index).filter, txtFname(index));
}

void LocationsDialog::OKButton_Click() {
    for (const Location& location : locations_) {
        program_.state.*location.field = txtFname(location.index).Text;
    }
    core::SaveSettings(program_);
    Unload();
}

frmSettings::frmSettings(forms::Application& application, core::Program& program)
    : LocationsDialog(application, program, "frmSettings",
                      "Kelm Programs and Documenation File Locations", kelmLocations,
                      {0, 3, 4, 1, 5, 8, 7, 6}) {}

frmSettings2::frmSettings2(forms::Application& application, core::Program& program)
    : LocationsDialog(application, program, "frmSettings2", "Other Program Locations",
                      otherLocations, {2, 9, 0, 1}) {}

}  // namespace dialogs
