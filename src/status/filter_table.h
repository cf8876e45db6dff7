#pragma once

#include "automation/date.h"
#include "core/instance.h"
#include "status/page_text.h"
#include "status/status_state.h"

namespace xap {
struct DeviceClass;
class Filters;
struct Filter;
}  // namespace xap

namespace status {

// The two blocks at the foot of the page: the user's filters for messages of the xAP network with
// what they have heard, and the buttons that read the user's script and ask the units. A value for
// the time of one page. A failure is logged, and ends the block.
class FilterTable {
  public:
    // All outlive it.
    FilterTable(core::Instance& instance, const xap::Filters& filters, PageText& page)
        : instance_(instance), filters_(filters), page_(page) {}

    // All filters, and behind them an empty row for a new one.
    void AddFilter(const StatusState& state);

    // Forms of their own: it belongs behind the end of the page's form.
    void AddScriptButton();

  private:
    void add_headings();
    void add_row(std::size_t number, const xap::Filter& filter, const xap::DeviceClass* heard);
    void add_detail(const xap::DeviceClass& heard);
    void add_source_row(std::size_t number, const xap::Filter& filter);
    [[nodiscard]] std::string status_of(const xap::DeviceClass* heard) const;

    core::Instance& instance_;
    const xap::Filters& filters_;
    PageText& page_;
};

}  // namespace status
