#include "status/filter_table.h"

#include <array>
#include <chrono>
#include <string>

#include "automation/guarded.h"
#include "host/clock.h"
#include "status/device_rows.h"
#include "status/setup_fields.h"
#include "xap/filters.h"

namespace status {

namespace {

using automation::guarded;

constexpr int kTagSize = 40;  // characters
constexpr int kClassSize = 20;
constexpr int kSourceSize = 80;
constexpr std::size_t kNewRow = 0;
constexpr std::array<std::string_view, 4> kHeadings{"Status", "Tag", "Ev", "Class"};

constexpr std::string_view kReadScript =
    "<form name='no redraw' method='post' target='hiddenframe'>"
    "<input type='submit' name='script' value='Read Script zynVelora.txt'>"
    "<input type='hidden' name='clientinput' value='yes'></form>";
constexpr std::string_view kQuery =
    "<form name='redraw' method='post'>"
    "<input type='submit' name='query' value='Query Velora'>"
    "<input type='hidden' name='clientinput' value='yes'></form>";

}  // namespace

void FilterTable::AddFilter(const StatusState& state) {
    guarded(instance_.log, "AddFilter", [&] {
        add_headings();
        std::size_t number = kNewRow;
        for (const xap::Filter& filter : filters_.FilterDictionary()) {
            const xap::DeviceClass* const heard = filters_.DeviceDictionary().find(filter.tag);
            add_row(++number, filter, heard);
            if (state.ShowReceiveDetail && heard != nullptr) {
                add_detail(*heard);
            }
            add_source_row(number, filter);
        }
        add_row(kNewRow, {}, nullptr);
        add_source_row(kNewRow, {});
        page_.end_table();
    });
}

void FilterTable::add_headings() {
    page_.begin_table("<br><p>");
    page_.begin_heading();
    page_.cell("xAP Messages of Interest", {"Center", "4"});
    page_.begin_heading();
    for (const std::string_view heading : kHeadings) {
        page_.cell(heading, {"Center", "1"});
    }
}

// When the tag has last heard something.
std::string FilterTable::status_of(const xap::DeviceClass* heard) const {
    if (heard == nullptr || heard->LastChange == xap::kNothingHeard) {
        return "&nbsp;";
    }
    return FormatChanged(heard->LastChange,
                         std::chrono::floor<std::chrono::days>(instance_.platform().clock.now()));
}

void FilterTable::add_row(std::size_t number, const xap::Filter& filter,
                          const xap::DeviceClass* heard) {
    page_.begin_row();
    page_.cell(status_of(heard), {"Left", "1", "tablecellmisc"});
    page_.row_cell(page_.text_field(numbered("FilterTag", number), filter.tag, kTagSize));
    page_.row_cell(page_.check_box(numbered("FilterEvent", number), !filter.event.empty(), ""));
    page_.row_cell(page_.text_field(numbered("Class", number), filter.message_class(), kClassSize));
}

void FilterTable::add_detail(const xap::DeviceClass& heard) {
    auto value = heard.MessageList.begin();
    for (const std::string& name : heard.MessageKeyList) {
        page_.begin_heading();  // of the same colour
        page_.row_cell(page_.value(name), "Right", "2");
        page_.row_cell(page_.value(*value), "Right", "2");
        ++value;
    }
}

// A filter whose source were not on the page would lose it when the page is saved.
void FilterTable::add_source_row(std::size_t number, const xap::Filter& filter) {
    page_.begin_heading();  // of the same colour
    page_.row_cell(
        "Source&nbsp;" + page_.text_field(numbered("Source", number), filter.source(), kSourceSize),
        "Right", "4");
}

void FilterTable::AddScriptButton() {
    guarded(instance_.log, "AddScriptButton", [&] {
        page_.begin_table("");
        page_.begin_heading();
        page_.cell("Refresh", {"Center", "2"});
        page_.begin_row();
        page_.row_cell(kReadScript, "Center");
        page_.row_cell(kQuery, "Center");
        page_.end_table();
    });
}

}  // namespace status
