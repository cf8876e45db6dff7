#pragma once

#include "vbscript/objects/class_registry.h"
#include "vbscript/objects/console.h"
#include "vbscript/objects/files/disk_objects.h"

namespace vbscript {

// `Scripting.FileSystemObject`. Shared by the values that hold it. Members throw what `Disk`
// throws.
class FileSystemObject final : public NativeObject {
  public:
    // `console` may be null, else it outlives the object.
    FileSystemObject(SharedDisk disk, Console* console) noexcept
        : disk_(std::move(disk)), console_(console) {}

    // Names alone:
    Value build_path(Arguments& arguments);
    Value get_absolute_path_name(Arguments& arguments);
    Value get_base_name(Arguments& arguments);
    Value get_drive_name(Arguments& arguments);
    Value get_extension_name(Arguments& arguments);
    Value get_file_name(Arguments& arguments);
    Value get_parent_folder_name(Arguments& arguments);
    Value get_temp_name();

    // Questions and objects:
    Value drives();
    Value drive_exists(Arguments& arguments);
    Value file_exists(Arguments& arguments);
    Value folder_exists(Arguments& arguments);
    Value get_drive(Arguments& arguments);
    Value get_file(Arguments& arguments);
    Value get_file_version(Arguments& arguments);
    Value get_folder(Arguments& arguments);
    Value get_special_folder(Arguments& arguments);
    Value get_standard_stream(Arguments& arguments);

    // Changes:
    Value copy_file(Arguments& arguments);
    Value copy_folder(Arguments& arguments);
    Value create_folder(Arguments& arguments);
    Value create_text_file(Arguments& arguments);
    Value delete_file(Arguments& arguments);
    Value delete_folder(Arguments& arguments);
    Value move_file(Arguments& arguments);
    Value move_folder(Arguments& arguments);
    Value open_text_file(Arguments& arguments);

  protected:
    [[nodiscard]] const NativeClass& native_class() const noexcept override;

  private:
    SharedDisk disk_;
    Console* console_;
};

// Adds `Scripting.FileSystemObject`. Relative names begin at `current_folder`, the program's own
// one when it is empty. `console` may be null, else it outlives the objects.
void add_file_classes(ClassRegistry& registry, Disk::Path current_folder, Console* console);

}  // namespace vbscript
