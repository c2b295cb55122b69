#include "platform/linux/disk/files.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <QDir>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace platform {

HostPath folderOfProgram() {
    std::error_code failed;
    return HostPath(std::filesystem::read_symlink("/proc/self/exe", failed).parent_path());
}

HostPath userFolder(const char* variable, const std::string& inHome) {
    const char* set = std::getenv(variable);
    if (set != nullptr && *set == '/') return HostPath(set);
    return HostPath(QDir::homePath().toStdString()) / inHome;
}

bool renameToNew(const HostPath& from, const HostPath& to) {
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return true;
    if (errno != EINVAL && errno != ENOSYS) return false;
    // The file system cannot do this in one step.
    struct stat state = {};
    if (lstat(to.c_str(), &state) == 0) {
        errno = EEXIST;
        return false;
    }
    return std::rename(from.c_str(), to.c_str()) == 0;
}

bool tellsOfNoFile(int error) {
    return error == ENOENT || error == ENOTDIR || error == ENAMETOOLONG;
}

DIR* openFolder(const HostPath& path) {
    constexpr int flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
    int handle = open(path.c_str(), flags | O_NOATIME);
    // Only the folder's owner may do that.
    if (handle < 0 && errno == EPERM) handle = open(path.c_str(), flags);
    return handle < 0 ? nullptr : fdopendir(handle);
}

}  // namespace platform
