#include "home/asp/asp_collection.h"

#include <algorithm>
#include <array>
#include <memory>

#include "automation/array.h"
#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/run_time_error.h"

namespace home {
namespace {

using automation::Kind;
using automation::Member;
using automation::property;
using automation::Value;

auto row_of(auto& rows, std::string_view name) {
    return std::ranges::find_if(rows, [name](const auto& row) {
        return automation::equals_ignoring_case(row.first, name);
    });
}

bool is_number(const Value& value) {
    const Kind kind = value.kind();
    return kind != Kind::String && kind != Kind::Object;
}

}  // namespace

AspCollection::AspCollection(const NamedTexts& pairs, std::string whole)
    : whole_(std::move(whole)) {
    for (const auto& [name, value] : pairs) {
        const auto row = row_of(rows_, name);
        if (row == rows_.end()) {
            rows_.emplace_back(name, value);
        } else {
            row->second.append(", ").append(value);
        }
    }
}

std::span<const Member> AspCollection::members() const {
    using C = AspCollection;
    static constexpr auto kMembers = std::to_array<Member>({
        property<&C::Item>("Item", "[name]"),
        property<&C::Count>("Count"),
        property<&C::Key>("Key", "number"),
        property<&C::names>("_NewEnum"),
    });
    return kMembers;
}

std::optional<std::string> AspCollection::find(std::string_view name) const {
    const auto row = row_of(rows_, name);
    return row == rows_.end() ? std::nullopt : std::optional(row->second);
}

Value AspCollection::Item(std::optional<Value> name) const {
    if (!name) {
        return whole_;
    }
    if (is_number(*name)) {
        return at(automation::to_int32(*name)).second;
    }
    const auto value = find(automation::to_text(*name));
    return value ? Value(*value) : Value();
}

std::int32_t AspCollection::Count() const {
    return static_cast<std::int32_t>(rows_.size());
}

std::string AspCollection::Key(std::int32_t number) const {
    return at(number).first;
}

Value AspCollection::names() const {
    std::vector<Value> names;
    for (const auto& row : rows_) {
        names.emplace_back(row.first);
    }
    return std::make_shared<automation::Array>(std::move(names));
}

const std::pair<std::string, std::string>& AspCollection::at(std::int32_t number) const {
    if (number < 1 || number > Count()) {
        throw automation::RunTimeError(automation::ErrorNumber::SubscriptOutOfRange);
    }
    return rows_[static_cast<std::size_t>(number) - 1];
}

}  // namespace home
