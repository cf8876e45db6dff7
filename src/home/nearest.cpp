#include "home/nearest.h"

#include <algorithm>
#include <vector>

#include "automation/members.h"
#include "automation/strings.h"

namespace home {
namespace {

constexpr std::size_t kNearest = 3;
constexpr std::size_t kAll = 12;

}  // namespace

std::string nearest_text(std::span<const std::string> names, std::string_view name) {
    std::vector<automation::Member> members;
    for (const std::string& candidate : names) {
        automation::Member member;
        member.name = candidate;
        members.push_back(member);
    }
    const std::vector<std::string> near = automation::nearest_names(members, name, kNearest);
    if (!near.empty()) {
        return "; the nearest are " + automation::join(near, ", ");
    }
    if (names.empty()) {
        return "; there are none";
    }
    const std::span<const std::string> first = names.first(std::min(kAll, names.size()));
    return "; there are " + automation::join({first.begin(), first.end()}, ", ") +
           (first.size() < names.size() ? ", ..." : "");
}

}  // namespace home
