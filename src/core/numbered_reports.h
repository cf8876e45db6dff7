#pragma once

#include <string>
#include <string_view>

#include "core/velora_log.h"

namespace core {

// The log of routines that give the error's number behind their name: "FindEvent 13". For
// guarded(); a value that refers to the log.
class NumberedReports {
  public:
    explicit NumberedReports(VeloraLog& log) : log_(log) {}

    void report(std::string_view where, const automation::RunTimeError& error) {
        log_.report(std::string(where) + std::to_string(error.number()), error);
    }

  private:
    VeloraLog& log_;
};

}  // namespace core
