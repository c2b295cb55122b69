// A command is split into words at blanks outside quotes, and spawns the program that it names or
// none.

#include "platform/linux/launch/command_line.h"

#include <algorithm>
#include <span>

#include "check.h"
#include "core/runtime.h"
#include "core/text.h"
#include "platform/linux/launch/launcher.h"
#include "test_drives.h"

namespace {

using fuzz::check;
using platform::CommandLine;

void checkWords(const CommandLine& line, std::string_view text) {
    check(line.words.size() <= text.size() / 2 + 1, "words have something between them");
    std::string again;
    for (const std::string& word : line.words) {
        check(word.find('"') == std::string::npos, "quotes fall away");
        again += core::quoted(word) + ' ';
    }
    if (line.input) again += '<' + core::quoted(*line.input);
    const CommandLine parsed(again);
    check(parsed.words == line.words, "quoted words come back as they are");
    check(parsed.input == line.input, "the input comes back as it is");
    check(CommandLine(" \t" + std::string(text)).words == line.words,
          "blanks in front are nothing");
    check(line.rest.find('"') == std::string::npos, "a name holds no quotes");
}

/// A command may spawn the programs in bin and any given by its path.
void checkStart(fuzz::TestDrives& installed, const CommandLine& line) {
    try {
        const auto start = platform::Launcher(installed.disk).prepare(line);
        const std::string& program = start.words.front();
        if (start.inTerminal) {  // the editor
            check(program == installed.bin + "ed" && start.words[1] == "-w",
                  "the editor is the user's");
            check(start.words.size() == 2 || start.words[2].starts_with('/'), "it gets a path");
            check(start.words.size() <= 3, "of one file");
            return;
        }
        const bool named = line.words.front().find_first_of("\\/:") != std::string::npos;
        check(program.starts_with(named ? installed.home.string() : installed.bin),
              "what is named starts");
        check(start.words.size() == line.words.size(), "and gets the words meant for it");
    } catch (const core::RuntimeError& refused) {
        check(*refused.what() != '\0', "a refusal says why");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    static fuzz::TestDrives installed({"drive_c/kelm/tool.exe", "drive_c/My Games/wizardquest.kel",
                                       "drive_c/My Games/ed", "drive_d/x", "bin/ed", "bin/ls"});
    std::string_view input(reinterpret_cast<const char*>(data), size);
    const unsigned kind = fuzz::choice(input) % 4;
    const CommandLine line(input);
    checkWords(line, input);

    constexpr const char* programs[] = {"c:\\kelm\\tool.exe", "ls", "Notepad"};
    if (kind == std::size(programs)) {
        const bool leavesDrives = !line.words.empty() && line.words.front().starts_with('/');
        if (!leavesDrives) checkStart(installed, line);
        return 0;
    }
    const std::string program = programs[kind];
    const CommandLine command(core::quoted(program) + ' ' + std::string(input));
    check(command.words.front() == program, "the first word is the program");
    check(std::ranges::equal(line.words, std::span(command.words).subspan(1)),
          "the others are its arguments");
    checkStart(installed, command);
    return 0;
}
