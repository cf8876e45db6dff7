#include "slideshow/slideshow_asp.h"

#include <algorithm>
#include <limits>
#include <vector>

#include "appliance/velora.h"
#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/guarded.h"
#include "automation/run_time_error.h"
#include "devices/status_board.h"
#include "fleet/fleet.h"
#include "host/clock.h"
#include "host/files.h"
#include "pages/convert_asp.h"
#include "slideshow/picture_page.h"

namespace slideshow {

namespace {

using automation::ErrorNumber;
using automation::guarded;
using automation::RunTimeError;
using automation::Value;

constexpr std::int16_t kStopped = 2;  // SlideshowMode
constexpr std::int16_t kRows = core::kSlideRows;

// A page that is run instead of shown as a picture, by what stands behind the first dot.
bool is_page(const std::string& file) {
    const std::string ending = file.substr(file.find('.'));
    return automation::find_ignoring_case(".asp .htm .html", ending) != std::string::npos;
}

// A folder, or no row at all.
bool has_no_dot(const std::string& file) {
    return file.find('.') == std::string::npos;
}

std::string asked(const std::shared_ptr<automation::Object>& object, std::string_view collection,
                  std::string_view key) {
    if (object == nullptr) {
        throw RunTimeError(ErrorNumber::ObjectVariableNotSet);
    }
    std::vector<Value> arguments{Value(key)};
    return automation::to_text(object->call(collection, arguments));
}

// The touch on a picture is a link, other pages have a form.
std::string client_action(const std::shared_ptr<automation::Object>& request) {
    constexpr std::string_view kKey = "ClientAction";
    std::string action = asked(request, "Form", kKey);
    return action.empty() ? asked(request, "QueryString", kKey) : action;
}

// One picture of a folder less. A unit whose group has nothing to count goes down to the lowest
// number and stays there.
void count_down(appliance::Velora& unit) {
    constexpr std::int16_t kLowest = std::numeric_limits<std::int16_t>::min();
    unit.set_SlideCount(static_cast<std::int16_t>(std::max<int>(unit.SlideCount() - 1, kLowest)));
}

}  // namespace

std::string SlideshowAsp::VeloraSlideshow_ASP(const Objects& request, const Objects& response) {
    core::VeloraLog& log = services_.instance.log;
    return guarded(log, "VeloraSlideshow_ASP: ", [&] {
        const std::string address = asked(request, "ServerVariables", "REMOTE_ADDR");
        log.debug([&] { return "Enter SlideshowASP " + address; });
        std::string page = page_for(address, request, response);
        log.debug([&] { return "Exit SlideshowASP " + address; });
        return page;
    });
}

const fleet::Appliance* SlideshowAsp::appliance_at(const std::string& address) const {
    const auto& table = services_.fleet.table();
    const auto found = std::ranges::find(table, address, &fleet::Appliance::VeloraIP);
    return found == table.end() || found->unit == nullptr ? nullptr : &*found;
}

std::string SlideshowAsp::page_for(const std::string& address, const Objects& request,
                                   const Objects& response) {
    const fleet::Appliance* const appliance = appliance_at(address);
    client_ = appliance != nullptr ? media::SlideClient::Velora : media::SlideClient::Other;
    if (client_action(request) == "links" || services_.instance.SlideshowMode == kStopped) {
        if (appliance != nullptr) {
            end_show(*appliance);
        }
        return links_page();
    }
    if (appliance == nullptr) {
        return BuildRandomSlideshow(main_source());
    }
    const std::shared_ptr<appliance::Velora> unit = appliance->unit;
    return next_slide(*unit, request, response);
}

// --- end of the show -----------------------------------------------------------------------------

void SlideshowAsp::end_show(const fleet::Appliance& appliance) {
    const std::shared_ptr<appliance::Velora> unit = appliance.unit;
    const std::string display = appliance.VeloraDC;
    unit->set_Slideshow(false);
    unit->SetMailLED("off", "");
    unit->SetTopLED("Off", "");
    devices::StatusBoard& board = services_.status_board;
    board.show_silently(display, board.FormatValue(0, services_.instance.settings.Links));
}

std::string SlideshowAsp::links_page() const {
    core::Instance& instance = services_.instance;
    const core::UtilitySettings& settings = instance.settings;
    const bool is_list = settings.Links == settings.LinksFile;
    if (!is_list && automation::find_ignoring_case(settings.Links, ".asp") != std::string::npos) {
        // Only the host's own server can run it: the client goes there by itself.
        return "<HTML><BODY onload='document.status.submit()'><form name='status' action='" +
               settings.Links +
               "'><input type='hidden' name='zynVeloraSlideshow' value='Stopped' ></form>"
               "<BODY></HTML>";
    }
    std::string text =
        instance.platform().files.read(core::html_root(instance) + "\\" + settings.Links);
    return is_list ? "<html><Body bgcolor='black'>" + text + "</body></html>" : text;
}

// --- the walk of a unit through its group --------------------------------------------------------

core::SlideRow* SlideshowAsp::row_of(std::int16_t group, std::int16_t row) const {
    auto& groups = services_.instance.settings.slide_groups;
    const bool is_there =
        group >= 1 && std::size_t(group) <= groups.size() && row >= 0 && row < kRows;
    return is_there ? &groups[std::size_t(group) - 1].rows[std::size_t(row)] : nullptr;
}

std::string SlideshowAsp::file_of(std::int16_t group, std::int16_t row) const {
    const core::SlideRow* const slide = row_of(group, row);
    return slide == nullptr ? std::string() : automation::trim(slide->SlideFile);
}

std::string SlideshowAsp::next_slide(appliance::Velora& unit, const Objects& request,
                                     const Objects& response) {
    unit.set_Slideshow(true);
    unit.set_SlideshowTime(services_.instance.platform().clock.now());
    const std::int16_t group = unit.SlideGroup();
    if (stays_in_folder(unit)) {
        count_down(unit);
        return BuildRandomSlideshow(source_of(group));
    }
    advance(unit);
    const std::string file = file_of(group, unit.SlideGroupIndex());
    if (has_no_dot(file)) {
        count_down(unit);
        return BuildRandomSlideshow(source_of(group));
    }
    core::SlideRow& row = *row_of(group, unit.SlideGroupIndex());
    if (is_page(file)) {
        return services_.asp.ASPSlide(request, response, file, std::to_string(row.SlideDwell));
    }
    return single_picture(group, row);
}

// Whether the present folder has pictures left to show. A folder whose pictures are counted to the
// end says how many the next one shows.
bool SlideshowAsp::stays_in_folder(appliance::Velora& unit) const {
    const std::int16_t group = unit.SlideGroup();
    const std::int16_t row = unit.SlideGroupIndex();
    if (!has_no_dot(file_of(group, row))) {
        return false;
    }
    if (unit.SlideCount() > 0) {
        return true;
    }
    if (unit.SlideCount() == 0 && row < kRows) {
        unit.set_SlideCount(pictures_of_row(group, row));
    }
    return false;
}

std::int16_t SlideshowAsp::pictures_of_row(std::int16_t group, std::int16_t row) const {
    const core::SlideRow* const slide = row_of(group, row);
    const std::int16_t seconds = services_.instance.settings.SlideshowUpdateSeconds;
    if (seconds == 0) {
        throw RunTimeError(ErrorNumber::DivisionByZero);
    }
    const double dwell = slide == nullptr ? 0 : slide->SlideDwell;
    return automation::checked_int16(dwell / seconds);
}

// An empty row ends the cycle, as the last one does.
void SlideshowAsp::advance(appliance::Velora& unit) const {
    auto row = static_cast<std::int16_t>(unit.SlideGroupIndex() + 1);
    if (row >= kRows || file_of(unit.SlideGroup(), row).empty()) {
        row = 0;
    }
    unit.set_SlideGroupIndex(row);
}

std::string SlideshowAsp::single_picture(std::int16_t group, core::SlideRow& row) {
    const core::SlideGroupSettings& settings =
        services_.instance.settings.slide_groups[std::size_t(group) - 1];
    std::string file = automation::trim(row.SlideFile);
    if (!file.starts_with('\\') && !file.starts_with('/')) {
        file.insert(0, "\\");  // between the server's address and the name
    }
    read_size(services_.instance, settings.GroupFolder, file, row.SlideWidth, row.SlideHeight);
    return BuildSlideshow(services_.instance, {.file = file,
                                               .server = settings.GroupServer,
                                               .base = settings.GroupFolder,
                                               .width = row.SlideWidth,
                                               .height = row.SlideHeight,
                                               .dwell = std::to_string(row.SlideDwell),
                                               .client = client_});
}

// --- pictures out of a list ----------------------------------------------------------------------

SlideshowAsp::Source SlideshowAsp::main_source() {
    const core::UtilitySettings& settings = services_.instance.settings;
    return {services_.lists.SlideshowFiles, settings.ImageServer, settings.ImagePath};
}

SlideshowAsp::Source SlideshowAsp::source_of(std::int16_t group) {
    auto& lists = services_.lists.groups;
    if (group < 1 || std::size_t(group) > lists.size() ||
        lists[std::size_t(group) - 1].is_empty()) {
        return main_source();
    }
    const core::SlideGroupSettings& settings =
        services_.instance.settings.slide_groups[std::size_t(group) - 1];
    return {lists[std::size_t(group) - 1], settings.GroupServer, settings.GroupFolder};
}

std::size_t SlideshowAsp::next_index(const PictureList& list) {
    const auto highest = static_cast<std::int32_t>(list.FileNames.size() - 1);
    if (services_.instance.settings.DontRandomize) {
        // Never 0, and no order for a single picture (kept).
        if (highest == 0) {
            throw RunTimeError(ErrorNumber::DivisionByZero);
        }
        slide_index_ = (slide_index_ + 1) % highest + 1;
    } else {
        const double number = double{services_.instance.platform().random.next()};
        slide_index_ = static_cast<std::int32_t>(number * (highest + 1.0));
    }
    return static_cast<std::size_t>(slide_index_);
}

std::string SlideshowAsp::BuildRandomSlideshow(const Source& source) {
    core::Instance& instance = services_.instance;
    return guarded(instance.log, "BuildRandomSlideshow: ", [&] {
        PictureList& list = source.list;
        const std::size_t index = next_index(list);
        read_size(instance, source.base, list.FileNames[index], list.FileWidths[index],
                  list.FileHeights[index]);
        return BuildSlideshow(instance, {.file = list.FileNames[index],
                                         .server = source.server,
                                         .base = source.base,
                                         .width = list.FileWidths[index],
                                         .height = list.FileHeights[index],
                                         .dwell = instance.settings.SlideshowUpdateInterval,
                                         .client = client_});
    });
}

}  // namespace slideshow
