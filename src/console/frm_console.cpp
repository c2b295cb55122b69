#include "console/frm_console.h"

#include <cmath>
#include <sstream>

#include "core/settings_file.h"
#include "dialogs/frm_include_list.h"
#include "dialogs/locations_dialog.h"

namespace console {

namespace {

constexpr const char* section = "Settings";

// The keys of the window's place in the settings store, in the order of assignment.
struct StoredPlace {
    const char* key;
    forms::Property<int> forms::Control::*property;
    int byDefault;
};

constexpr StoredPlace storedPlaces[] = {
    {"MainLeft", &forms::Control::Left, 1000},
    {"MainTop", &forms::Control::Top, 1000},
    {"MainWidth", &forms::Control::Width, 6500},
    {"MainHeight", &forms::Control::Height, 6500},
};

/// Parses a stored number, with any blanks around it, as whole twips. Returns nullopt if it is not
/// one.
std::optional<int> twips(const std::string& text) {
    constexpr float farthest = 1e6F;
    float value = 0;
    // Not every standard library has std::from_chars for float.
    std::istringstream stored(text);
    if (!(stored >> value) || !(std::abs(value) < farthest)) return {};
    stored >> std::ws;
    if (stored.peek() != std::istringstream::traits_type::eof()) return {};
    return static_cast<int>(value);
}

}  // namespace

frmConsole::frmConsole(forms::Application& application, core::Program& program)
    : Form(application, "frmConsole",
           {.caption = core::appTitle,
            .place = {0, 0, 7080, 6810},
            .sizable = true,
            .centred = false}),
      program_(program) {
    KeyPreview = true;
}

void frmConsole::Form_Load() {
    // Dispatched alone: if the store fails, the window still shows the files and options.
    application().dispatch([this] { placeWindow(); });
    tbsOptions.SelectedItem = program_.state.StartTab;
    help.fitToPaths();
    compile.chooseViewer();
    fillFromState();
    compile.UpdateCmdline();
    play.UpdateCmdlineP();
    spelling.UpdateCmdlineS();
    // Only now: before, a save would lose what the file has and the controls do not.
    program_.state.ConsoleForm = this;
}

void frmConsole::placeWindow() {
    for (const StoredPlace& place : storedPlaces) {
        const std::string text = program_.runtime.rtcGetSetting(core::appTitle, section, place.key,
                                                                std::to_string(place.byDefault));
        this->*place.property = twips(text).value_or(place.byDefault);
    }
}

void frmConsole::storePlace() {
    if (WindowState == forms::WindowState::Minimised) return;
    for (const StoredPlace& place : storedPlaces) {
        program_.runtime.rtcSaveSetting(core::appTitle, section, place.key,
                                        std::to_string(this->*place.property));
    }
}

void frmConsole::fillFromState() {
    const core::AppState& state = program_.state;
    edit.txtFnameE.Text = state.EditFileName;
    compile.txtFname.Text = state.CompileFileName;
    play.txtFnameP.Text = state.PlayFileName;
    spelling.txtFnameS.Text = state.ExtractFileName;

    edit.chkHideE.Value = state.EditHidden.value_or(0);
    compile.chkHideC.Value = state.CompileHidden.value_or(0);
    play.chkHideP.Value = state.PlayHidden.value_or(0);
    spelling.chkHideS.Value = state.ExtractHidden.value_or(0);

    play.optPlayer(state.PlayerChoice).Value = true;

    fillWithFolders(compile.lstInclude);
}

void frmConsole::fillWithFolders(forms::ListBox& list) {
    list.Clear();
    for (const std::string& folder : program_.state.IncludeFolders) {
        if (folder.empty()) break;
        list.AddItem(folder);
    }
}

void frmConsole::storeToState() {
    core::AppState& state = program_.state;
    state.EditFileName = edit.txtFnameE.Text;
    state.CompileFileName = compile.txtFname.Text;
    state.PlayFileName = play.txtFnameP.Text;
    state.ExtractFileName = spelling.txtFnameS.Text;

    state.EditHidden = edit.chkHideE.Value;
    state.CompileHidden = compile.chkHideC.Value;
    state.PlayHidden = play.chkHideP.Value;
    state.ExtractHidden = spelling.chkHideS.Value;

    state.PlayerChoice = play.player();
    state.StartTab = tbsOptions.SelectedItem;
}

void frmConsole::Form_Unload() {
    for (int open = application().Count() - 1; open >= 1; --open) {
        application().Forms(open).Unload();
    }
    // Dispatched alone: if the store fails, the files and options are still saved.
    application().dispatch([this] { storePlace(); });
    save();
    program_.state.ConsoleForm = nullptr;
}

void frmConsole::save() {
    storeToState();
    core::SaveSettings(program_);
}

void frmConsole::Form_KeyDown(int keyCode, int shift) {
    constexpr int tabKey = 9;
    if (keyCode != tabKey) return;
    const int last = static_cast<int>(tbsOptions.Tabs.size());
    const int selected = tbsOptions.SelectedItem;
    switch (shift & (forms::shiftMask | forms::ctrlMask)) {
        case forms::ctrlMask:
            tbsOptions.SelectedItem = selected == last ? 1 : selected + 1;
            break;
        case forms::ctrlMask | forms::shiftMask:
            tbsOptions.SelectedItem = selected == 1 ? last : selected - 1;
            break;
        default:
            break;
    }
}

void frmConsole::mnuOptionsPrograms_Click() {
    application().load<dialogs::frmSettings>(program_).ShowModal(*this);
}

void frmConsole::mnuOptionsOther_Click() {
    application().load<dialogs::frmSettings2>(program_).ShowModal(*this);
}

void frmConsole::editIncludes() {
    auto& dialog = application().load<dialogs::frmIncludeList>(program_);
    fillWithFolders(dialog.List1);
    dialog.ShowModal(*this);
}

void frmConsole::tbsOptions_Click() {
    constexpr int inPlace = 210;
    constexpr int outOfView = -20000;
    const int inUse = tbsOptions.SelectedItem - 1;
    for (int i = 0; i < static_cast<int>(tbsOptions.Tabs.size()); ++i) {
        picOptions(i).Left = i == inUse ? inPlace : outOfView;
        picOptions(i).Enabled = i == inUse;
    }
    switch (tbsOptions.SelectedItem) {
        case 1:
            edit.fitToPaths();
            break;
        case 2:
            compile.fitToPaths();
            break;
        case 4:
            spelling.fitToPaths();
            break;
        default:
            break;
    }
}

}  // namespace console
