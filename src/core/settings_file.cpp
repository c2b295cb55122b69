#include "core/settings_file.h"

#include <charconv>

#include "core/text.h"

namespace core {

namespace {

constexpr const char* currentHeader = "'1.0 Norvane Workbench'";
constexpr const char* beta3Header =
    "'Norvane Development Workbench' settings file (format version: 0.4.0)";

constexpr const char* unknownFormat =
    "The format of your NWB/w settings file is unknown. So default settings will be used. (Select "
    "'Settings' menu item to change the settings to your requirements.)";
constexpr const char* beta3Format =
    "Your NWB/w settings file is for Beta Release 3. It will be saved in the new format when you "
    "close NWB/w.";
constexpr const char* noFile =
    "Settings file not found so using defaults. (Select 'Settings' menu item to change the "
    "settings to your requirements.)";

// The fields that both formats have, in file order.
constexpr std::string AppState::*textFields[] = {
    &AppState::CompilerPath,      &AppState::GuiPlayerPath,   &AppState::ConsolePlayerPath,
    &AppState::DosPlayerPath,     &AppState::ExtractorPath,   &AppState::EditorPath,
    &AppState::WordProcessorPath, &AppState::ManualHtmlPath,  &AppState::ManualPdfPath,
    &AppState::TutorialPath,      &AppState::BrowserPath,     &AppState::AcrobatPath,
    &AppState::EditFileName,      &AppState::CompileFileName, &AppState::PlayFileName,
    &AppState::ExtractFileName,
};
// The fields that only the current format has, stored between the texts and the folders.
constexpr std::optional<int> AppState::*hideFlags[] = {
    &AppState::EditHidden, &AppState::CompileHidden, &AppState::PlayHidden,
    &AppState::ExtractHidden};

constexpr int firstTab = 1;
constexpr int lastTab = 4;
constexpr int lastPlayer = 2;

struct SettingsPaths {
    explicit SettingsPaths(Runtime& runtime)
        : current(runtime.AppPath() + "\\nwbw.ini"),
          writing(runtime.AppPath() + "\\~nwbwini.tmp"),
          backup(runtime.AppPath() + "\\nwbwini.bkp"),
          beta3(runtime.AppPath() + "\\kelmcons.ini") {}

