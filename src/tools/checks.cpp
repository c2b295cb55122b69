#include "tools/checks.h"

#include "core/module1.h"
#include "core/text.h"
#include "tools/command_script.h"

namespace tools {

using core::exists;
using core::Runtime;

namespace {

constexpr const char* noShortPath =
    "its path has no short form of up to 254 characters. Give the file a name of one to eight "
    "characters, or move it nearer to the root of its drive.";
constexpr const char* noShortName =
    "its drive keeps no short form of the name, and the tool would take a name with blanks for "
    "several. Give the file a name of at most eight characters, or one without blanks.";

}  // namespace

bool requireProgram(Runtime& runtime, std::string_view before, const std::string& path,
                    std::string_view after) {
    if (exists(runtime, path)) return true;
    runtime.rtcMsgBox(std::string(before).append(path).append(after), Runtime::okOnly);
    return false;
}

bool requireEditor(Runtime& runtime, const std::string& path) {
    return requireProgram(runtime, "Text Editor program ", path,
                          " not found. Please correct program location in Settings menu or select "
                          "'Notepad' option.");
}

std::string requireSource(Runtime& runtime, const std::string& fileBase) {
    for (const char* extension : {".kel", ".kelm"}) {
        if (exists(runtime, fileBase + extension)) return fileBase + extension;
    }
    runtime.rtcMsgBox("Kelm source code file " + core::quoted(fileBase + ".kel(m)") + " not found",
                      Runtime::okOnly);
    return {};
}

bool requireStem(Runtime& runtime, const std::string& stem, const std::string& file) {
    const bool isShort = core::length(stem) <= longestStem;
    const bool hasBlanks = stem.find(' ') != std::string::npos;
    if (stem.empty() ? stemOf(file).empty() : isShort || !hasBlanks) return true;
    runtime.rtcMsgBox("The file " + core::quoted(file) + " cannot be given to the tool: " +
                          (stem.empty() ? noShortPath : noShortName),
                      Runtime::okOnly);
    return false;
}

}  // namespace tools
