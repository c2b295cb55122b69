// A script is parsed into its lines. Of all that it says, nothing is started but the programs that
// its lines name in full, and the editor that stands for Notepad.

#include <spawn.h>
#include <unistd.h>

#include <algorithm>
#include <sstream>

#include "check.h"
#include "platform/linux/disk/case_fold.h"
#include "platform/linux/launch/batch_interpreter.h"
#include "test_drives.h"

namespace {

using fuzz::check;
namespace fs = std::filesystem;

void checkLines(std::string_view script) {
    const auto lines = platform::parseBatch(script);
    std::string again;
    for (const auto& line : lines)
        again += line.text + "\r\n";
    const auto same = [](const auto& one, const auto& other) {
        return one.text == other.text && one.kind == other.kind && one.folder == other.folder;
    };
    check(std::ranges::equal(lines, platform::parseBatch(again), same),
          "a script of these lines says the same");
}

/// Drives with programs under the names that a line could be taken for.
struct Programs : fuzz::TestDrives {
    Programs()
        : TestDrives({"drive_c/kelm/tool.exe", "drive_c/kelm/cd",
                      "drive_c/My Games/:", "drive_c/My Games/1:", "drive_c/My Games/cd",
                      "drive_c/My Games/x", "drive_c/My Games/tool.exe",
                      "drive_c/My Games/kelm/tool.exe", "drive_c/My Games/notepad", "drive_d/x",
                      "drive_d/pause", "bin/ed", "bin/tool.exe", "bin/x", "bin/cd", "bin/exit"}) {}

    std::vector<std::string> lines;  ///< of the script, without those that have started a program
};

Programs& programs() {
    static Programs instance;
    return instance;
}

/// Returns the program that a line may start in the current folder, or an empty string.
std::string programOf(std::string_view line) {
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    if (!line.starts_with('"')) {
        const std::string_view word = line.substr(0, line.find_first_of(" \t\r"));
        return platform::equalIgnoringCase(word, "notepad") ? programs().bin + "ed" : "";
    }
    const std::string_view name = line.substr(1, line.find('"', 1) - 1);
    const bool hasFolder = name.find_first_of("\\/") != std::string_view::npos;
    const auto host = programs().disk.toHost(name);
    return hasFolder && host ? host->text() : "";
}

}  // namespace

/// Replaces the system's: checks the program, which ends well at once.
extern "C" int posix_spawn(pid_t* process, const char* path, const posix_spawn_file_actions_t*,
                           const posix_spawnattr_t*, char* const*, char* const*) {
    auto& lines = programs().lines;
    const auto line =
        std::ranges::find_if(lines, [&](const auto& text) { return programOf(text) == path; });
    check(line != lines.end(), "what starts is named with its folder, once for each start");
    lines.erase(line);
    *process = getpid();  // nobody's child
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string_view script(reinterpret_cast<const char*>(data), size);
    checkLines(script);

    auto& lines = programs().lines;
    lines.clear();
    fuzz::forEachPiece(script, '\n', [&](std::string_view line) { lines.emplace_back(line); });
    fs::current_path(programs().c / "My Games");
    std::istringstream in;
    std::ostringstream out;
    platform::BatchInterpreter(programs().disk, in, out).run(script);
    return 0;
}
