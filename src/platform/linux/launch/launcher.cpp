#include "platform/linux/launch/launcher.h"

#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

#include "core/runtime.h"
#include "platform/linux/disk/case_fold.h"
#include "platform/linux/launch/argument_map.h"
#include "platform/linux/launch/search_path.h"
#include "platform/linux/launch/text_editor.h"

namespace platform {

namespace {

enum class Kind { Host, Windows, Unknown };

Kind kindOf(const HostPath& program) {
    std::ifstream file(program.text(), std::ios::binary);
    // A file that may be executed but not read can only be a host program.
    if (!file) return access(program.c_str(), X_OK) == 0 ? Kind::Host : Kind::Unknown;
    std::string text(4, '\0');
    file.read(text.data(), 4);
    if (text == "\177ELF" || text.starts_with("#!")) return Kind::Host;
    return text.starts_with("MZ") ? Kind::Windows : Kind::Unknown;
}

bool isFile(const HostPath& path) {
    struct stat state = {};
    return stat(path.c_str(), &state) == 0 && S_ISREG(state.st_mode);
}

bool isNotepad(const std::string& name) {
    return equalIgnoringCase(name, "notepad") || equalIgnoringCase(name, "notepad.exe");
}

}  // namespace

HostPath Launcher::find(const std::string& name) {
    if (name.empty()) throw core::Refusal("Cannot start a program: none is named.");
    if (name.find_first_of("\\/:") == std::string::npos) {
        std::string program = onSearchPath(name);
        if (program.empty()) refuseToStart(name, "there is no such program on the search path.");
        return HostPath(std::move(program));
    }
    const auto program = disk_.toHost(name);
    if (!program || !isFile(*program)) refuseToStart(name, "there is no such program.");
    return *program;
}

Invocation Launcher::editorFor(const std::string& file) {
    if (file.empty()) return textEditor("");
    const auto host = disk_.toHost(file);
    if (!host) refuseToStart("notepad " + file, "there is no such place.");
    return textEditor(host->text());
}

Invocation Launcher::viaWine(const std::string& name, const HostPath& program) {
    const std::string wine = onSearchPath("wine");
    if (wine.empty()) {
        throw core::Refusal(name + " is a Windows program, and Wine is not installed.");
    }
    return {{wine, disk_.toWindows(program)}, disk_.drives().prefix().text(), false};
}

Invocation Launcher::prepare(const CommandLine& command) {
    const std::string name = command.words.empty() ? "" : command.words.front();
    if (isNotepad(name)) return editorFor(command.rest);

    const HostPath program = find(name);
    std::vector<std::string> arguments(command.words.begin() + 1, command.words.end());
    Invocation invocation;
    switch (kindOf(program)) {
        case Kind::Host:
            if (access(program.c_str(), X_OK) != 0) refuseToStart(name, "it may not be executed.");
            invocation.words = {program.text()};
            ArgumentMap(disk_, name).toHost(arguments);
            break;
        case Kind::Windows:
            invocation = viaWine(name, program);
            ArgumentMap(disk_, name).toLongNames(arguments);
            break;
        case Kind::Unknown:
            refuseToStart(name, "it is not a program that runs here.");
    }
    invocation.words.insert(invocation.words.end(), arguments.begin(), arguments.end());
    return invocation;
}

}  // namespace platform
