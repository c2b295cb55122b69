#pragma once

#include <array>
#include <optional>
#include <string>

namespace forms {
class ListBox;
}

namespace core {

/// What the layers below the main window need of it.
class Console {
  public:
    /// Returns the compile panel's list of include folders.
    virtual forms::ListBox& lstInclude() = 0;
    /// Stores what the console shows in the state and the settings file. Needs no window.
    virtual void save() = 0;

  protected:
    ~Console() = default;
};

/// Number of slots for include folders. An empty slot ends the list, so it holds at most one folder
/// fewer.
inline constexpr int includeSlots = 21;
inline constexpr int maxIncludes = includeSlots - 1;

/// The program's shared state. Readers fetch a field when they need it; there is no change
/// notification. An empty string means that the field is not set.
struct AppState {
    Console* ConsoleForm = nullptr;  ///< null unless the console is open and filled

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

    /// True while the include folder dialog adds a folder, false while it edits one.
    bool AddingFolder = false;

    // Copies of the console's controls, valid after loading and after the console has closed.
    std::string EditFileName;
    std::string CompileFileName;
    std::string PlayFileName;
    std::string ExtractFileName;
    std::optional<int> EditHidden;
    std::optional<int> CompileHidden;
    std::optional<int> PlayHidden;
    std::optional<int> ExtractHidden;
    int PlayerChoice = 1;  ///< 0 Windows GUI, 1 Windows console, 2 MSDOS console
    int StartTab = 1;      ///< 1-based: Edit, Compile, Play, Spelling

    /// The compiler's include folders in search order, up to the first empty slot.
    std::array<std::string, includeSlots> IncludeFolders;
};

}  // namespace core
