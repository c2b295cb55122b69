// Any settings file gives usable settings; and settings that are saved are read back equal.

#include <algorithm>
#include <string>

#include "check.h"
#include "core/settings_file.h"
#include "files.h"

namespace {

using core::AppState;
using fuzz::check;

constexpr std::string AppState::*texts[] = {
    &AppState::CompilerPath,      &AppState::GuiPlayerPath,   &AppState::ConsolePlayerPath,
    &AppState::DosPlayerPath,     &AppState::ExtractorPath,   &AppState::EditorPath,
    &AppState::WordProcessorPath, &AppState::ManualHtmlPath,  &AppState::ManualPdfPath,
    &AppState::TutorialPath,      &AppState::BrowserPath,     &AppState::AcrobatPath,
    &AppState::EditFileName,      &AppState::CompileFileName, &AppState::PlayFileName,
    &AppState::ExtractFileName,
};
constexpr std::optional<int> AppState::*hideFlags[] = {
    &AppState::EditHidden, &AppState::CompileHidden, &AppState::PlayHidden,
    &AppState::ExtractHidden};

void checkRanges(const AppState& state) {
    for (auto flag : hideFlags)
        check((state.*flag).value_or(0) >> 1 == 0, "a box is ticked or not");
    check(state.PlayerChoice >= 0 && state.PlayerChoice <= 2, "there is such a player");
    check(state.StartTab >= 1 && state.StartTab <= 4, "there is such a tab");
    check(state.IncludeFolders.back().empty(), "the list of folders has an end");
}

/// Returns the part of a text that the file can represent.
std::string storable(std::string text) {
    std::erase_if(text, [](char c) { return c == '\r' || c == '\n'; });
    const bool isQuoted = text.starts_with(' ') || text.find(',') != std::string::npos;
    if (isQuoted || text.starts_with('"')) std::erase(text, '"');
    return text;
}

/// Reduces the state to what a save keeps: the representable part of each text, and the used
/// folders.
void reduce(AppState& state) {
    for (auto text : texts)
        state.*text = storable(state.*text);
    auto& folders = state.IncludeFolders;
    const auto end = std::find(folders.begin(), folders.end(), "");
    std::fill(end, folders.end(), "");
    std::transform(folders.begin(), end, folders.begin(), storable);
    std::fill(std::remove(folders.begin(), end, ""), end, "");
}

void checkSame(const AppState& one, const AppState& other) {
    for (auto text : texts)
        check(one.*text == other.*text, "a text comes back");
    for (auto flag : hideFlags)
        check(one.*flag == other.*flag, "a box comes back");
    check(one.PlayerChoice == other.PlayerChoice, "the player comes back");
    check(one.StartTab == other.StartTab, "the tab comes back");
    check(one.IncludeFolders == other.IncludeFolders, "the folders come back");
}

/// Settings as a user could have typed them: any text in any field.
void type(AppState& state, std::string_view input) {
    std::size_t field = 0;
    fuzz::forEachPiece(input, '\0', [&](std::string_view piece) {
        if (field < std::size(texts)) state.*texts[field] = piece;
        const std::size_t folder = field++ - std::size(texts);
        if (folder < core::mostIncludes) state.IncludeFolders[folder] = piece;
    });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    std::string_view input(reinterpret_cast<const char*>(data), size);
    platform::NoToolkit toolkit;
    forms::Application application(toolkit, [](const std::string&) {});
    fuzz::Files runtime;
    core::Program program{runtime, application, {}};

    const unsigned kind = fuzz::choice(input);
    const char* names[] = {"c:\\nwbw.ini", "c:\\kelmcons.ini", "c:\\~nwbwini.tmp"};
    runtime.files[names[kind % 3]] = input;
    if ((kind & 4) != 0) runtime.files["c:\\nwbwini.bkp"] = input;
    core::LoadSettings(program);
    checkRanges(program.state);
    if ((kind & 8) != 0) type(program.state, input);

    AppState before = program.state;
    core::SaveSettings(program);
    const std::string saved = runtime.files.at(names[0]);
    core::LoadSettings(program);
    checkRanges(program.state);
    reduce(before);
    checkSame(program.state, before);
    core::SaveSettings(program);
    check(runtime.files.at(names[0]) == saved, "a second save gives the same file");
    return 0;
}
