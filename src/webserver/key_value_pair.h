#pragma once

#include <string>

namespace webserver {

// One parameter of a query or a form.
struct KeyValuePair {
    std::string key;
    std::string value;
};

}  // namespace webserver
