#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "app/json.h"
#include "automation/date.h"
#include "automation/run_time_error.h"

// What requests to the daemon and its answers are made of. Texts are UTF-8 in JSON and code page
// 1252 here. All that read a request throw RunTimeError 5 with what is wrong with it.
namespace app {

[[nodiscard]] automation::RunTimeError bad_request(const std::string& text);

// One line as an object.
[[nodiscard]] Json parsed_request(const std::string& line);

[[nodiscard]] std::string text_member(const Json& request, const char* name);

// An array of texts, at least one.
[[nodiscard]] std::vector<std::string> texts_member(const Json& request, const char* name);

// 0 or more; `fallback` when it is not there.
[[nodiscard]] std::int64_t count_member(const Json& request, const char* name,
                                        std::int64_t fallback);

[[nodiscard]] Json texts_json(const std::vector<std::string>& code_page_texts);

// "2026-11-24T16:03:03"; null for none.
[[nodiscard]] Json moment_json(const std::optional<automation::DateTime>& moment);

}  // namespace app
