#include "home/file_descriptor.h"

#include <unistd.h>

namespace home {

FileDescriptor::~FileDescriptor() {
    if (is_open()) {
        ::close(number_);
    }
}

}  // namespace home
