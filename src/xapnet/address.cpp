#include "xapnet/address.h"

#include <optional>

#include "automation/code_page.h"

namespace xapnet {

namespace {

struct Sections {
    std::string_view device;
    std::optional<std::string_view> endpoint;
};

Sections sections_of(std::string_view address) noexcept {
    const std::size_t colon = address.find(':');
    if (colon == std::string_view::npos) {
        return {address, std::nullopt};
    }
    return {address.substr(0, colon), address.substr(colon + 1)};
}

// Gives the segments of a section one by one; a section has one at least.
class Segments {
  public:
    explicit Segments(std::string_view section) noexcept : rest_(section) {}

    [[nodiscard]] std::string_view next() noexcept {
        const std::size_t point = rest_.find('.');
        is_at_end_ = point == std::string_view::npos;
        const std::string_view segment = rest_.substr(0, point);
        rest_.remove_prefix(is_at_end_ ? rest_.size() : point + 1);
        return segment;
    }

    [[nodiscard]] bool is_at_end() const noexcept { return is_at_end_; }

  private:
    std::string_view rest_;
    bool is_at_end_ = false;
};

bool segment_covers(std::string_view pattern, std::string_view segment) noexcept {
    return pattern == "*" ? !segment.empty() : automation::equals_ignoring_case(pattern, segment);
}

bool section_covers(std::string_view pattern_section, std::string_view section) noexcept {
    Segments patterns(pattern_section);
    Segments segments(section);
    do {
        const std::string_view pattern = patterns.next();
        const std::string_view segment = segments.next();
        if (pattern == ">") {
            return !segment.empty();
        }
        if (!segment_covers(pattern, segment)) {
            return false;
        }
    } while (!patterns.is_at_end() && !segments.is_at_end());
    return patterns.is_at_end() && segments.is_at_end();
}

}  // namespace

bool covers(std::string_view target, std::string_view address) noexcept {
    const Sections pattern = sections_of(target);
    const Sections place = sections_of(address);
    if (target.empty() || pattern.endpoint.has_value() != place.endpoint.has_value() ||
        !section_covers(pattern.device, place.device)) {
        return false;
    }
    return !place.endpoint || section_covers(*pattern.endpoint, *place.endpoint);
}

bool is_same_device(std::string_view left, std::string_view right) noexcept {
    return automation::equals_ignoring_case(sections_of(left).device, sections_of(right).device);
}

}  // namespace xapnet
