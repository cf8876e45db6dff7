#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace platform {

class AsioPump;

// One line to a program that listens on a Unix stream socket and one line back, without blocking
// the pump: the other side may be dead or asleep. Owned by whoever waits for the answer; its end
// abandons the exchange without an event.
class LocalLineExchange {
  public:
    // What came of it: the answer without the line's end, or a reason and no answer.
    struct Outcome {
        std::string answer;
        std::string failure;  // "" when it went well
    };

    // `on_end` runs as an event, once; the exchange may be destroyed there. It fails when it is
    // not over after `limit`. Requires: no line feed in `line`.
    LocalLineExchange(AsioPump& pump, const std::filesystem::path& path, std::string_view line,
                      std::chrono::milliseconds limit, std::function<void(const Outcome&)> on_end);
    LocalLineExchange(const LocalLineExchange&) = delete;
    LocalLineExchange& operator=(const LocalLineExchange&) = delete;
    ~LocalLineExchange();

  private:
    class Transfer;

    std::shared_ptr<Transfer> transfer_;  // shared with its own waits; silenced when *this goes
};

}  // namespace platform
