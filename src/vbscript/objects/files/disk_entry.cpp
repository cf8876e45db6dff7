#include "vbscript/objects/files/disk_entry.h"

#include <limits>

#include "vbscript/objects/files/path_names.h"
#include "vbscript/value/convert.h"

namespace vbscript {
namespace {

// Bits of `Attributes`. A name that begins with a dot is hidden here.
constexpr std::int32_t kReadOnly = 1;
constexpr std::int32_t kHidden = 2;
constexpr std::int32_t kSystem = 4;
constexpr std::int32_t kDirectory = 16;
constexpr std::int32_t kArchive = 32;

}  // namespace

Value DiskEntry::attributes() const {
    const DiskStatus entry = status();
    std::int32_t bits = entry.is_folder ? kDirectory : kArchive;
    if (entry.is_read_only) {
        bits |= kReadOnly;
    }
    if (path_.filename().native().starts_with('.')) {
        bits |= kHidden;
    }
    return Value(bits);
}

Value DiskEntry::let_attributes(Arguments& arguments) {
    const std::int32_t bits = arguments.number(0);
    constexpr std::int32_t kKnown = kReadOnly | kHidden | kSystem | kDirectory | kArchive;
    if ((bits & ~kKnown) != 0) {
        throw ScriptError(ErrorNumber::InvalidProcedureCall);
    }
    const bool read_only = (bits & kReadOnly) != 0;
    if (status().is_read_only != read_only) {
        set_read_only(path_, read_only);
    }
    return {};
}

Value DiskEntry::date_created() const {
    return Value(status().created);
}

Value DiskEntry::date_last_accessed() const {
    return Value(status().accessed);
}

Value DiskEntry::date_last_modified() const {
    return Value(status().modified);
}

Value DiskEntry::drive() const {
    return drive_object(disk_);
}

Value DiskEntry::name() const {
    return Value(from_utf8(path_.filename().native()));
}

Value DiskEntry::let_name(Arguments& arguments) {
    const std::u16string name = arguments.text(0);
    if (file_name_of(name) != name) {
        throw ScriptError(ErrorNumber::BadFileNameOrNumber);
    }
    move_to(disk_->target(build_path(script_name(path_.parent_path()), name)));
    return {};
}

Value DiskEntry::parent_folder() const {
    if (path_ == path_.root_path()) {
        return Value(Ref<Object>());
    }
    return folder_object(disk_, path_.parent_path());
}

Value DiskEntry::path() const {
    return Value(script_name(path_));
}

Value DiskEntry::move(Arguments& arguments) {
    static_cast<void>(status());
    move_to(destination_of(*disk_, arguments.text(0), path_));
    return {};
}

DiskStatus DiskEntry::status() const {
    const auto status = status_of(path_);
    if (!status) {
        throw ScriptError(missing_);
    }
    return *status;
}

void DiskEntry::move_to(const Disk::Path& target) {
    move_entry(path_, target);
    path_ = target;
}

Value byte_count(std::uintmax_t bytes) {
    if (bytes > static_cast<std::uintmax_t>(std::numeric_limits<std::int32_t>::max())) {
        return Value(static_cast<double>(bytes));
    }
    return Value(static_cast<std::int32_t>(bytes));
}

Disk::Path destination_of(const Disk& disk, std::u16string_view name, const Disk::Path& source) {
    if (!name.empty() && is_path_separator(name.back())) {
        return disk.folder(name) / source.filename();
    }
    return disk.target(name);
}

}  // namespace vbscript
