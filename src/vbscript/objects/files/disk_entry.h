#pragma once

#include "vbscript/objects/files/disk_objects.h"

namespace vbscript {

// What `File` and `Folder` have in common: an entry of the disk by its path. It keeps nothing open;
// once the entry has gone, its members are error 53 for a file and 76 for a folder.
class DiskEntry : public NativeObject {
  public:
    Value attributes() const;
    Value let_attributes(Arguments& arguments);
    Value date_created() const;
    Value date_last_accessed() const;
    Value date_last_modified() const;
    Value drive() const;
    Value name() const;
    Value let_name(Arguments& arguments);
    Value parent_folder() const;
    Value path() const;
    Value move(Arguments& arguments);

  protected:
    DiskEntry(SharedDisk disk, Disk::Path path, ErrorNumber missing) noexcept
        : disk_(std::move(disk)), path_(std::move(path)), missing_(missing) {}

    [[nodiscard]] const SharedDisk& disk() const noexcept { return disk_; }

    [[nodiscard]] const Disk::Path& disk_path() const noexcept { return path_; }

    [[nodiscard]] DiskStatus status() const;

  private:
    void move_to(const Disk::Path& target);

    SharedDisk disk_;
    Disk::Path path_;
    ErrorNumber missing_;
};

}  // namespace vbscript
