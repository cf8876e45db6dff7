#include <array>

#include "vbscript/objects/files/disk_entry.h"
#include "vbscript/objects/files/path_names.h"
#include "vbscript/value/convert.h"

namespace vbscript {
namespace {

// `File`.
class File final : public DiskEntry {
  public:
    File(SharedDisk disk, Disk::Path path) noexcept
        : DiskEntry(std::move(disk), std::move(path), ErrorNumber::FileNotFound) {}

    Value size() const { return byte_count(status().size); }

    Value type() const;
    Value copy(Arguments& arguments);
    Value remove(Arguments& arguments);
    Value open_as_text_stream(Arguments& arguments);

  protected:
    [[nodiscard]] const NativeClass& native_class() const noexcept override;
};

constexpr auto kMembers = std::to_array<NativeMember>({
    native_property<&File::path>(u"Path"),
    native_property<&File::name, &File::let_name>(u"Name"),
    native_property<&File::size>(u"Size"),
    native_property<&File::type>(u"Type"),
    native_property<&File::attributes, &File::let_attributes>(u"Attributes"),
    native_property<&File::date_created>(u"DateCreated"),
    native_property<&File::date_last_accessed>(u"DateLastAccessed"),
    native_property<&File::date_last_modified>(u"DateLastModified"),
    native_property<&File::drive>(u"Drive"),
    native_property<&File::parent_folder>(u"ParentFolder"),
    native_property<&File::name>(u"ShortName"),
    native_property<&File::path>(u"ShortPath"),
    native_method<&File::copy>(u"Copy", 1, 1),
    native_method<&File::move>(u"Move", 1),
    native_method<&File::remove>(u"Delete", 0, 1),
    native_method<&File::open_as_text_stream>(u"OpenAsTextStream", 0, 2),
});

const NativeClass& File::native_class() const noexcept {
    static const NativeClass kClass(u"File", kMembers, u"Path");
    return kClass;
}

Value File::type() const {
    const std::u16string name = script_name(disk_path());
    std::u16string text;
    for (const char16_t unit : extension_name_of(name)) {
        text += to_upper(unit);
    }
    return Value(text.empty() ? std::u16string(u"File") : text + u" File");
}

Value File::copy(Arguments& arguments) {
    static_cast<void>(status());
    copy_file(disk_path(), destination_of(*disk(), arguments.text(0), disk_path()),
              arguments.truth_or(1, true) ? Replace::Yes : Replace::No);
    return {};
}

Value File::remove(Arguments& arguments) {
    static_cast<void>(status());
    delete_file(disk_path(), arguments.truth_or(0, false) ? Force::Yes : Force::No);
    return {};
}

Value File::open_as_text_stream(Arguments& arguments) {
    static_cast<void>(status());
    return open_text_stream(disk_path(), arguments, 0, 1);
}

}  // namespace

Value file_object(const SharedDisk& disk, Disk::Path file) {
    return Value(Ref<Object>(make<File>(disk, std::move(file))));
}

}  // namespace vbscript
