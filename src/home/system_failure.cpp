#include "home/system_failure.h"

#include <cerrno>
#include <string>
#include <system_error>

#include "automation/code_page.h"

namespace home {
namespace {

using automation::ErrorNumber;

ErrorNumber number_of(int error) {
    switch (error) {
        case EACCES:
        case EPERM:
        case EROFS:
            return ErrorNumber::PermissionDenied;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return ErrorNumber::DiskFull;
        case ENOENT:
            return ErrorNumber::FileNotFound;
        default:
            return ErrorNumber::DeviceIoError;
    }
}

}  // namespace

automation::RunTimeError system_failure(int error, std::string_view action,
                                        const std::filesystem::path& path) {
    const std::string reason = std::generic_category().message(error);
    return {number_of(error), std::string(action) + " " +
                                  automation::utf8_to_code_page(path.string()) + ": " + reason};
}

}  // namespace home
