#pragma once

#include "vbscript/objects/files/disk_objects.h"

// The collections of a folder. They look at the disk at each call.
namespace vbscript {

[[nodiscard]] Value file_collection(const SharedDisk& disk, Disk::Path folder);
[[nodiscard]] Value folder_collection(const SharedDisk& disk, Disk::Path folder);

}  // namespace vbscript
