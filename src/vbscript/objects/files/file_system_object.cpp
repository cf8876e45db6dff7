#include "vbscript/objects/files/file_system_object.h"

#include <array>
#include <random>

#include "vbscript/objects/files/console_stream.h"
#include "vbscript/objects/files/path_names.h"

namespace vbscript {
namespace {

using Self = FileSystemObject;
using Paths = std::vector<Disk::Path>;

constexpr auto kMembers = std::to_array<NativeMember>({
    native_property<&Self::drives>(u"Drives"),
    native_method<&Self::build_path>(u"BuildPath", 2),
    native_method<&Self::copy_file>(u"CopyFile", 2, 1),
    native_method<&Self::copy_folder>(u"CopyFolder", 2, 1),
    native_method<&Self::create_folder>(u"CreateFolder", 1),
    native_method<&Self::create_text_file>(u"CreateTextFile", 1, 2),
    native_method<&Self::delete_file>(u"DeleteFile", 1, 1),
    native_method<&Self::delete_folder>(u"DeleteFolder", 1, 1),
    native_method<&Self::drive_exists>(u"DriveExists", 1),
    native_method<&Self::file_exists>(u"FileExists", 1),
    native_method<&Self::folder_exists>(u"FolderExists", 1),
    native_method<&Self::get_absolute_path_name>(u"GetAbsolutePathName", 1),
    native_method<&Self::get_base_name>(u"GetBaseName", 1),
    native_method<&Self::get_drive>(u"GetDrive", 1),
    native_method<&Self::get_drive_name>(u"GetDriveName", 1),
    native_method<&Self::get_extension_name>(u"GetExtensionName", 1),
    native_method<&Self::get_file>(u"GetFile", 1),
    native_method<&Self::get_file_name>(u"GetFileName", 1),
    native_method<&Self::get_file_version>(u"GetFileVersion", 1),
    native_method<&Self::get_folder>(u"GetFolder", 1),
    native_method<&Self::get_parent_folder_name>(u"GetParentFolderName", 1),
    native_method<&Self::get_special_folder>(u"GetSpecialFolder", 1),
    native_method<&Self::get_standard_stream>(u"GetStandardStream", 1, 1),
    native_method<&Self::get_temp_name>(u"GetTempName"),
    native_method<&Self::move_file>(u"MoveFile", 2),
    native_method<&Self::move_folder>(u"MoveFolder", 2),
    native_method<&Self::open_text_file>(u"OpenTextFile", 1, 3),
});

[[nodiscard]] Replace replace_of(const Arguments& arguments, std::size_t index) {
    return arguments.truth_or(index, true) ? Replace::Yes : Replace::No;
}

[[nodiscard]] Force force_of(const Arguments& arguments, std::size_t index) {
    return arguments.truth_or(index, false) ? Force::Yes : Force::No;
}

[[nodiscard]] bool is_root(std::u16string_view name) noexcept {
    return name == u"\\" || name == u"/";
}

// Does `action` with each source and the place where it goes. Several sources, or one that was
// found by wildcards, go into a folder.
template <typename Action>
void for_each_source(const Disk& disk, const Paths& sources, std::u16string_view pattern,
                     std::u16string name, const Action& action) {
    if (has_wildcards(file_name_of(pattern)) && !name.empty() && !is_path_separator(name.back())) {
        name += u'\\';
    }
    for (const Disk::Path& source : sources) {
        action(source, destination_of(disk, name, source));
    }
}

}  // namespace

const NativeClass& FileSystemObject::native_class() const noexcept {
    static const NativeClass kClass(u"FileSystemObject", kMembers);
    return kClass;
}

// --- names ---------------------------------------------------------------------------------------

Value FileSystemObject::build_path(Arguments& arguments) {
    return Value(vbscript::build_path(arguments.text(0), arguments.text(1)));
}

Value FileSystemObject::get_absolute_path_name(Arguments& arguments) {
    const std::u16string name = arguments.text(0);
    const auto path = disk_->find(name.empty() ? u"." : std::u16string_view(name));
    return Value(path ? script_name(*path) : name);
}

Value FileSystemObject::get_base_name(Arguments& arguments) {
    return Value(base_name_of(arguments.text(0)));
}

Value FileSystemObject::get_drive_name(Arguments& arguments) {
    return Value(drive_name_of(arguments.text(0)));
}

Value FileSystemObject::get_extension_name(Arguments& arguments) {
    return Value(extension_name_of(arguments.text(0)));
}

Value FileSystemObject::get_file_name(Arguments& arguments) {
    return Value(file_name_of(arguments.text(0)));
}

Value FileSystemObject::get_parent_folder_name(Arguments& arguments) {
    return Value(parent_folder_name_of(arguments.text(0)));
}

// The script's own random numbers stay as they are.
Value FileSystemObject::get_temp_name() {
    constexpr std::u16string_view kDigits = u"0123456789ABCDEF";
    constexpr int kLength = 5;
    std::random_device random;
    std::u16string name = u"rad";
    for (int i = 0; i < kLength; ++i) {
        name += kDigits[random() % kDigits.size()];
    }
    return Value(name + u".tmp");
}

// --- questions and objects -----------------------------------------------------------------------

Value FileSystemObject::drives() {
    return drive_list(disk_);
}

Value FileSystemObject::drive_exists(Arguments& arguments) {
    return Value(is_root(arguments.text(0)));
}

Value FileSystemObject::file_exists(Arguments& arguments) {
    return Value(disk_->has_file(arguments.text(0)));
}

Value FileSystemObject::folder_exists(Arguments& arguments) {
    return Value(disk_->has_folder(arguments.text(0)));
}

// Paths here have no drive in front, so that "" names the one that they are on.
Value FileSystemObject::get_drive(Arguments& arguments) {
    const std::u16string name = arguments.text(0);
    if (!name.empty() && !is_root(name)) {
        throw ScriptError(ErrorNumber::DeviceUnavailable);
    }
    return drive_object(disk_);
}

Value FileSystemObject::get_file(Arguments& arguments) {
    return file_object(disk_, disk_->file(arguments.text(0)));
}

// Files of this machine carry no version.
Value FileSystemObject::get_file_version(Arguments& arguments) {
    static_cast<void>(disk_->file(arguments.text(0)));
    return Value(u"");
}

Value FileSystemObject::get_folder(Arguments& arguments) {
    return folder_object(disk_, disk_->folder(arguments.text(0)));
}

Value FileSystemObject::get_special_folder(Arguments& arguments) {
    constexpr std::int32_t kLastKind = 2;
    constexpr std::int32_t kTemporary = 2;
    const std::int32_t kind = arguments.number(0);
    if (kind < 0 || kind > kLastKind) {
        throw ScriptError(ErrorNumber::InvalidProcedureCall);
    }
    if (kind != kTemporary) {
        throw ScriptError(ErrorNumber::PathNotFound);
    }
    return folder_object(disk_, disk_->temporary_folder());
}

Value FileSystemObject::get_standard_stream(Arguments& arguments) {
    constexpr auto kLast = static_cast<std::int32_t>(StandardStream::Error);
    const std::int32_t which = arguments.number(0);
    if (which < 0 || which > kLast) {
        throw ScriptError(ErrorNumber::InvalidProcedureCall);
    }
    if (console_ == nullptr) {
        throw ScriptError(ErrorNumber::BadFileNameOrNumber);
    }
    return Value(Ref<Object>(console_stream(*console_, static_cast<StandardStream>(which))));
}

// --- changes -------------------------------------------------------------------------------------

Value FileSystemObject::copy_file(Arguments& arguments) {
    const std::u16string pattern = arguments.text(0);
    const Replace replace = replace_of(arguments, 2);
    for_each_source(*disk_, disk_->matching_files(pattern), pattern, arguments.text(1),
                    [&](const Disk::Path& from, const Disk::Path& to) {
                        vbscript::copy_file(from, to, replace);
                    });
    return {};
}

Value FileSystemObject::copy_folder(Arguments& arguments) {
    const std::u16string pattern = arguments.text(0);
    const Replace replace = replace_of(arguments, 2);
    for_each_source(*disk_, disk_->matching_folders(pattern), pattern, arguments.text(1),
                    [&](const Disk::Path& from, const Disk::Path& to) {
                        vbscript::copy_folder(from, to, replace);
                    });
    return {};
}

Value FileSystemObject::create_folder(Arguments& arguments) {
    const Disk::Path folder = disk_->target(arguments.text(0));
    make_folder(folder);
    return folder_object(disk_, folder);
}

Value FileSystemObject::create_text_file(Arguments& arguments) {
    return create_text_stream(disk_->target(arguments.text(0)), arguments, 1);
}

Value FileSystemObject::delete_file(Arguments& arguments) {
    const Force force = force_of(arguments, 1);
    for (const Disk::Path& file : disk_->matching_files(arguments.text(0))) {
        vbscript::delete_file(file, force);
    }
    return {};
}

Value FileSystemObject::delete_folder(Arguments& arguments) {
    const Force force = force_of(arguments, 1);
    for (const Disk::Path& folder : disk_->matching_folders(arguments.text(0))) {
        vbscript::delete_folder(folder, force);
    }
    return {};
}

Value FileSystemObject::move_file(Arguments& arguments) {
    const std::u16string pattern = arguments.text(0);
    for_each_source(*disk_, disk_->matching_files(pattern), pattern, arguments.text(1), move_entry);
    return {};
}

Value FileSystemObject::move_folder(Arguments& arguments) {
    const std::u16string pattern = arguments.text(0);
    for_each_source(*disk_, disk_->matching_folders(pattern), pattern, arguments.text(1),
                    move_entry);
    return {};
}

Value FileSystemObject::open_text_file(Arguments& arguments) {
    constexpr std::size_t kMode = 1;
    constexpr std::size_t kCreate = 2;
    constexpr std::size_t kFormat = 3;
    const Disk::Path file = disk_->target(arguments.text(0));
    if (!status_of(file)) {
        if (!arguments.truth_or(kCreate, false)) {
            throw ScriptError(ErrorNumber::FileNotFound);
        }
        // A file to read that is made first is an empty one.
        if (arguments.number_or(kMode, 1) == 1) {
            Arguments none(arguments.context(), {});
            static_cast<void>(create_text_stream(file, none, 0));
        }
    }
    return open_text_stream(file, arguments, kMode, kFormat);
}

void add_file_classes(ClassRegistry& registry, Disk::Path current_folder, Console* console) {
    const auto disk = std::make_shared<const Disk>(std::move(current_folder));
    registry.add(u"Scripting.FileSystemObject", [disk, console](Context&) -> Ref<Object> {
        return make<FileSystemObject>(disk, console);
    });
}

}  // namespace vbscript
