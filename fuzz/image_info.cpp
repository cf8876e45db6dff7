#include "automation/run_time_error.h"
#include "fuzz/expect.h"
#include "media/image_formats.h"

// Any bytes as the beginning of a picture file.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    media::ImageProperties found;
    try {
        media::read_image_properties(fuzz::as_text(data, size), found);
    } catch (const automation::RunTimeError& error) {
        fuzz::expect(error.is(automation::ErrorNumber::Overflow),
                     "a picture fails for its depth alone");
    }
    const bool is_unknown = found.ImageType == media::eImageType::itUNKNOWN;
    fuzz::expect(!is_unknown || (found.Width == 0 && found.Height == 0 && found.Depth == 0),
                 "what is no picture has no size");
    return 0;
}
