#include "demo.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace tour {

namespace fs = std::filesystem;

namespace {

/// This system's program with its emulated drives. The tools are native programs, which get long
/// names.
const System onLinux{.program = "program",
                     .driveC = "home/data/nwbw/drive_c",
                     .notepad = "desktop/notepad",
                     .splash = "nwbw",
                     .terminal = " - Norvane Workbench",
                     .library = "c:\\kelm\\standard library",
                     .games = "c:\\my games",
                     .quest = "wizardquest",
                     .caveListing = "c:\\my games\\cave.lis"};
const System underWine{.program = "wine/drive_c/nwbw",
                       .driveC = "wine/drive_c",
                       .notepad = "wine/drive_c/windows/system32/notepad",
                       .splash = "",
                       .terminal = "C:\\windows\\system32\\cmd.exe",
                       .library = "c:\\kelm\\STAN~2VR",
                       .games = "c:\\MY_G~I5E",
                       .quest = "WIZA~XWU",
                       .caveListing = "cave.lis"};

std::string read(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace

std::vector<std::string> lines(const std::string& text) {
    std::vector<std::string> all;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        if (line.ends_with('\r')) line.pop_back();
        all.push_back(line);
    }
    return all;
}

Demo::Demo(const fs::path& folder, const fs::path& project, const fs::path& build)
    : system_(fs::exists(build / "bin/nwbw.exe") ? underWine : onLinux) {
    const fs::path maker = project / "scripts" / "make-demo";
    if (Child({maker.string(), folder.string(), build.string()}).wait() != 0)
        throw std::runtime_error("the demo could not be made");
    folder_ = fs::canonical(folder);
}

Demo::~Demo() {
    if (&system_ == &underWine) Child({(folder_ / "start").string(), "--end"}).wait();
}

std::unique_ptr<Child> Demo::start() const {
    return std::make_unique<Child>(std::vector<std::string>{(folder_ / "start").string()});
}

std::string Demo::text(const std::string& path) const {
    return read(place(path));
}

fs::path Demo::place(const std::string& path) const {
    if (!path.starts_with("c:\\")) return folder_ / system_.program / path;
    std::string rest = path.substr(3);
    std::ranges::replace(rest, '\\', '/');
    return folder_ / system_.driveC / rest;
}

fs::path Demo::recordOf(const std::string& program) const {
    return (program == "notepad" ? folder_ / system_.notepad : place(program))
        .replace_extension(".record");
}

/// Converts a path in a line of a record to a path on drive c.
std::string Demo::withDrive(std::string line) const {
    for (const std::string& drive : {(folder_ / system_.driveC).string(), std::string("C:")}) {
        const std::size_t at = line.find(drive);
        if (at == std::string::npos) continue;
        line.replace(at, drive.size(), "c:");
        std::replace(line.begin() + static_cast<std::ptrdiff_t>(at), line.end(), '/', '\\');
    }
    return line;
}

std::vector<std::string> Demo::lastCall(const std::string& program) const {
    std::vector<std::string> call;
    for (const std::string& line : lines(read(recordOf(program)))) {
        if (line.starts_with("run ")) call.clear();
        call.push_back(withDrive(line));
    }
    return call;
}

void Demo::forgetCalls(const std::string& program) const {
    fs::remove(recordOf(program));
}

}  // namespace tour
