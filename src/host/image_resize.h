#pragma once

#include <cstdint>
#include <string_view>

namespace host {

// The optional picture resizer.
class ImageResizer {
  public:
    virtual ~ImageResizer() = default;

    [[nodiscard]] virtual bool is_available() const { return false; }

    // Writes `source` scaled to at most `width` by `height` pixels to `target`. Paths carry
    // backslashes. Throws: RunTimeError 429 without the component, 53 or 5 for the picture.
    virtual void resize(std::string_view source, std::string_view target, std::int32_t width,
                        std::int32_t height) = 0;
};

}  // namespace host
