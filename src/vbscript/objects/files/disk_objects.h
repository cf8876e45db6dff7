#pragma once

#include <memory>
#include <string_view>

#include "vbscript/objects/files/disk.h"
#include "vbscript/objects/native_object.h"

// How the objects that stand for files make one another.
namespace vbscript {

using SharedDisk = std::shared_ptr<const Disk>;

[[nodiscard]] Value file_object(const SharedDisk& disk, Disk::Path file);
[[nodiscard]] Value folder_object(const SharedDisk& disk, Disk::Path folder);
[[nodiscard]] Value drive_object(const SharedDisk& disk);
[[nodiscard]] Value drive_list(const SharedDisk& disk);

// A count of bytes: a Long, or a Double where that is too small.
[[nodiscard]] Value byte_count(std::uintmax_t bytes);

// Where something named `name` goes: into an existing folder when `name` ends with a separator,
// else to that very name.
[[nodiscard]] Disk::Path destination_of(const Disk& disk, std::u16string_view name,
                                        const Disk::Path& source);

// `OpenTextFile` and its like: mode 1, 2 or 8 in argument `index`, then the format 0, -1 or -2.
// Throws: ScriptError 5 for other numbers, and what opening throws.
[[nodiscard]] Value open_text_stream(const Disk::Path& file, Arguments& arguments,
                                     std::size_t mode_index, std::size_t format_index);

// `CreateTextFile`: whether to replace in argument `index`, then whether in Unicode.
[[nodiscard]] Value create_text_stream(const Disk::Path& file, Arguments& arguments,
                                       std::size_t index);

}  // namespace vbscript