    std::string current, writing, backup, beta3;
};

AppState defaults() {
    AppState state;
    state.CompilerPath = R"(c:\kelm\programs\kelm.exe)";
    state.GuiPlayerPath = R"(c:\kelm\programs\winkrun.exe)";
    state.BrowserPath = R"(C:\Program Files\Plus!\Microsoft Internet\IEXPLORE.EXE)";
    state.AcrobatPath = R"(C:\Program Files\Adobe\Acrobat 4.0\Reader\AcroRd32.exe)";
    state.WordProcessorPath = R"(C:\Program Files\Microsoft Office\Office\Winword.exe)";
    return state;
}

/// Parses a field as a whole number. Returns nullopt if it is not one.
std::optional<int> number(std::string field) {
    std::erase(field, ' ');
    int value = 0;
    const char* end = field.data() + field.size();
    const auto [stop, error] = std::from_chars(field.data(), end, value);
    if (error != std::errc() || stop != end) return {};
    return value;
}

int numberWithin(const std::string& field, int lowest, int highest, int otherwise) {
    const int value = number(field).value_or(otherwise);
    return value < lowest || value > highest ? otherwise : value;
}

void readTexts(Runtime& runtime, AppState& state) {
    for (auto field : textFields)
        state.*field = runtime.vbaInputFile();
}

void readNumbers(Runtime& runtime, AppState& state) {
    for (auto flag : hideFlags) {
        const std::string field = runtime.vbaInputFile();
        if (!field.empty()) state.*flag = numberWithin(field, 0, 1, 0);
    }
    state.PlayerChoice = numberWithin(runtime.vbaInputFile(), 0, lastPlayer, 1);
    state.StartTab = numberWithin(runtime.vbaInputFile(), firstTab, lastTab, firstTab);
}

void readFolders(Runtime& runtime, AppState& state) {
    for (int slot = 0; slot < maxIncludes && !runtime.rtcEndOfFile(); ++slot) {
        state.IncludeFolders[slot] = runtime.vbaInputFile();
    }
}

void useDefaults(Program& program, const char* reason) {
    program.runtime.rtcMsgBox(reason, Runtime::okOnly);
    program.state = defaults();
}

/// Opens a settings file and checks its header. If it does not match, closes the file, applies the
/// defaults and returns false.
bool openWithHeader(Program& program, const std::string& path, const char* header) {
    Runtime& runtime = program.runtime;
    runtime.vbaFileOpen(path, Runtime::OpenMode::Input);
    if (runtime.vbaInputFile() == header) return true;
    runtime.vbaFileClose();
    useDefaults(program, unknownFormat);
    return false;
}

void readCurrent(Program& program, const std::string& path) {
    if (!openWithHeader(program, path, currentHeader)) return;
    readTexts(program.runtime, program.state);
    readNumbers(program.runtime, program.state);
    readFolders(program.runtime, program.state);
    program.runtime.vbaFileClose();
}

void readBeta3(Program& program, const std::string& path) {
    if (!openWithHeader(program, path, beta3Header)) return;
    program.runtime.rtcMsgBox(beta3Format, Runtime::okOnly);
    readTexts(program.runtime, program.state);
    readFolders(program.runtime, program.state);
    program.runtime.vbaFileClose();
}

void load(Program& program, const SettingsPaths& paths) {
    Runtime& runtime = program.runtime;
    if (exists(runtime, paths.current)) {
        readCurrent(program, paths.current);
        program.settingsGuard.setRead(true);
    } else if (exists(runtime, paths.beta3)) {
        readBeta3(program, paths.beta3);
    } else {
        useDefaults(program, noFile);
    }
}

bool needsQuotes(const std::string& text) {
    return text.starts_with(' ') || text.find(',') != std::string::npos;
}

/// Encodes a text for its line, so that reading returns it and no other field shifts. The format
/// cannot represent a line break, a double quote at the beginning of a text, or one inside a text
/// that needs quotes, so these are dropped.
std::string stored(std::string text) {
    std::erase_if(text, [](char c) { return c == '\r' || c == '\n'; });
    if (text.starts_with('"') || needsQuotes(text)) std::erase(text, '"');
    return needsQuotes(text) ? core::quoted(text) : text;
}

std::string stored(int value) {
    return ' ' + std::to_string(value) + ' ';
}

void writeFields(Runtime& runtime, const AppState& state) {
    runtime.vbaPrintFile(currentHeader);
    for (auto field : textFields)
        runtime.vbaPrintFile(stored(state.*field));
    for (auto flag : hideFlags)
        runtime.vbaPrintFile(state.*flag ? stored(*(state.*flag)) : "");
    runtime.vbaPrintFile(stored(state.PlayerChoice));
    runtime.vbaPrintFile(stored(state.StartTab));
    for (const std::string& folder : state.IncludeFolders) {
        if (folder.empty()) break;
        // A folder that is empty once encoded would end the list.
        if (const std::string line = stored(folder); !line.empty()) runtime.vbaPrintFile(line);
    }
}

/// Makes the new settings the current ones. If it fails, the previous ones are current again.
void renameNew(Runtime& runtime, const SettingsPaths& paths, bool hasPrevious) {
    try {
        runtime.vbaNameFile(paths.writing, paths.current);
    } catch (const RuntimeError&) {
        if (hasPrevious) runtime.vbaNameFile(paths.backup, paths.current);
        throw;
    }
}

/// Once the new file is complete on the disk, the order of the following steps is enough: a crash
/// or power loss at any of them leaves the old or the new settings whole in one of the three files.
void save(Runtime& runtime, const AppState& state, const SettingsPaths& paths) {
    runtime.vbaFileOpen(paths.writing, Runtime::OpenMode::Output);
    writeFields(runtime, state);
    runtime.vbaFileFlush();
    runtime.vbaFileClose();
    if (exists(runtime, paths.backup)) runtime.rtcKillFiles(paths.backup);
    const bool hasPrevious = exists(runtime, paths.current);
    if (hasPrevious) runtime.vbaNameFile(paths.current, paths.backup);
    renameNew(runtime, paths, hasPrevious);
}

}  // namespace

void LoadSettings(Program& program) {
    program.state = {};
    program.settingsGuard.setRead(false);
    try {
        load(program, SettingsPaths(program.runtime));
    } catch (const RuntimeError& error) {
        program.state = {};  // drop what was read so far
        program.runtime.rtcMsgBox(error.what(), Runtime::exclamation);
    }
}

void SaveSettings(Program& program) {
    SettingsGuard& guard = program.settingsGuard;
    if (!guard.canSave()) return;
    const SettingsPaths paths(program.runtime);
    try {
        // The current file last: if the program ends here, the next start can still read it.
        guard.putAside({paths.writing, paths.backup, paths.current});
        save(program.runtime, program.state, paths);
    } catch (const RuntimeError& error) {
        program.runtime.rtcMsgBox(error.what(), Runtime::exclamation);
    }
    guard.showKept();
}

}  // namespace core
