#pragma once

#include <optional>
#include <span>
#include <string>

#include "automation/date.h"
#include "automation/members.h"

namespace home {

// One cookie of an answer. Shared by the answer and the values that hold it.
class AspCookie final : public automation::TableObject {
  public:
    explicit AspCookie(std::string name) : name_(std::move(name)) {}

    [[nodiscard]] std::string type_name() const override { return "Cookie"; }

    [[nodiscard]] std::span<const automation::Member> members() const override;

    [[nodiscard]] const std::string& name() const noexcept { return name_; }

    [[nodiscard]] std::string value() const { return value_; }

    void set_value(const std::string& value) { value_ = value; }

    // A moment of the house's clock.
    [[nodiscard]] automation::Value expires() const;

    void set_expires(automation::Date moment) { expires_ = moment; }

    [[nodiscard]] std::string path() const { return path_; }

    // Throws: RunTimeError 5 for a text that would end the header.
    void set_path(const std::string& path);

    // The header's value: "name=value; path=/".
    [[nodiscard]] std::string header() const;

  protected:
    [[nodiscard]] std::string_view default_member() const override { return "Value"; }

  private:
    std::string name_;
    std::string value_;
    std::string path_ = "/";
    std::optional<automation::Date> expires_;
};

// "Tue, 24 Nov 2026 16:03:03 GMT" of a moment of the house's clock.
[[nodiscard]] std::string http_date_of(automation::Date moment);

// Throws: RunTimeError 5 for a text with a control character, which has no place in a header.
void check_header_text(const std::string& text);

}  // namespace home
