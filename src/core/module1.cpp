#include "core/module1.h"

#include "core/settings_file.h"
#include "core/text.h"

namespace core {

static std::string cannotWrite(Runtime& runtime) {
    return "NWB/w cannot write to its folder " + core::quoted(runtime.AppPath()) +
           ", so your settings will not be kept when you close NWB/w. (Copy NWB/w to a folder of "
           "your own to keep them.)";
}

void Main(Program& program, const std::function<void()>& showSplash) {
    showSplash();
    LoadSettings(program);
    program.folderIsReadOnly = !canWriteBeside(program.runtime);
    if (program.folderIsReadOnly)
        program.runtime.rtcMsgBox(cannotWrite(program.runtime), Runtime::exclamation);
}

bool canWriteBeside(Runtime& runtime) {
    const std::string probe = runtime.AppPath() + "\\~nwbwtry.tmp";
    try {
        runtime.vbaFileOpen(probe, Runtime::OpenMode::Output);
        runtime.vbaFileClose();
        runtime.rtcKillFiles(probe);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
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
