#pragma once

#include <string>
#include <vector>

#include "forms/controls.h"
#include "forms/disk.h"

/// The two kinds of control that show the disk.
namespace forms {

/// A list of the disk's drives. Initially selects the current drive, or the first if the current
/// folder is on none of them.
class DriveList : public Control {
  public:
    DriveList(Container& parent, Definition definition, Disk& disk);
    void accept(ControlVisitor& visitor) override;

    /// The selected drive, as "c:". Assigning a drive that does not exist throws RuntimeError.
    struct DriveProperty {
        DriveList& list;
        operator const std::string&() const { return list.drive_; }
        const std::string& operator()() const { return list.drive_; }
        void operator=(const std::string& drive) { list.select(drive); }
    } Drive{*this};

    [[nodiscard]] const std::vector<std::string>& drives() const { return drives_; }

    /// The user selects the drive at index, which is 0-based.
    void pick(int index);

  protected:
    void clicked() override {}

  private:
    void select(const std::string& drive);

    const std::vector<std::string> drives_;
    std::string drive_;
};

/// A list of folders: the ancestors of Path and Path itself, each indented below the previous one,
/// then the folders inside it. Initially shows the current folder, or the first drive if that is on
/// none of them.
class FolderList : public Control {
  public:
    struct Row {
        std::string name;
        int depth;  ///< indentation level, from 0
        std::string path;
    };

    FolderList(Container& parent, Definition definition, Disk& disk);
    void accept(ControlVisitor& visitor) override;
    [[nodiscard]] bool takesEnter() const override { return true; }

    /// The folder whose contents are listed: a full path, without a trailing backslash unless it is
    /// a drive's root. Assigning completes a path that is relative to a drive's current folder. A
    /// folder that cannot be read throws RuntimeError and leaves the list unchanged.
    struct PathProperty {
        FolderList& list;
        operator const std::string&() const { return list.path_; }
        const std::string& operator()() const { return list.path_; }
        void operator=(const std::string& path) { list.open(path); }
    } Path{*this};

    [[nodiscard]] const std::vector<Row>& rows() const { return rows_; }
    /// The 0-based row of the folder whose contents are listed.
    [[nodiscard]] int openRow() const { return openRow_; }

    /// The user opens the folder of the 0-based row, by a double click or Enter.
    void choose(int row);

  protected:
    void clicked() override {}

  private:
    void open(const std::string& path);
    void fill(const std::string& path, std::vector<std::string> inside);

    Disk& disk_;
    std::string path_;
    std::vector<Row> rows_;
    int openRow_ = 0;
};

}  // namespace forms
