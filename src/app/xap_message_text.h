#pragma once

#include <string>

#include "app/answer_text.h"
#include "automation/date.h"

namespace host {
class XapMessage;
}

namespace app {

// A received message for a person, in UTF-8: a line with time, class, sender and target, then each
// block with its lines, keys under each other, and an empty line.
[[nodiscard]] std::string xap_message_text(const host::XapMessage& message,
                                           automation::DateTime when, Colours colours);

}  // namespace app
