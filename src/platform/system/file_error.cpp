#include "platform/system/file_error.h"

#include <array>
#include <cerrno>
#include <string>

namespace platform {
namespace {

using automation::ErrorNumber;

struct Translation {
    std::errc system;
    ErrorNumber number;
};

constexpr std::array kTranslations{
    Translation{std::errc::no_such_file_or_directory, ErrorNumber::FileNotFound},
    Translation{std::errc::not_a_directory, ErrorNumber::PathNotFound},
    Translation{std::errc::filename_too_long, ErrorNumber::PathNotFound},
    Translation{std::errc::permission_denied, ErrorNumber::PermissionDenied},
    Translation{std::errc::operation_not_permitted, ErrorNumber::PermissionDenied},
    Translation{std::errc::read_only_file_system, ErrorNumber::PermissionDenied},
    Translation{std::errc::is_a_directory, ErrorNumber::PermissionDenied},
    Translation{std::errc::text_file_busy, ErrorNumber::PermissionDenied},
    Translation{std::errc::no_space_on_device, ErrorNumber::DiskFull},
    Translation{std::errc::file_too_large, ErrorNumber::DiskFull},
    Translation{std::errc::file_exists, ErrorNumber::FileAlreadyExists},
};

ErrorNumber number_of(std::error_code error) {
    if (error == std::error_code(EDQUOT, std::generic_category())) {
        return ErrorNumber::DiskFull;
    }
    for (const Translation& row : kTranslations) {
        if (error == row.system) {
            return row.number;
        }
    }
    return ErrorNumber::DeviceIoError;
}

bool folder_is_missing(const std::optional<std::filesystem::path>& on_disk) {
    if (!on_disk) {
        return true;
    }
    std::error_code ignored;
    return on_disk->has_parent_path() &&
           !std::filesystem::is_directory(on_disk->parent_path(), ignored);
}

}  // namespace

automation::RunTimeError file_error(std::error_code error, std::string_view path,
                                    const std::optional<std::filesystem::path>& on_disk) {
    ErrorNumber number = number_of(error);
    if (number == ErrorNumber::FileNotFound && folder_is_missing(on_disk)) {
        number = ErrorNumber::PathNotFound;
    }
    return {number, automation::standard_description(number) + ": " + std::string(path)};
}

automation::RunTimeError last_file_error(std::string_view path,
                                         const std::optional<std::filesystem::path>& on_disk) {
    return file_error({errno, std::generic_category()}, path, on_disk);
}

}  // namespace platform
