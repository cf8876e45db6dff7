#pragma once

#include <string>
#include <string_view>

// What a path says by its letters alone, without a look at the disk. Backslashes and slashes
// separate alike; "C:" and "\\server\share" in front are drives.
namespace vbscript {

[[nodiscard]] constexpr bool is_path_separator(char16_t unit) noexcept {
    return unit == u'\\' || unit == u'/';
}

[[nodiscard]] std::u16string_view drive_name_of(std::u16string_view path) noexcept;

// The last component; "" for a root.
[[nodiscard]] std::u16string_view file_name_of(std::u16string_view path) noexcept;

// The file name up to its last dot.
[[nodiscard]] std::u16string_view base_name_of(std::u16string_view path) noexcept;

// The file name behind its last dot; "" without one.
[[nodiscard]] std::u16string_view extension_name_of(std::u16string_view path) noexcept;

// All but the last component; the root of "\a", "" for a single name and for a root.
[[nodiscard]] std::u16string_view parent_folder_name_of(std::u16string_view path) noexcept;

// Both with one separator between them.
[[nodiscard]] std::u16string build_path(std::u16string_view folder, std::u16string_view name);

[[nodiscard]] bool has_wildcards(std::u16string_view name) noexcept;

// '*' stands for any units, '?' for one; case does not count, and "*.*" is every name.
[[nodiscard]] bool matches_wildcards(std::u16string_view name,
                                     std::u16string_view pattern) noexcept;

}  // namespace vbscript
