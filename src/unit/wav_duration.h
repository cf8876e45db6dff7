#pragma once

#include <optional>
#include <string_view>

namespace unit {

// Seconds that a RIFF WAVE file plays: the length of its "data" chunk by the byte rate of its
// "fmt " chunk (Microsoft and IBM, Multimedia Programming Interface 1.0). A data chunk that is
// cut short counts with the bytes that are there. Nothing for any other file.
[[nodiscard]] std::optional<double> wav_seconds(std::string_view bytes);

}  // namespace unit
