#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "automation/object.h"
#include "core/instance.h"
#include "media/image_resize.h"
#include "slideshow/picture_list.h"

namespace appliance {
class Velora;
}

namespace devices {
class StatusBoard;
}

namespace fleet {
struct Appliance;
class Fleet;
}  // namespace fleet

namespace pages {
class ConvertASP;
}

namespace slideshow {

// What the slideshow page works on. All of it outlives the page.
struct SlideshowAspServices {
    core::Instance& instance;
    fleet::Fleet& fleet;
    devices::StatusBoard& status_board;
    pages::ConvertASP& asp;
    PictureLists& lists;
};

// The one page of the slideshow, "VeloraSlideshow.asp". Each fetch gives the next slide of the
// client, by its address; the page itself keeps nothing. A unit walks through the rows of its
// group, at its own pace: a folder row stands for as many pictures as fit into its dwell. All other
// clients get pictures of the main list. Owned by the plug-in. Failures are logged and give "".
class SlideshowAsp {
  public:
    explicit SlideshowAsp(const SlideshowAspServices& services) : services_(services) {}

    SlideshowAsp(const SlideshowAsp&) = delete;
    SlideshowAsp& operator=(const SlideshowAsp&) = delete;

    // Request and response of the embedded server, or those of the host's own. Gives the links page
    // instead when the client has touched a picture or the show is stopped. May pump.
    std::string VeloraSlideshow_ASP(const std::shared_ptr<automation::Object>& request,
                                    const std::shared_ptr<automation::Object>& response);

  private:
    using Objects = std::shared_ptr<automation::Object>;

    // A list of pictures with where they come from.
    struct Source {
        PictureList& list;
        const std::string& server;
        const std::string& base;
    };

    [[nodiscard]] const fleet::Appliance* appliance_at(const std::string& address) const;
    [[nodiscard]] std::string page_for(const std::string& address, const Objects& request,
                                       const Objects& response);
    [[nodiscard]] std::string links_page() const;
    void end_show(const fleet::Appliance& appliance);
    [[nodiscard]] std::string next_slide(appliance::Velora& unit, const Objects& request,
                                         const Objects& response);
    [[nodiscard]] bool stays_in_folder(appliance::Velora& unit) const;
    [[nodiscard]] std::int16_t pictures_of_row(std::int16_t group, std::int16_t row) const;
    void advance(appliance::Velora& unit) const;
    [[nodiscard]] std::string single_picture(std::int16_t group, core::SlideRow& row);

    [[nodiscard]] core::SlideRow* row_of(std::int16_t group, std::int16_t row) const;
    [[nodiscard]] std::string file_of(std::int16_t group, std::int16_t row) const;
    [[nodiscard]] Source main_source();
    [[nodiscard]] Source source_of(std::int16_t group);

    [[nodiscard]] std::string BuildRandomSlideshow(const Source& source);
    [[nodiscard]] std::size_t next_index(const PictureList& list);

    SlideshowAspServices services_;
    media::SlideClient client_ = media::SlideClient::Other;
    std::int32_t slide_index_ = 0;  // of the last picture out of a list
};

}  // namespace slideshow
