#pragma once

#include <filesystem>

#include "home/file_descriptor.h"

namespace home {

// The sole right to change the files of a folder, among programs and objects that ask for it: a
// lock on the folder itself, waited for, which ends with the object or the process. Held for one
// change; never while the pump runs.
class FolderLock {
  public:
    // A folder that is not there gives no lock, and nothing to change.
    // Throws: RunTimeError 57 with the folder.
    explicit FolderLock(const std::filesystem::path& folder);

  private:
    FileDescriptor folder_;
};

}  // namespace home
