#pragma once

#include <filesystem>
#include <string_view>

#include "home/file_descriptor.h"

namespace home {

// The right to run the one program of a kind on a home, held as a lock on a file of Data with the
// process id inside. Ends with the object or the process, however that ends.
class HomeLock {
  public:
    // `file` is "daemon.lock" or the like. The home must be laid out. Throws: RunTimeError 70 "...
    // is in use by process 123", 53 without the folder Data, 57 for the rest.
    HomeLock(const std::filesystem::path& home, std::string_view file);

  private:
    FileDescriptor file_;
};

}  // namespace home
