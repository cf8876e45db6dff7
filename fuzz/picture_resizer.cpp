#include <filesystem>
#include <fstream>
#include <string>

#include "automation/run_time_error.h"
#include "fuzz/expect.h"
#include "platform/gd/gd_image_resizer.h"
#include "platform/gd/picture_file.h"
#include "platform/system/disk_files.h"

// Any bytes as a picture file that is to be shown smaller.
namespace {

namespace fs = std::filesystem;

// Larger pictures only take longer.
constexpr std::int64_t kMostPixels = 1'000'000;

// A folder for one run of the target.
class Folder {
  public:
    Folder() {
        std::string name = (fs::temp_directory_path() / "fuzz_picture_XXXXXX").string();
        fuzz::expect(::mkdtemp(name.data()) != nullptr, "there is a temporary folder");
        path_ = name;
    }

    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    ~Folder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }

    [[nodiscard]] std::string file(const char* name) const { return (path_ / name).string(); }

  private:
    fs::path path_;
};

std::string resized(host::ImageResizer& resizer, const Folder& folder) {
    const auto resize = resizer.create();
    resize->LoadFromFile(folder.file("in"));
    resize->set_Width(32);
    resize->DoResize();
    for (const char* name : {"out.jpg", "out.gif", "out.png", "out.bmp"}) {
        resize->SaveToFile(folder.file(name));
    }
    return folder.file("out.png");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Folder folder;
    static platform::DiskFiles files;
    static platform::GdImageResizer resizer(files);
    const std::string_view bytes = fuzz::as_text(data, size);
    const auto picture = platform::examine_picture(bytes);
    if (picture && picture->height > 0 && picture->width > kMostPixels / picture->height) {
        return 0;
    }
    std::ofstream(folder.file("in"), std::ios::binary) << bytes;
    try {
        const std::string made = files.read(resized(resizer, folder));
        const auto result = platform::examine_picture(made);
        fuzz::expect(picture.has_value(), "what is no picture is not resized");
        fuzz::expect(result && result->width == 32 && result->height > 0,
                     "a resized picture has the width that was asked for");
    } catch (const automation::RunTimeError& error) {
        fuzz::expect(error.is(automation::ErrorNumber::InvalidProcedureCall) ||
                         error.is(automation::ErrorNumber::OutOfMemory),
                     "a picture fails for what it is");
    }
    return 0;
}
