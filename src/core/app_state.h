#pragma once

#include <array>
#include <optional>
#include <string>

namespace core {

/// Number of slots for include folders. A list ends in an empty slot, so it holds one folder less.
inline constexpr int includeSlots = 21;
inline constexpr int mostIncludes = includeSlots - 1;

/// The one record of shared state. Whoever needs a field reads it at that moment; nobody is told
/// of a change. An empty text stands for a field that nothing has set.
struct AppState {
    std::string CompilerPath;
    std::string GuiPlayerPath;
    std::string ConsolePlayerPath;
    std::string DosPlayerPath;
    std::string ExtractorPath;
    std::string EditorPath;
    std::string WordProcessorPath;
    std::string ManualHtmlPath;
    std::string ManualPdfPath;
    std::string TutorialPath;
    std::string BrowserPath;
    std::string AcrobatPath;

    /// Which way the include folder dialog was opened: to add a folder, or to change one.
    bool AddingFolder = false;

    // Copies of the console's controls, current after the load and after the console has closed.
    std::string EditFileName;
    std::string CompileFileName;
    std::string PlayFileName;
    std::string ExtractFileName;
    std::optional<int> EditHidden;
    std::optional<int> CompileHidden;
    std::optional<int> PlayHidden;
    std::optional<int> ExtractHidden;
    int PlayerChoice = 1;  ///< 0 Windows GUI, 1 Windows console, 2 MSDOS console
    int StartTab = 1;      ///< from 1: Edit, Compile, Play, Spelling

    /// The compiler's include folders in search order, up to the first empty slot.
    std::array<std::string, includeSlots> IncludeFolders;
};

}  // namespace core
