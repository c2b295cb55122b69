#pragma once

#include <dirent.h>

#include <cstdint>
#include <string>
#include <vector>

#include "platform/posix/invocation.h"

/// What differs among systems with a Unix in them. The library of each system implements it.
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

/// Returns the user's terminal, ready to run the words in it, in a maximised window if it supports
/// that. Throws RuntimeError if no terminal is found.
Invocation inTerminal(const std::vector<std::string>& words, bool maximised);

/// Returns the user's text editor, ready to open `file`, a host path or empty: the desktop's
/// default, else a known graphical one, else the one that the environment names for the terminal.
/// Throws RuntimeError if no editor is found.
Invocation textEditor(const std::string& file);

}  // namespace platform
