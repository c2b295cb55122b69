#include "core/module1.h"

#include "core/settings_file.h"
#include "core/text.h"

namespace core {

void Main(Program& program, const std::function<void()>& showSplash) {
    showSplash();
    LoadSettings(program);
    program.settingsGuard.checkFolder();
}

bool exists(Runtime& runtime, const std::string& path) {
    return !path.empty() && !runtime.rtcDir(path).empty();
}

std::string GetShortName(Runtime& runtime, const std::string& path) {
    constexpr std::size_t longest = 254;  // the system's buffer without the final zero
    const std::string shortPath = runtime.GetShortPathName(path);
    return length(shortPath) <= longest ? shortPath : "";
}

}  // namespace core
