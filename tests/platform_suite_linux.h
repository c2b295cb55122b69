#pragma once

#include "linux_desktop.h"
#include "platform/linux/linux_runtime.h"

/// Linux under the suite: the place is a folder of drive c:, and scripts run without a terminal.
class System : public LinuxDesktop {
  protected:
    using Runtime = platform::LinuxRuntime;

    System() {
        fs::create_directories(place);
        fs::current_path(place);
        program(home / "bin/uxterm",
                "#!/bin/sh\nwhile [ $1 != -e ]; do shift; done\nshift; exec \"$@\"\n");
        setVariable("TERMINAL", home / "bin/uxterm");
    }
    static void setVariable(const char* name, const std::string& value) {
        setenv(name, value.c_str(), 1);
    }
    static Runtime makeRuntime(const Runtime::MessageBox& box) {
        return Runtime(box, NWBW_PROGRAMS);
    }

    /// A hidden file's name begins with a dot here.
    static std::string hide(const fs::path& file) {
        const std::string name = '.' + file.filename().string();
        fs::rename(file, file.parent_path() / name);
        return name;
    }
    /// Files are UTF-8 here, and what is not stays as it is.
    static constexpr const char* oldText = "m\xe4rchen";

    const fs::path place = c / "suite";
    const std::string folder = "c:\\suite";
};
