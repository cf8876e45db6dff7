#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace media {

enum class eImageType : std::uint8_t {
    itUNKNOWN = 0,
    itGIF = 1,
    itJPEG = 2,
    itPNG = 3,
    itBMP = 4,
};

// What a picture's header tells.
struct ImageProperties {
    std::int32_t Width = 0;   // pixels
    std::int32_t Height = 0;  // pixels
    std::uint8_t Depth = 0;   // bits for each pixel
    eImageType ImageType = eImageType::itUNKNOWN;
};

// As much of a file as is looked at.
inline constexpr std::size_t kImageHeaderBytes = 65536;

// The beginning of a picture file, as if zeros followed it.
class ImageHeader {
  public:
    // `bytes` outlive this object; those past kImageHeaderBytes are not seen.
    explicit ImageHeader(std::string_view bytes) : bytes_(bytes.substr(0, kImageHeaderBytes)) {}

    [[nodiscard]] std::int32_t byte(std::size_t at) const noexcept {
        return at < bytes_.size() ? static_cast<unsigned char>(bytes_[at]) : 0;
    }

    [[nodiscard]] std::int32_t number(std::size_t low, std::size_t high) const noexcept {
        return byte(low) + byte(high) * 256;
    }

    [[nodiscard]] bool starts_with(std::string_view signature) const noexcept {
        return bytes_.starts_with(signature);
    }

  private:
    std::string_view bytes_;
};

// Fills `properties`, which are all zero, from the first bytes of a file; they stay so for what is
// no picture. Any bytes may be given.
// Throws: RunTimeError 6 for a depth that is no byte; what has been found before it stands.
void read_image_properties(std::string_view bytes, ImageProperties& properties);

// The step of it that needs a search. Throws: as `read_image_properties`.
void read_jpeg_properties(const ImageHeader& header, ImageProperties& properties);

}  // namespace media
