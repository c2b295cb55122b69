#include "forms/file_lists.h"

#include <algorithm>
#include <cctype>
#include <sstream>
#include <utility>

#include "forms/application.h"

namespace forms {

namespace {

std::string lowered(std::string text) {
    std::ranges::transform(text, text.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

std::string driveOf(const std::string& path) {
    return lowered(path.substr(0, 2));
}

/// Returns the full path of a folder, without "." and "..", where only a root ends in a backslash.
/// A bare drive means its root. A path that begins below no root begins in the current folder, or
/// in the root of its drive if that is another one. A path without a drive stays as it is.
std::string fullPath(std::string path, Disk& disk) {
    std::ranges::replace(path, '/', '\\');
    if (path.size() < 2 || path[1] != ':') return path;
    const std::string drive = path.substr(0, 2);
    if (path.size() > 2 && path[2] != '\\') {
        const std::string current = disk.currentFolder();
        path = (driveOf(current) == driveOf(drive) ? current : drive) + '\\' + path.substr(2);
    }
    std::vector<std::string> names;
    std::istringstream rest(path.substr(2));
    for (std::string name; std::getline(rest, name, '\\');) {
        if (name == ".." && !names.empty()) names.pop_back();
        if (!name.empty() && name != "." && name != "..") names.push_back(name);
    }
    std::string full = drive;
    for (const std::string& name : names)
        full += '\\' + name;
    return names.empty() ? drive + '\\' : full;
}

/// Returns the folder that the lists start on: the current one, or the first drive's root if that
/// is on none of the drives.
std::string startFolder(Disk& disk, const std::vector<std::string>& drives) {
    const std::string current = fullPath(disk.currentFolder(), disk);
    const bool onDrive = std::ranges::find(drives, driveOf(current)) != drives.end();
    return onDrive || drives.empty() ? current : fullPath(drives.front(), disk);
}

}  // namespace

DriveList::DriveList(Container& parent, Definition definition, Disk& disk)
    : Control(&parent, std::move(definition)),
      drives_(disk.drives()),
      drive_(driveOf(startFolder(disk, drives_))) {}

void DriveList::select(const std::string& drive) {
    const std::string selected = lowered(drive);
    if (selected == drive_) return;
    if (std::ranges::find(drives_, selected) == drives_.end()) {
        throw RuntimeError("There is no drive " + drive);
    }
    const std::string before = std::exchange(drive_, selected);
    try {
        changed(Effect::Raise);
    } catch (const RuntimeError&) {
        drive_ = before;  // the handler failed, so the drive is not selected
        draw();
        throw;
    }
}

void DriveList::pick(int index) {
    if (index >= 0 && index < static_cast<int>(drives_.size()))
        act([&] { select(drives_[index]); });
}

FolderList::FolderList(Container& parent, Definition definition, Disk& disk)
    : Control(&parent, std::move(definition)), disk_(disk) {
    const std::string start = startFolder(disk, disk.drives());
    try {
        fill(start, disk_.folders(start));
    } catch (const RuntimeError&) {
        fill(start, {});  // the user can still go up from here
    }
}

void FolderList::open(const std::string& path) {
    const std::string opened = fullPath(path, disk_);
    if (opened == path_) return;
    fill(opened, disk_.folders(opened));
    changed(Effect::Raise);
}

void FolderList::fill(const std::string& path, std::vector<std::string> inside) {
    std::ranges::sort(inside, [](const std::string& one, const std::string& other) {
        return lowered(one) < lowered(other);
    });
    const std::string root = path.substr(0, 2) + '\\';
    rows_ = {{root, 0, root}};
    std::size_t start = root.size();
    while (start < path.size()) {
        const std::size_t end = std::min(path.find('\\', start), path.size());
        rows_.push_back(
            {path.substr(start, end - start), static_cast<int>(rows_.size()), path.substr(0, end)});
        start = end + 1;
    }
    path_ = path;
    openRow_ = static_cast<int>(rows_.size()) - 1;
    const std::string stem = path.ends_with('\\') ? path : path + '\\';
    for (const std::string& name : inside)
        rows_.push_back({name, openRow_ + 1, stem + name});
    draw();
}

void FolderList::choose(int row) {
    if (row >= 0 && row < static_cast<int>(rows_.size()))
        act([&] { open(std::string(rows_[row].path)); });
}

void DriveList::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}
void FolderList::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

}  // namespace forms
