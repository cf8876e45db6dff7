#include "platform/system/shared_library.h"

#include <dlfcn.h>

#include <utility>

#include "automation/run_time_error.h"

namespace platform {

SharedLibrary::SharedLibrary(std::string purpose, const char* name)
    : purpose_(std::move(purpose)), name_(name) {
    if (::dlopen(name, RTLD_NOW | RTLD_LOCAL) == nullptr) {
        fail(name);
    }
}

// The loader counts further calls and gives the same library.
SharedLibrary::Address SharedLibrary::address_of(const char* name) const {
    auto* const library = ::dlopen(name_.c_str(), RTLD_NOW | RTLD_LOCAL);
    auto* const address = library != nullptr ? ::dlsym(library, name) : nullptr;
    if (address == nullptr) {
        fail(name);
    }
    return reinterpret_cast<Address>(address);
}

void SharedLibrary::fail(const char* otherwise) const {
    const char* const reason = ::dlerror();
    throw automation::RunTimeError(automation::ErrorNumber::ActiveXCannotCreateObject,
                                   purpose_ + ": " + (reason != nullptr ? reason : otherwise));
}

}  // namespace platform
