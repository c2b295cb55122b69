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

// The fields of both formats, in the order of their lines.
constexpr std::string AppState::*textFields[] = {
    &AppState::CompilerPath,      &AppState::GuiPlayerPath,   &AppState::ConsolePlayerPath,
    &AppState::DosPlayerPath,     &AppState::ExtractorPath,   &AppState::EditorPath,
    &AppState::WordProcessorPath, &AppState::ManualHtmlPath,  &AppState::ManualPdfPath,
    &AppState::TutorialPath,      &AppState::BrowserPath,     &AppState::AcrobatPath,
    &AppState::EditFileName,      &AppState::CompileFileName, &AppState::PlayFileName,
    &AppState::ExtractFileName,
};
// The fields that only the current format has, between the texts and the folders.
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

/// The whole number in a field, or nothing if it holds none.
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
    for (int slot = 0; slot < mostIncludes && !runtime.rtcEndOfFile(); ++slot) {
        state.IncludeFolders[slot] = runtime.vbaInputFile();
    }
}

/// Opens a settings file and tells whether its first field is the header.
bool openWithHeader(Program& program, const std::string& path, const char* header) {
    Runtime& runtime = program.runtime;
    runtime.vbaFileOpen(path, Runtime::OpenMode::Input);
    if (runtime.vbaInputFile() == header) return true;
    runtime.vbaFileClose();
    runtime.rtcMsgBox(unknownFormat, Runtime::okOnly);
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

/// Carries out the last rename of a save that was cut off in front of it.
void completeSave(Runtime& runtime, const SettingsPaths& paths) {
    if (!exists(runtime, paths.current) && exists(runtime, paths.writing) &&
        exists(runtime, paths.backup)) {
        runtime.vbaNameFile(paths.writing, paths.current);
    }
}

void removeBackup(Runtime& runtime, const SettingsPaths& paths) {
    if (exists(runtime, paths.backup)) runtime.rtcKillFiles(paths.backup);
}

/// Leaves no state in which what is about to be written could be taken for whole before it is.
void prepareSave(Runtime& runtime, const SettingsPaths& paths) {
    if (exists(runtime, paths.current)) return;
    completeSave(runtime, paths);  // else the only whole copy could be overwritten
    // A user may have taken the settings file away, but not its backup.
    if (!exists(runtime, paths.current)) removeBackup(runtime, paths);
}

/// A text as it goes on its line, such that reading gives it back and no other field moves. The
/// file has no way to hold a double quote or a line break, so these are left out.
std::string stored(std::string text) {
    std::erase_if(text, [](char c) { return c == '"' || c == '\r' || c == '\n'; });
    const bool needsQuotes = text.starts_with(' ') || text.find(',') != std::string::npos;
    return needsQuotes ? core::quoted(text) : text;
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
        // A folder of which nothing can be stored would end the list.
        if (const std::string line = stored(folder); !line.empty()) runtime.vbaPrintFile(line);
    }
}

}  // namespace

void LoadSettings(Program& program) {
    Runtime& runtime = program.runtime;
    const SettingsPaths paths(runtime);
    program.state = defaults();
    try {
        completeSave(runtime, paths);
        if (exists(runtime, paths.current)) {
            readCurrent(program, paths.current);
        } else if (exists(runtime, paths.beta3)) {
            readBeta3(program, paths.beta3);
        } else {
            runtime.rtcMsgBox(noFile, Runtime::okOnly);
        }
    } catch (const RuntimeError& error) {
        program.state = defaults();  // not half of the settings
        runtime.rtcMsgBox(error.what(), Runtime::exclamation);
    }
}

void SaveSettings(Program& program) {
    Runtime& runtime = program.runtime;
    if (program.folderIsReadOnly && !canWriteBeside(runtime)) return;
    const SettingsPaths paths(runtime);
    try {
        prepareSave(runtime, paths);
        runtime.vbaFileOpen(paths.writing, Runtime::OpenMode::Output);
        writeFields(runtime, program.state);
        // Once the new file is whole on the disk, the order of the steps is all that matters: a
        // cut behind any of them, of power too, leaves the old settings current, or the new ones
        // for completeSave to make current, or the new ones current.
        runtime.vbaFileFlush();
        runtime.vbaFileClose();
        removeBackup(runtime, paths);
        if (exists(runtime, paths.current)) runtime.vbaNameFile(paths.current, paths.backup);
        runtime.vbaNameFile(paths.writing, paths.current);
    } catch (const RuntimeError& error) {
        runtime.rtcMsgBox(error.what(), Runtime::exclamation);
    }
}

}  // namespace core
