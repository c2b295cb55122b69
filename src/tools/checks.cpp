#include "tools/checks.h"

#include "core/module1.h"
#include "core/text.h"

namespace tools {

using core::exists;
using core::Runtime;

bool requireProgram(Runtime& runtime, std::string_view before, const std::string& path,
                    std::string_view behind) {
    if (exists(runtime, path)) return true;
    runtime.rtcMsgBox(std::string(before).append(path).append(behind), Runtime::okOnly);
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

}  // namespace tools
