#include "platform/linux/launch/text_editor.h"

#include <array>
#include <cstdlib>
#include <optional>

#include "core/runtime.h"
#include "platform/linux/launch/desktop_entry.h"
#include "platform/linux/launch/search_path.h"
#include "platform/linux/launch/shell_words.h"

namespace platform {

namespace {

constexpr std::array graphicalEditors = {
    "gnome-text-editor", "gedit",   "kate",    "kwrite", "mousepad", "xed", "pluma",
    "featherpad",        "l3afpad", "leafpad",
};

/// Returns the editor with this command, which may contain arguments, or nullopt if it is missing.
std::optional<Invocation> editor(const char* command, const std::string& file, bool inTerminal) {
    Invocation program;
    program.words = shellWords(command);
    program.inTerminal = inTerminal;
    if (program.words.empty()) return {};
    program.words[0] = onSearchPath(program.words[0]);
    if (program.words[0].empty()) return {};
    if (!file.empty()) program.words.push_back(file);
    return program;
}

}  // namespace

Invocation textEditor(const std::string& file) {
    if (auto program = defaultProgram("text/plain", file)) return *program;
    for (const char* name : graphicalEditors)
        if (auto program = editor(name, file, false)) return *program;
    const std::array<const char*, 3> commands = {std::getenv("VISUAL"), std::getenv("EDITOR"),
                                                 "editor"};
    for (const char* command : commands) {
        if (command == nullptr) continue;
        if (auto program = editor(command, file, true)) return *program;
    }
    throw core::Refusal(
        "No text editor was found. Install one, for example mousepad or nano, or name yours in the "
        "environment variable VISUAL or EDITOR.");
}

}  // namespace platform
