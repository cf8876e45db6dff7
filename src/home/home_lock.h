#pragma once

#include <filesystem>

#include "home/file_descriptor.h"

namespace home {

// The right to run the one daemon of a home, held as a lock on Data/daemon.lock with the process
// id inside. Ends with the object or the process, however that ends.
class HomeLock {
  public:
    // The home must be laid out. Throws: RunTimeError 70 "... is in use by process 123", 53 without
    // the folder Data, 57 for the rest.
    explicit HomeLock(const std::filesystem::path& home);

  private:
    FileDescriptor file_;
};

}  // namespace home
