#pragma once

#include <dirent.h>

#include "platform/linux/disk/host_path.h"

namespace platform {

/// Returns the running program's folder.
HostPath folderOfProgram();

/// Returns the folder that an environment variable names, or the folder `inHome` in the user's home
/// if that is not an absolute path: a game's folder must not provide settings or programs.
HostPath userFolder(const char* variable, const std::string& inHome);

/// Renames unless the new name exists. Returns false with errno set on failure.
bool renameToNew(const HostPath& from, const HostPath& to);

/// True if an error number of a look-up tells that there is no such file. After any other one,
/// nobody knows.
bool tellsOfNoFile(int error);

/// Opens a folder for listing, if possible without updating its access time, which would cost a
/// write to the disk. Returns null on failure.
DIR* openFolder(const HostPath& path);

}  // namespace platform
