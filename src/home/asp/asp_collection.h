#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "automation/members.h"
#include "home/web/url_text.h"

namespace home {

// One of the request's lists as a script sees it: values under names, which compare without regard
// to case. A name that is there more than once has all its values, separated by ", ". Shared by
// the values that hold it.
class AspCollection final : public automation::TableObject {
  public:
    // `whole` is what the list gives without a name.
    AspCollection(const NamedTexts& pairs, std::string whole);

    [[nodiscard]] std::string type_name() const override { return "Collection"; }

    [[nodiscard]] std::span<const automation::Member> members() const override;

    // Absent when there is no such name.
    [[nodiscard]] std::optional<std::string> find(std::string_view name) const;

    // Empty for a name that is not there; by number, from 1, a value in the order of arrival; the
    // whole without either. Throws: RunTimeError 9 for a number that is out of range.
    [[nodiscard]] automation::Value Item(std::optional<automation::Value> name) const;

    [[nodiscard]] std::int32_t Count() const;

    // Throws: RunTimeError 9.
    [[nodiscard]] std::string Key(std::int32_t number) const;

    // The names.
    [[nodiscard]] automation::Value names() const;

  protected:
    [[nodiscard]] std::string_view default_member() const override { return "Item"; }

  private:
    [[nodiscard]] const std::pair<std::string, std::string>& at(std::int32_t number) const;

    NamedTexts rows_;  // each name once
    std::string whole_;
};

}  // namespace home
