#include "home/web/packing.h"

#include <algorithm>
#include <string>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/strings.h"
#include "home/web/content_type.h"
#include "home/zlib/gzip.h"

namespace home {
namespace {

// Below the first the header costs more than it saves, above the second the pump would be held up.
constexpr std::size_t kLeastBytes = 512;
constexpr std::size_t kMostBytes = std::size_t{2} * 1024 * 1024;

// The value of "q=0.5" among the parameters of a coding.
double weight_of(const std::vector<std::string>& fields) {
    for (const std::string& field : fields) {
        const std::string parameter = automation::to_lower(automation::trim(field));
        if (parameter.starts_with("q=")) {
            return automation::numeric_prefix(parameter.substr(2));
        }
    }
    return 1;
}

}  // namespace

bool takes_gzip(const host::HttpRequest& request) {
    const std::string accepted = request.header("Accept-Encoding").value_or("");
    return std::ranges::any_of(automation::split(accepted, ','), [](const std::string& coding) {
        const std::vector<std::string> fields = automation::split(coding, ';');
        return automation::equals_ignoring_case(automation::trim(fields.front()), "gzip") &&
               weight_of(fields) > 0;
    });
}

void pack(const host::HttpRequest& request, host::HttpResponse& response) {
    if (response.body.size() < kLeastBytes || response.body.size() > kMostBytes ||
        response.header("Content-Encoding") ||
        !is_packable(response.header("Content-Type").value_or(""))) {
        return;
    }
    response.add("Vary", "Accept-Encoding");
    if (takes_gzip(request)) {
        response.body = gzip(response.body);
        response.add("Content-Encoding", "gzip");
    }
}

}  // namespace home
