// Any batch script is parsed into its lines; only "exit", "pause", a drive and "cd" are not names
// of programs.

#include <algorithm>
#include <map>
#include <string>

#include "check.h"
#include "core/text.h"
#include "platform/posix/batch_script.h"
#include "platform/posix/case_fold.h"
#include "platform/posix/command_line.h"

using platform::BatchLine;

static void checkLine(const BatchLine& line) {
    using Kind = BatchLine::Kind;
    using fuzz::check;
    static const std::map<Kind, std::string_view> words = {
        {Kind::ChangeFolder, "cd"}, {Kind::Pause, "pause"}, {Kind::Exit, "exit"}};
    check(!line.text.empty() && platform::trimmed(line.text) == line.text, "a line says something");
    check(line.text.find('\n') == std::string::npos, "a line is one line");
    if (const auto word = words.find(line.kind); word != words.end()) {
        const std::string start = line.text.substr(0, word->second.size());
        check(platform::sameButForCase(start, word->second), "a command starts with its word");
    }
    if (line.kind == Kind::Drive)
        check(line.text.ends_with(':') && core::length(line.text.substr(1)) == 1,
              "a drive is one character");
    if (line.kind == Kind::ChangeFolder)
        check(line.text.size() > 2 && line.folder.find('"') == std::string::npos,
              "cd has a folder");
    else
        check(line.folder.empty(), "only cd has a folder");
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string_view script(reinterpret_cast<const char*>(data), size);
    const std::vector<BatchLine> lines = platform::parseBatch(script);

    std::string again;
    std::size_t from = 0;
    for (const BatchLine& line : lines) {
        checkLine(line);
        const std::size_t at = script.find(line.text, from);
        fuzz::check(at != std::string_view::npos, "the lines are those of the script, in order");
        from = at + line.text.size();
        again += line.text + "\r\n";
    }
    const std::vector<BatchLine> parsed = platform::parseBatch(again);
    const auto same = [](const BatchLine& one, const BatchLine& other) {
        return one.text == other.text && one.kind == other.kind && one.folder == other.folder;
    };
    fuzz::check(std::equal(lines.begin(), lines.end(), parsed.begin(), parsed.end(), same),
                "a script of these lines says the same");
    return 0;
}
