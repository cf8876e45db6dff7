#include <array>

#include "vbscript/objects/files/disk_collections.h"
#include "vbscript/objects/files/disk_entry.h"
#include "vbscript/objects/files/path_names.h"

namespace vbscript {
namespace {

// `Folder`.
class Folder final : public DiskEntry {
  public:
    Folder(SharedDisk disk, Disk::Path path) noexcept
        : DiskEntry(std::move(disk), std::move(path), ErrorNumber::PathNotFound) {}

    Value size() const {
        static_cast<void>(status());
        return byte_count(size_of_folder(disk_path()));
    }

    Value type() const { return Value(u"File Folder"); }

    Value is_root_folder() const { return Value(disk_path() == disk_path().root_path()); }

    Value files() const { return file_collection(disk(), disk_path()); }

    Value sub_folders() const { return folder_collection(disk(), disk_path()); }

    Value copy(Arguments& arguments);
    Value remove(Arguments& arguments);
    Value create_text_file(Arguments& arguments);

  protected:
    [[nodiscard]] const NativeClass& native_class() const noexcept override;
};

constexpr auto kMembers = std::to_array<NativeMember>({
    native_property<&Folder::path>(u"Path"),
    native_property<&Folder::name, &Folder::let_name>(u"Name"),
    native_property<&Folder::size>(u"Size"),
    native_property<&Folder::type>(u"Type"),
    native_property<&Folder::files>(u"Files"),
    native_property<&Folder::sub_folders>(u"SubFolders"),
    native_property<&Folder::is_root_folder>(u"IsRootFolder"),
    native_property<&Folder::attributes, &Folder::let_attributes>(u"Attributes"),
    native_property<&Folder::date_created>(u"DateCreated"),
    native_property<&Folder::date_last_accessed>(u"DateLastAccessed"),
    native_property<&Folder::date_last_modified>(u"DateLastModified"),
    native_property<&Folder::drive>(u"Drive"),
    native_property<&Folder::parent_folder>(u"ParentFolder"),
    native_property<&Folder::name>(u"ShortName"),
    native_property<&Folder::path>(u"ShortPath"),
    native_method<&Folder::copy>(u"Copy", 1, 1),
    native_method<&Folder::move>(u"Move", 1),
    native_method<&Folder::remove>(u"Delete", 0, 1),
    native_method<&Folder::create_text_file>(u"CreateTextFile", 1, 2),
});

const NativeClass& Folder::native_class() const noexcept {
    static const NativeClass kClass(u"Folder", kMembers, u"Path");
    return kClass;
}

Value Folder::copy(Arguments& arguments) {
    static_cast<void>(status());
    copy_folder(disk_path(), destination_of(*disk(), arguments.text(0), disk_path()),
                arguments.truth_or(1, true) ? Replace::Yes : Replace::No);
    return {};
}

Value Folder::remove(Arguments& arguments) {
    static_cast<void>(status());
    delete_folder(disk_path(), arguments.truth_or(0, false) ? Force::Yes : Force::No);
    return {};
}

Value Folder::create_text_file(Arguments& arguments) {
    const std::u16string name = arguments.text(0);
    return create_text_stream(disk()->target(build_path(script_name(disk_path()), name)), arguments,
                              1);
}

}  // namespace

Value folder_object(const SharedDisk& disk, Disk::Path folder) {
    return Value(Ref<Object>(make<Folder>(disk, std::move(folder))));
}

}  // namespace vbscript
