#pragma once

#include <dirent.h>

#include <cstdint>

#include "platform/linux/disk/host_path.h"

namespace platform {

/// Returns the running program's folder.
HostPath folderOfProgram();

/// Renames unless the new name exists. Returns false with errno set on failure.
bool renameToNew(const HostPath& from, const HostPath& to);

/// Opens a folder for listing, if possible without updating its access time, which would cost a
/// write to the disk. Returns null on failure.
DIR* openFolder(const HostPath& path);

/// Returns a file's creation time in nanoseconds, or 0 if the file system does not store it.
std::int64_t createdAt(const HostPath& path);

}  // namespace platform
