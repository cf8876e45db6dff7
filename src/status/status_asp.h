#pragma once

#include <memory>
#include <string>

#include "automation/object.h"
#include "status/client_requests.h"
#include "status/device_rows.h"
#include "status/page_text.h"
#include "status/status_services.h"

namespace status {

// The status and setup page: one form, posted to itself, with a table of all units' devices and the
// controls that set them, the settings, and the filters of the xAP network. A form is carried out
// first, so that the answer to it is the fresh page. Owned by the plug-in. Failures are logged, and
// the page is given with what it has until then.
class StatusAsp {
  public:
    explicit StatusAsp(const StatusServices& services)
        : services_(services),
          requests_(services),
          devices_(services.instance, services.host_devices) {}

    StatusAsp(const StatusAsp&) = delete;
    StatusAsp& operator=(const StatusAsp&) = delete;

    // The whole page. Request and response are those of the embedded server, or of the host's own.
    // May pump.
    [[nodiscard]] std::string StatusPage(const std::shared_ptr<automation::Object>& request,
                                         const std::shared_ptr<automation::Object>& response);

    // The same without the look at who asks.
    [[nodiscard]] std::string Status_ASP(const std::shared_ptr<automation::Object>& request);

    // Appends the page.
    void FormatScreen(PageText& page);

    [[nodiscard]] DeviceRows& devices() noexcept { return devices_; }

    [[nodiscard]] ClientRequests& requests() noexcept { return requests_; }

  private:
    void add_header(PageText& page) const;
    void add_options(PageText& page) const;
    void add_devices(PageText& page);
    void add_setup(PageText& page);
    void add_end(PageText& page) const;

    StatusServices services_;
    ClientRequests requests_;
    DeviceRows devices_;
};

}  // namespace status
