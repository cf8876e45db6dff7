#include "vbscript/objects/files/disk_collections.h"

#include <array>

#include "vbscript/objects/files/path_names.h"

namespace vbscript {
namespace {

using Path = Disk::Path;
using MakeObject = Value (*)(const SharedDisk& disk, Path path);

// Makes the object of an entry when the loop gets to it.
class EntryEnumerator final : public Enumerator {
  public:
    EntryEnumerator(SharedDisk disk, std::vector<Path> paths, MakeObject make_object) noexcept
        : disk_(std::move(disk)), paths_(std::move(paths)), make_object_(make_object) {}

    std::optional<Value> next() override {
        if (place_ == paths_.size()) {
            return std::nullopt;
        }
        return make_object_(disk_, paths_[place_++]);
    }

  private:
    SharedDisk disk_;
    std::vector<Path> paths_;
    MakeObject make_object_;
    std::size_t place_ = 0;
};

[[nodiscard]] Value count_of(const std::vector<Path>& paths) {
    return Value(static_cast<std::int32_t>(paths.size()));
}

// `Files`.
class Files final : public NativeObject {
  public:
    Files(SharedDisk disk, Path folder) noexcept
        : disk_(std::move(disk)), folder_(std::move(folder)) {}

    [[nodiscard]] std::unique_ptr<Enumerator> enumerate(Context& /*context*/) override {
        return std::make_unique<EntryEnumerator>(disk_, files_in(folder_), file_object);
    }

    Value count() const { return count_of(files_in(folder_)); }

    Value item(Arguments& arguments) {
        const std::u16string name = arguments.text(0);
        return file_object(disk_, disk_->file(build_path(script_name(folder_), name)));
    }

  protected:
    [[nodiscard]] const NativeClass& native_class() const noexcept override;

  private:
    SharedDisk disk_;
    Path folder_;
};

// `Folders`.
class Folders final : public NativeObject {
  public:
    Folders(SharedDisk disk, Path folder) noexcept
        : disk_(std::move(disk)), folder_(std::move(folder)) {}

    [[nodiscard]] std::unique_ptr<Enumerator> enumerate(Context& /*context*/) override {
        return std::make_unique<EntryEnumerator>(disk_, folders_in(folder_), folder_object);
    }

    Value count() const { return count_of(folders_in(folder_)); }

    Value item(Arguments& arguments) {
        const std::u16string name = arguments.text(0);
        return folder_object(disk_, disk_->folder(build_path(script_name(folder_), name)));
    }

    Value add(Arguments& arguments) {
        const std::u16string name = arguments.text(0);
        const Path path = disk_->target(build_path(script_name(folder_), name));
        make_folder(path);
        return folder_object(disk_, path);
    }

  protected:
    [[nodiscard]] const NativeClass& native_class() const noexcept override;

  private:
    SharedDisk disk_;
    Path folder_;
};

constexpr auto kFilesMembers = std::to_array<NativeMember>({
    native_property<&Files::item>(u"Item", 1),
    native_property<&Files::count>(u"Count"),
});

constexpr auto kFoldersMembers = std::to_array<NativeMember>({
    native_property<&Folders::item>(u"Item", 1),
    native_property<&Folders::count>(u"Count"),
    native_method<&Folders::add>(u"Add", 1),
});

const NativeClass& Files::native_class() const noexcept {
    static const NativeClass kClass(u"Files", kFilesMembers, u"Item");
    return kClass;
}

const NativeClass& Folders::native_class() const noexcept {
    static const NativeClass kClass(u"Folders", kFoldersMembers, u"Item");
    return kClass;
}

}  // namespace

Value file_collection(const SharedDisk& disk, Path folder) {
    return Value(Ref<Object>(make<Files>(disk, std::move(folder))));
}

Value folder_collection(const SharedDisk& disk, Path folder) {
    return Value(Ref<Object>(make<Folders>(disk, std::move(folder))));
}

}  // namespace vbscript
