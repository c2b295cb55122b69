#pragma once

#include <dirent.h>

#include <cstdint>
#include <string>

namespace platform {

/// Returns the host path of the running program's folder.
std::string folderOfProgram();

/// Renames unless the new name exists. Returns false with errno set on failure.
bool renameToNew(const std::string& from, const std::string& to);

/// Opens a folder for listing, if possible without updating its access time, which would cost a
/// write to the disk. Returns null on failure.
DIR* openFolder(const std::string& path);

/// Returns a file's creation time in nanoseconds, or 0 if the file system does not store it.
std::int64_t createdAt(const std::string& path);

}  // namespace platform
