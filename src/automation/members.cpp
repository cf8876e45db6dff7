#include "automation/members.h"

#include <algorithm>

#include "automation/code_page.h"

namespace automation {
namespace {

RunTimeError not_supported(std::string_view name) {
    std::string description = standard_description(ErrorNumber::PropertyOrMethodNotSupported);
    if (!name.empty()) {
        description.append(": '").append(name).append("'");
    }
    return {ErrorNumber::PropertyOrMethodNotSupported, description};
}

RunTimeError wrong_number_of_arguments(const Member& member) {
    return {
        ErrorNumber::WrongNumberOfArguments,
        standard_description(ErrorNumber::WrongNumberOfArguments) + ": wanted " + usage(member)};
}

// The name at `index` of "which, [text]", bare; empty when the table names fewer.
std::string_view parameter_name(std::string_view parameters, std::size_t index) {
    for (; index > 0; --index) {
        const auto comma = parameters.find(',');
        if (comma == std::string_view::npos) {
            return {};
        }
        parameters.remove_prefix(comma + 1);
    }
    std::string_view name = parameters.substr(0, parameters.find(','));
    constexpr std::string_view kAround = " []";
    const auto first = name.find_first_not_of(kAround);
    if (first == std::string_view::npos) {
        return {};
    }
    return name.substr(first, name.find_last_not_of(kAround) - first + 1);
}

RunTimeError named(const detail::ArgumentError& error, const Member& member, Access access) {
    const bool is_new_value = access != Access::Call && error.index() >= member.accepted;
    const std::string_view name =
        is_new_value ? member.name : parameter_name(member.parameters, error.index());
    const std::string mark = name.empty() ? "" : ": '" + std::string(name) + "'";
    return error.with_description(error.description() + mark);
}

Value call_member(const Member& member, Object& self, std::span<Value> arguments) {
    if (arguments.size() < member.required || arguments.size() > member.accepted) {
        throw wrong_number_of_arguments(member);
    }
    return member.call(self, arguments);
}

// A setter takes the new value behind all arguments, also behind those that are left out.
void write_member(const Member& member, Member::Thunk setter, Object& self,
                  std::span<Value> arguments) {
    if (setter == nullptr) {
        throw not_supported(member.name);
    }
    if (arguments.size() <= member.required || arguments.size() > member.accepted + 1) {
        throw wrong_number_of_arguments(member);
    }
    if (arguments.size() == member.accepted + 1) {
        setter(self, arguments);
        return;
    }
    std::vector<Value> complete(arguments.begin(), arguments.end() - 1);
    complete.resize(member.accepted, Value(kMissingArgument));
    complete.push_back(arguments.back());
    setter(self, complete);
}

std::size_t edit_distance(std::string_view left, std::string_view right) {
    std::vector<std::size_t> row(right.size() + 1);
    for (std::size_t column = 0; column < row.size(); ++column) {
        row[column] = column;
    }
    for (std::size_t line = 0; line < left.size(); ++line) {
        std::size_t diagonal = row[0];
        row[0] = line + 1;
        for (std::size_t column = 0; column < right.size(); ++column) {
            const std::size_t replaced = diagonal + (left[line] == right[column] ? 0 : 1);
            diagonal = row[column + 1];
            row[column + 1] = std::min({replaced, row[column] + 1, row[column + 1] + 1});
        }
    }
    return row.back();
}

struct Nearness {
    std::size_t rank;  // what is compared first: 0 and 1 are as good as certain
    std::size_t distance;
    std::string_view name;
};

constexpr std::size_t kLongestGuess = 64;

std::optional<Nearness> nearness(std::string_view candidate, std::string_view lower_name) {
    const std::string lower_candidate = to_lower(candidate);
    const std::size_t distance = edit_distance(lower_candidate, lower_name);
    if (lower_candidate.find(lower_name) != std::string::npos) {
        return Nearness{std::min<std::size_t>(distance, 1), distance, candidate};
    }
    if (distance > std::max<std::size_t>(2, lower_name.size() / 2)) {
        return std::nullopt;
    }
    return Nearness{distance, distance, candidate};
}

}  // namespace

std::optional<MemberId> TableObject::find_member(std::string_view name) const {
    const auto table = members();
    const auto row = std::ranges::find_if(table, [name](const Member& member) {
        return member.name.size() == name.size() && equals_ignoring_case(member.name, name);
    });
    if (row == table.end()) {
        return std::nullopt;
    }
    return static_cast<MemberId>(row - table.begin()) + 1;
}

Value TableObject::invoke(MemberId member, Access access, std::span<Value> arguments) {
    if (member == kDefaultMember) {
        member = find_member(default_member()).value_or(kDefaultMember);
    }
    const auto table = members();
    if (member < 1 || static_cast<std::size_t>(member) > table.size()) {
        throw not_supported({});
    }
    const Member& row = table[static_cast<std::size_t>(member) - 1];
    try {
        if (access == Access::Call) {
            return call_member(row, *this, arguments);
        }
        write_member(row, access == Access::Let ? row.let : row.set, *this, arguments);
        return {};
    } catch (const detail::ArgumentError& error) {
        throw named(error, row, access);
    }
}

std::string usage(const Member& member) {
    std::string text(member.name);
    if (member.is_property && member.parameters.empty()) {
        return text;
    }
    return text.append("(").append(member.parameters).append(")");
}

std::vector<std::string> nearest_names(std::span<const Member> members, std::string_view name,
                                       std::size_t count) {
    if (name.empty() || name.size() > kLongestGuess) {
        return {};
    }
    const std::string lower_name = to_lower(name);
    std::vector<Nearness> near;
    for (const Member& member : members) {
        if (const auto candidate = nearness(member.name, lower_name)) {
            near.push_back(*candidate);
        }
    }
    std::ranges::stable_sort(near, [](const Nearness& left, const Nearness& right) {
        return std::tie(left.rank, left.distance) < std::tie(right.rank, right.distance);
    });
    if (near.size() > count) {
        near.erase(near.begin() + static_cast<std::ptrdiff_t>(count), near.end());
    }
    std::vector<std::string> names;
    names.reserve(near.size());
    for (const Nearness& candidate : near) {
        names.emplace_back(candidate.name);
    }
    return names;
}

}  // namespace automation
