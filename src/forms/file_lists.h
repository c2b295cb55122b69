#pragma once

#include <string>
#include <vector>

#include "forms/controls.h"
#include "forms/disk.h"

/// The two kinds of control that show the disk.
namespace forms {

/// A list of the disk's drives. It starts on the current one, or on the first if the current folder
/// lies on none.
class DriveList : public Control {
  public:
    DriveList(Container& parent, Definition definition, Disk& disk);
    void accept(ControlVisitor& visitor) override;

    /// The selected drive, as "c:". Selecting one that does not exist throws RuntimeError.
    struct DriveProperty {
        DriveList& list;
        operator const std::string&() const { return list.drive_; }
        const std::string& operator()() const { return list.drive_; }
        void operator=(const std::string& drive) { list.select(drive); }
    } Drive{*this};

    [[nodiscard]] const std::vector<std::string>& drives() const { return drives_; }

    /// The user selects the drive at index, from 0.
    void pick(int index);

  protected:
    void clicked() override {}

  private:
    void select(const std::string& drive);

    const std::vector<std::string> drives_;
    std::string drive_;
};

/// A list of folders: those that lead to Path, each indented under the one before, then those
/// inside it. It starts on the current folder, or on the first drive if that lies on none.
class FolderList : public Control {
  public:
    struct Row {
        std::string name;
        int depth;  ///< how far it is indented, from 0
        std::string path;
    };

    FolderList(Container& parent, Definition definition, Disk& disk);
    void accept(ControlVisitor& visitor) override;
    [[nodiscard]] bool takesEnter() const override { return true; }

    /// The folder whose contents are listed: a full path, without a backslash at its end unless it
    /// is a drive's root. Setting it to one that cannot be read throws RuntimeError and leaves the
    /// list where it was.
    struct PathProperty {
        FolderList& list;
        operator const std::string&() const { return list.path_; }
        const std::string& operator()() const { return list.path_; }
        void operator=(const std::string& path) { list.open(path); }
    } Path{*this};

    [[nodiscard]] const std::vector<Row>& rows() const { return rows_; }
    /// The row of the folder whose contents are listed, from 0.
    [[nodiscard]] int openRow() const { return openRow_; }

    /// The user opens the folder of the row, from 0, by a double click or by Enter.
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
