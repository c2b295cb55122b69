#include "demo.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace tour {

namespace fs = std::filesystem;

namespace {

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

Demo::Demo(const fs::path& folder, const fs::path& program, const fs::path& driveC,
           const fs::path& notepad)
    : folder_(fs::canonical(folder)),
      program_(folder_ / program),
      driveC_(folder_ / driveC),
      notepad_(folder_ / notepad) {}

std::unique_ptr<Child> Demo::start() const {
    return std::make_unique<Child>(std::vector<std::string>{(folder_ / "start").string()});
}

std::string Demo::text(const std::string& path) const {
    return read(place(path));
}

fs::path Demo::place(const std::string& path) const {
    if (!path.starts_with("c:\\")) return program_ / path;
    std::string rest = path.substr(3);
    std::ranges::replace(rest, '\\', '/');
    return driveC_ / rest;
}

fs::path Demo::recordOf(const std::string& program) const {
    const fs::path place = program == "notepad" ? notepad_ : this->place(program);
    return fs::path(place).replace_extension(".record");
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

namespace {

/// This system's program with its emulated drives.
class LinuxDemo : public Demo {
  public:
    explicit LinuxDemo(const fs::path& folder)
        : Demo(folder, "program", "home/data/nwbw/drive_c", "desktop/notepad") {}

    [[nodiscard]] System system() const override {
        // The tools are native programs, which get long names.
        return {.splash = "nwbw",
                .terminal = " - Norvane Workbench",
                .library = "c:\\kelm\\standard library",
                .games = "c:\\my games",
                .quest = "wizardquest",
                .caveListing = "c:\\my games\\cave.lis"};
    }

  protected:
    [[nodiscard]] std::string withDrive(std::string line) const override {
        const std::size_t at = line.find(driveC().string());
        if (at == std::string::npos) return line;
        std::string path = line.substr(at + driveC().string().size());
        std::ranges::replace(path, '/', '\\');
        return line.substr(0, at) + "c:" + path;
    }
};

/// The Windows program under Wine.
class WineDemo : public Demo {
  public:
    explicit WineDemo(const fs::path& folder)
        : Demo(folder, "wine/drive_c/nwbw", "wine/drive_c",
               "wine/drive_c/windows/system32/notepad") {}
    ~WineDemo() override { Child({(folder() / "start").string(), "--end"}).wait(); }

    [[nodiscard]] System system() const override {
        return {.splash = "",
                .terminal = "C:\\windows\\system32\\cmd.exe",
                .library = "c:\\kelm\\STAN~2VR",
                .games = "c:\\MY_G~I5E",
                .quest = "WIZA~XWU",
                .caveListing = "cave.lis"};
    }

  protected:
    [[nodiscard]] std::string withDrive(std::string line) const override {
        if (const std::size_t at = line.find("C:\\"); at != std::string::npos) line[at] = 'c';
        return line;
    }
};

}  // namespace

std::unique_ptr<Demo> makeDemo(const fs::path& folder, const fs::path& project,
                               const fs::path& build) {
    const fs::path maker = project / "scripts" / "make-demo";
    if (Child({maker.string(), folder.string(), build.string()}).wait() != 0)
        throw std::runtime_error("the demo could not be made");
    if (fs::exists(build / "bin/nwbw.exe")) return std::make_unique<WineDemo>(folder);
    return std::make_unique<LinuxDemo>(folder);
}

}  // namespace tour
