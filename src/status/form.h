#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "automation/object.h"
#include "automation/value.h"
#include "core/instance.h"

namespace status {

// The fields of the form that a request has sent, of the embedded server or of the host's own.
// A value for the time of one page. Members may pump where the request's own members do.
class Form {
  public:
    // The instance outlives it.
    Form(const core::Instance& instance, std::shared_ptr<automation::Object> request)
        : instance_(instance), request_(std::move(request)) {}

    // Empty or "" for a field that was not sent. Throws: RunTimeError 91 without a request, and
    // those of the request.
    [[nodiscard]] automation::Value FormValue(std::string_view key) const;

    // The same as text. Throws as `FormValue`, and 94 for Null.
    [[nodiscard]] std::string text(std::string_view key) const;

    // Check boxes are sent only when they are ticked.
    [[nodiscard]] bool FormChecked(std::string_view key) const { return !text(key).empty(); }

  private:
    [[nodiscard]] bool is_of_host() const noexcept;

    const core::Instance& instance_;
    std::shared_ptr<automation::Object> request_;
};

}  // namespace status
