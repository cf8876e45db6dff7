#pragma once

#include <string>

namespace callerid {

// Tells an xAP network of a call. A house outside such a network tells nobody.
class XapCallers {
  public:
    virtual ~XapCallers() = default;

    // `given_name` is what the telephone network said, by which a withheld name is known; `name`
    // is what is shown.
    virtual void XapCID(const std::string& /*given_name*/, const std::string& /*name*/,
                        const std::string& /*number*/) {}
};

}  // namespace callerid
