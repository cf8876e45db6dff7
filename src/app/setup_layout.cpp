#include "app/setup_layout.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace app {
namespace {

constexpr int kMargin = 1;
constexpr int kWidestText = 60;
constexpr int kNarrowestText = 10;

using Fields = std::vector<SetupField>;

bool is_single(const SetupField& field) {
    return field.kind != FieldKind::Text && (field.kind != FieldKind::Choice);
}

void add_label(PageLayout& layout, int line, int column, std::string text,
               Look look = Look::Plain) {
    layout.labels.push_back({line, column, std::move(text), look});
}

int widest_caption(const Fields& fields, const std::string& page) {
    std::size_t width = 0;
    for (const SetupField& field : fields) {
        if (field.page == page && !is_single(field)) {
            width = std::max(width, field.caption.size());
        }
    }
    return static_cast<int>(width);
}

// --- one field a line ---------------------------------------------------------------------------

// Check boxes of one array, as many side by side as there is room for.
class CheckColumns {
  public:
    CheckColumns(const Fields& fields, int columns) : columns_(columns) {
        constexpr int kBox = 4;
        constexpr int kGap = 2;
        for (const SetupField& field : fields) {
            if (is_one(field)) {
                width_ = std::max(width_, static_cast<int>(field.caption.size()) + kBox + kGap);
            }
        }
    }

    [[nodiscard]] static bool is_one(const SetupField& field) {
        return field.kind == FieldKind::Check && field.count > 1;
    }

    [[nodiscard]] int column(std::size_t index) const {
        return kMargin + static_cast<int>(index % per_line()) * width_;
    }

    [[nodiscard]] bool starts_line(std::size_t index) const { return index % per_line() == 0; }

  private:
    [[nodiscard]] std::size_t per_line() const {
        return static_cast<std::size_t>(
            std::max(1, (columns_ - 2 * kMargin) / std::max(width_, 1)));
    }

    int columns_;
    int width_ = 0;
};

PageLayout lay_out_lines(const Fields& fields, const std::string& page, int columns) {
    PageLayout layout;
    const CheckColumns checks(fields, columns);
    const int text_column = kMargin + widest_caption(fields, page) + 2;
    const int room = std::max(columns - text_column - kMargin, kNarrowestText);
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const SetupField& field = fields[i];
        if (field.page != page) {
            continue;
        }
        const bool goes_on = CheckColumns::is_one(field) && !checks.starts_line(field.index);
        const int line = goes_on ? layout.lines - 1 : layout.lines++;
        const int shown = static_cast<int>(field.shown().size());
        if (CheckColumns::is_one(field)) {
            layout.places.push_back({i, line, checks.column(field.index), shown});
        } else if (is_single(field)) {
            layout.places.push_back({i, line, kMargin, shown});
        } else {
            add_label(layout, line, kMargin, field.caption);
            const int width = field.kind == FieldKind::Choice ? shown : kWidestText;
            layout.places.push_back({i, line, text_column, std::min(width, room)});
        }
    }
    return layout;
}

// --- units --------------------------------------------------------------------------------------

struct UnitColumn {
    std::string_view name;
    std::string_view title;
    int width;
};

constexpr std::array<UnitColumn, 9> kUnitColumns{{
    {"aName", "Location", 10},
    {"aIP", "IP", 15},
    {"aComputer", "Computer", 16},
    {"aDC", "ID", 4},
    {"aPower", "Power", 5},
    {"aMotion", "Motion", 6},
    {"Option", "Slide", 6},
    {"aDoCID", "CID", 3},
    {"aX10Server", "xAP Target", 5},
}};

// "Option3" belongs to the third row.
std::size_t unit_row(const SetupField& field) {
    constexpr std::string_view kOption = "Option";
    return field.is_group ? static_cast<std::size_t>(field.name.at(kOption.size()) - '1')
                          : field.index;
}

PageLayout lay_out_units(const Fields& fields, const std::string& page, int columns) {
    PageLayout layout;
    int column = kMargin;
    for (const UnitColumn& row : kUnitColumns) {
        add_label(layout, 0, column, std::string(row.title), Look::Title);
        const bool is_last = &row == &kUnitColumns.back();
        const int width =
            is_last ? std::clamp(columns - column - kMargin, row.width, kWidestText) : row.width;
        for (std::size_t i = 0; i < fields.size(); ++i) {
            const SetupField& field = fields[i];
            if (field.page == page && field.name.starts_with(row.name)) {
                const int line = static_cast<int>(unit_row(field)) + 1;
                layout.places.push_back({i, line, column, width, true});
                layout.lines = std::max(layout.lines, line + 1);
            }
        }
        column += width + 1;
    }
    return layout;
}

// --- slides -------------------------------------------------------------------------------------

std::size_t chosen_group(const Fields& fields) {
    const auto group = std::ranges::find(fields, "aGroupSelect", &SetupField::name);
    return group == fields.end() ? 0 : group->chosen;
}

// The fields of the control array that belong to the chosen group.
std::vector<std::size_t> of_group(const Fields& fields, std::string_view name) {
    constexpr std::size_t kGroups = 3;
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (fields[i].name == name &&
            fields[i].index / (fields[i].count / kGroups) == chosen_group(fields)) {
            found.push_back(i);
        }
    }
    return found;
}

PageLayout lay_out_slides(const Fields& fields, const std::string& /*page*/, int columns) {
    constexpr int kLabel = 13;
    constexpr int kSeconds = 5;
    const int width = std::max(columns - kLabel - kSeconds - 2 - kMargin, kNarrowestText);
    PageLayout layout;
    const auto group = std::ranges::find(fields, "aGroupSelect", &SetupField::name);
    if (group == fields.end()) {
        return layout;
    }
    add_label(layout, 0, kMargin, group->caption);
    layout.places.push_back({static_cast<std::size_t>(group - fields.begin()), 0, kLabel,
                             static_cast<int>(group->shown().size())});
    add_label(layout, 2, kLabel, "FilePath", Look::Title);
    add_label(layout, 2, kLabel + width + 1, "Secs", Look::Title);
    const std::vector<std::size_t> paths = of_group(fields, "aSlideASP");
    const std::vector<std::size_t> seconds = of_group(fields, "aDwell");
    int line = 3;
    for (std::size_t i = 0; i < std::min(paths.size(), seconds.size()); ++i, ++line) {
        layout.places.push_back({paths[i], line, kLabel, width});
        layout.places.push_back({seconds[i], line, kLabel + width + 1, kSeconds});
    }
    ++line;
    for (const char* name : {"aServerPathGroup", "aFolderPathGroup"}) {
        for (const std::size_t field : of_group(fields, name)) {
            add_label(layout, line, kMargin, fields[field].caption);
            layout.places.push_back({field, line++, kLabel, width});
        }
    }
    layout.lines = line;
    return layout;
}

bool has(const Fields& fields, const std::string& page, std::string_view name) {
    return std::ranges::any_of(
        fields, [&](const SetupField& field) { return field.page == page && field.name == name; });
}

}  // namespace

PageLayout lay_out_page(const Fields& fields, const std::string& page, int columns) {
    const auto lay_out = has(fields, page, "aIP")            ? &lay_out_units
                         : has(fields, page, "aGroupSelect") ? &lay_out_slides
                                                             : &lay_out_lines;
    PageLayout layout = lay_out(fields, page, columns);
    std::ranges::stable_sort(layout.places, [](const FieldPlace& left, const FieldPlace& right) {
        return left.line != right.line ? left.line < right.line : left.column < right.column;
    });
    return layout;
}

}  // namespace app
