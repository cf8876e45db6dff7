#include "home/asp/asp_failure.h"

namespace home {

std::string AspFailure::message() const {
    std::string whole = file;
    if (line > 0) {
        whole.append(", line ").append(std::to_string(line));
    }
    whole += ": ";
    if (number != 0) {
        whole.append("error ").append(std::to_string(number)).append(", ");
    }
    whole += description;
    if (!text.empty()) {
        whole.append(" (").append(text).append(")");
    }
    return whole;
}

}  // namespace home
