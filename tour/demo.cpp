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

Demo::Demo(const fs::path& folder, const fs::path& project, const fs::path& build) {
    const fs::path maker = project / "scripts" / "make-demo";
    if (Child({maker.string(), folder.string(), build.string()}).wait() != 0)
        throw std::runtime_error("the demo could not be made");
    folder_ = fs::canonical(folder);
    driveC_ = folder_ / "home/data/nwbw/drive_c";
}

std::unique_ptr<Child> Demo::start() const {
    return std::make_unique<Child>(std::vector<std::string>{(folder_ / "start").string()});
}

std::string Demo::text(const std::string& path) const {
    return read(place(path));
}

fs::path Demo::place(const std::string& path) const {
    if (!path.starts_with("c:\\")) return folder_ / "program" / path;
    std::string rest = path.substr(3);
    std::replace(rest.begin(), rest.end(), '\\', '/');
    return driveC_ / rest;
}

fs::path Demo::recordOf(const std::string& program) const {
    const fs::path place =
        program == "notepad" ? folder_ / "desktop" / program : this->place(program);
    return fs::path(place).replace_extension(".record");
}

std::vector<std::string> Demo::lastCall(const std::string& program) const {
    std::vector<std::string> call;
    for (std::string line : lines(read(recordOf(program)))) {
        if (line.starts_with("run ")) call.clear();
        if (const auto at = line.find(driveC_.string()); at != std::string::npos) {
            std::string path = line.substr(at + driveC_.string().size());
            std::replace(path.begin(), path.end(), '/', '\\');
            line.replace(at, std::string::npos, "c:" + path);
        }
        call.push_back(line);
    }
    return call;
}

void Demo::forgetCalls(const std::string& program) const {
    fs::remove(recordOf(program));
}

}  // namespace tour
