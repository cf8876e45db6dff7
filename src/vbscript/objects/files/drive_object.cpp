#include <sys/statfs.h>
#include <sys/statvfs.h>

#include <algorithm>
#include <array>

#include "vbscript/objects/files/disk_objects.h"

namespace vbscript {
namespace {

constexpr std::u16string_view kRoot = u"\\";

struct FileSystemName {
    std::int64_t magic;
    std::u16string_view name;
};

constexpr auto kFileSystems = std::to_array<FileSystemName>({
    {0xEF53, u"ext4"},
    {0x58465342, u"xfs"},
    {0x9123683E, u"btrfs"},
    {0x01021994, u"tmpfs"},
    {0x794C7630, u"overlay"},
    {0x6969, u"nfs"},
    {0x2FC12FC1, u"zfs"},
});

// `Drive`: the one that all files of this machine are on.
class Drive final : public NativeObject {
  public:
    explicit Drive(SharedDisk disk) noexcept : disk_(std::move(disk)) {}

    Value path() const { return Value(kRoot); }

    Value empty_text() const { return Value(u""); }

    Value drive_type() const {
        constexpr std::int32_t kFixed = 2;
        return Value(kFixed);
    }

    Value is_ready() const { return Value(true); }

    Value root_folder() const { return folder_object(disk_, disk_->folder(kRoot)); }

    Value total_size() const {
        const struct statvfs space = numbers();
        return Value(static_cast<double>(space.f_blocks) * static_cast<double>(space.f_frsize));
    }

    Value free_space() const {
        const struct statvfs space = numbers();
        return Value(static_cast<double>(space.f_bfree) * static_cast<double>(space.f_frsize));
    }

    Value available_space() const {
        const struct statvfs space = numbers();
        return Value(static_cast<double>(space.f_bavail) * static_cast<double>(space.f_frsize));
    }

    Value serial_number() const {
        return Value(static_cast<std::int32_t>(static_cast<std::uint32_t>(numbers().f_fsid)));
    }

    Value file_system() const;

  protected:
    [[nodiscard]] const NativeClass& native_class() const noexcept override;

  private:
    [[nodiscard]] struct statvfs numbers() const {
        struct statvfs space {};

        if (::statvfs(disk_->folder(kRoot).c_str(), &space) != 0) {
            throw ScriptError(ErrorNumber::DiskNotReady);
        }
        return space;
    }

    SharedDisk disk_;
};

Value Drive::file_system() const {
    struct statfs status {};

    if (::statfs(disk_->folder(kRoot).c_str(), &status) != 0) {
        throw ScriptError(ErrorNumber::DiskNotReady);
    }
    const auto* row = std::ranges::find(kFileSystems, static_cast<std::int64_t>(status.f_type),
                                        &FileSystemName::magic);
    return Value(row == kFileSystems.end() ? std::u16string_view(u"Unknown") : row->name);
}

constexpr auto kDriveMembers = std::to_array<NativeMember>({
    native_property<&Drive::path>(u"Path"),
    native_property<&Drive::empty_text>(u"DriveLetter"),
    native_property<&Drive::drive_type>(u"DriveType"),
    native_property<&Drive::file_system>(u"FileSystem"),
    native_property<&Drive::is_ready>(u"IsReady"),
    native_property<&Drive::root_folder>(u"RootFolder"),
    native_property<&Drive::serial_number>(u"SerialNumber"),
    native_property<&Drive::empty_text>(u"ShareName"),
    native_property<&Drive::empty_text>(u"VolumeName"),
    native_property<&Drive::total_size>(u"TotalSize"),
    native_property<&Drive::free_space>(u"FreeSpace"),
    native_property<&Drive::available_space>(u"AvailableSpace"),
});

const NativeClass& Drive::native_class() const noexcept {
    static const NativeClass kClass(u"Drive", kDriveMembers, u"Path");
    return kClass;
}

// `Drives`: that one.
class Drives final : public NativeObject {
  public:
    explicit Drives(SharedDisk disk) noexcept : disk_(std::move(disk)) {}

    [[nodiscard]] std::unique_ptr<Enumerator> enumerate(Context& /*context*/) override {
        return std::make_unique<ListEnumerator>(std::vector<Value>{drive_object(disk_)});
    }

    Value count() const { return Value(std::int32_t{1}); }

    Value item(Arguments& arguments) {
        const std::u16string name = arguments.text(0);
        if (name != kRoot && name != u"/") {
            throw ScriptError(ErrorNumber::DeviceUnavailable);
        }
        return drive_object(disk_);
    }

  protected:
    [[nodiscard]] const NativeClass& native_class() const noexcept override;

  private:
    SharedDisk disk_;
};

constexpr auto kDrivesMembers = std::to_array<NativeMember>({
    native_property<&Drives::item>(u"Item", 1),
    native_property<&Drives::count>(u"Count"),
});

const NativeClass& Drives::native_class() const noexcept {
    static const NativeClass kClass(u"Drives", kDrivesMembers, u"Item");
    return kClass;
}

}  // namespace

Value drive_object(const SharedDisk& disk) {
    return Value(Ref<Object>(make<Drive>(disk)));
}

Value drive_list(const SharedDisk& disk) {
    return Value(Ref<Object>(make<Drives>(disk)));
}

}  // namespace vbscript
