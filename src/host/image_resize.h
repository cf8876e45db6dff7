#pragma once

#include <memory>
#include <string_view>

namespace host {

// One picture on its way from a file, through a new size, into another file; the platform's
// "SfImageResize.ImageResize". Owned by whoever made it, and used once. Paths carry backslashes.
class ImageResize {
  public:
    ImageResize() = default;
    ImageResize(const ImageResize&) = delete;
    ImageResize& operator=(const ImageResize&) = delete;
    virtual ~ImageResize() = default;

    // Throws: RunTimeError 53, 70, 76 or 57 for the file, 5 for what is no sound picture, 7 for one
    // that the component refuses for its size.
    virtual void LoadFromFile(std::string_view path) = 0;

    // The width wanted, in pixels; the height follows by itself, so that the picture keeps its
    // shape.
    virtual void set_Width(double pixels) = 0;

    // Blocks the thread while it works. Throws: RunTimeError 5 for a width that is none or without
    // a picture, 7 for more than the component makes.
    virtual void DoResize() = 0;

    // Replaces the file. Its extension chooses the format.
    // Throws: RunTimeError 5 for an extension that the component does not write or without a
    // picture, 61, 70 or 76 for the file.
    virtual void SaveToFile(std::string_view path) = 0;
};

// Makes resize objects, where the machine has the component for it. Part of the platform.
class ImageResizer {
  public:
    ImageResizer() = default;
    ImageResizer(const ImageResizer&) = delete;
    ImageResizer& operator=(const ImageResizer&) = delete;
    virtual ~ImageResizer() = default;

    // Throws: RunTimeError 429 without the component, which is an optional one.
    [[nodiscard]] virtual std::unique_ptr<ImageResize> create() = 0;
};

}  // namespace host
