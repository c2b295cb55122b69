#include "platform/windows/script_check.h"

#include <algorithm>

#include "core/text.h"

namespace platform {

namespace {

[[noreturn]] void refuse(const std::string& reason) {
    throw core::Refusal("Nothing was started: " + reason);
}

[[noreturn]] void refuse(std::string_view name, char character) {
    const std::string shown =
        character < ' ' && character >= 0 ? "a control character" : core::quoted({&character, 1});
    refuse("the command interpreter would treat " + shown + " in the name " + core::quoted(name) +
           " as a command. Rename the file or folder, or move it.");
}

std::string_view trimmed(std::string_view text) {
    const auto first = std::min(text.find_first_not_of(' '), text.size());
    return text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

/// Returns the name in the line that begins at or after `start` and contains the character at
/// `place`. Quotes, an option or another "<" end it.
std::string_view nameAround(std::string_view line, std::size_t start, std::size_t place) {
    const std::string_view text = line.substr(start);
    const std::size_t ends[] = {text.find('"', place - start), text.find(" -", place - start),
                                text.find(" <", place - start)};
    return trimmed(text.substr(0, *std::min_element(std::begin(ends), std::end(ends))));
}

}  // namespace

void checkLine(std::string_view line) {
    bool inQuotes = false;
    bool readsFile = false;
    std::size_t nameStart = 0;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        const bool isControl = c < ' ' && c >= 0;
        if (c == '%' || isControl) refuse(nameAround(line, nameStart, i), c);
        if (c == '"') {
            inQuotes = !inQuotes;
            nameStart = i + 1;
        }
        if (inQuotes) continue;
        if (line.substr(i).starts_with(" -")) nameStart = i + 1;
        if (c == '<' && !readsFile) {
            readsFile = true;
            nameStart = i + 1;
        } else if (std::string_view("&|^><").find(c) != std::string_view::npos) {
            refuse(nameAround(line, nameStart, i), c);
        }
    }
}

std::string folderOfScript(std::string_view script) {
    constexpr std::string_view changeFolder = "cd ";
    std::string place;
    while (!script.empty()) {
        const std::size_t end = std::min(script.find('\n'), script.size());
        std::string_view line = script.substr(0, end);
        script.remove_prefix(std::min(end + 1, script.size()));
        if (line.ends_with('\r')) line.remove_suffix(1);

        checkLine(line);
        if (!line.empty() && core::drivePart(line) == line) place = line;
        if (!line.starts_with(changeFolder)) continue;
        std::string folder(line.substr(changeFolder.size()));
        std::erase(folder, '"');
        if (folder.starts_with('/')) refuse(folder, '/');
        if (folder.starts_with("\\\\")) {
            refuse("the command interpreter cannot go to a folder without a drive, such as " +
                   folder + ". Give it a drive letter.");
        }
        place += folder;
    }
    return place;
}

}  // namespace platform
