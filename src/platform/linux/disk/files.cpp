#include "platform/linux/disk/files.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

namespace platform {

HostPath folderOfProgram() {
    std::error_code failed;
    return HostPath(std::filesystem::read_symlink("/proc/self/exe", failed).parent_path());
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

DIR* openFolder(const HostPath& path) {
    constexpr int flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
    int handle = open(path.c_str(), flags | O_NOATIME);
    // Only the folder's owner may do that.
    if (handle < 0 && errno == EPERM) handle = open(path.c_str(), flags);
    return handle < 0 ? nullptr : fdopendir(handle);
}

std::int64_t createdAt(const HostPath& path) {
    struct statx state = {};  // the time stays 0 where the file system does not know it
    statx(AT_FDCWD, path.c_str(), AT_SYMLINK_NOFOLLOW, STATX_BTIME, &state);
    return state.stx_btime.tv_sec * 1'000'000'000LL + state.stx_btime.tv_nsec;
}

}  // namespace platform
