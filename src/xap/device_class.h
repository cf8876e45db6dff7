#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "automation/date.h"
#include "automation/keyed_collection.h"

namespace xap {

// The moment of a tag that has heard nothing.
inline constexpr automation::DateTime kNothingHeard{
    std::chrono::local_days{std::chrono::year{2000} / std::chrono::January / 1}};

// What one filtered source said last, under the tag that the user has given it. A value; part of
// the filters. A full name is the block's name, ".", and the key.
struct DeviceClass {
    std::int32_t Sequence = 0;  // number of the update among all; 0 before the first
    std::string Tag;
    automation::DateTime LastChange = kNothingHeard;
    automation::KeyedCollection<std::string> MessageList;  // values by full name
    std::vector<std::string> MessageKeyList;               // full names in the message's order
};

}  // namespace xap
