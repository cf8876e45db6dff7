#include <array>
#include <optional>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "home/phone/address_book.h"

namespace home {

namespace {

using host::AddressRecord;

struct Row {
    std::size_t line = 0;  // from 1, at which it begins
    std::vector<std::string> fields;
    bool is_whole = true;  // no quote is open at the end
};

struct Column {
    std::string_view title;
    std::string AddressRecord::*field;
};

constexpr std::array<Column, 6> kColumns{{
    {"first", &AddressRecord::First},
    {"last", &AddressRecord::last},
    {"home", &AddressRecord::home_phone},
    {"cell", &AddressRecord::cell_phone},
    {"work", &AddressRecord::business_phone},
    {"sound", &AddressRecord::announce_local_wav},
}};

// Takes rows off a text, one after the other.
class Rows {
  public:
    explicit Rows(std::string_view text) : rest_(text) {}

    std::optional<Row> next() {
        if (rest_.empty()) {
            return std::nullopt;
        }
        Row row{.line = line_, .fields = {std::string()}};
        bool is_quoted = false;
        while (!rest_.empty()) {
            const char c = rest_.front();
            rest_.remove_prefix(1);
            line_ += c == '\n' ? 1 : 0;
            if (c == '"' && is_quoted && rest_.starts_with('"')) {
                row.fields.back() += c;
                rest_.remove_prefix(1);
            } else if (c == '"') {
                is_quoted = !is_quoted;
            } else if (c == '\n' && !is_quoted) {
                return row;
            } else if (c == ',' && !is_quoted) {
                row.fields.emplace_back();
            } else if (c != '\r' || is_quoted) {
                row.fields.back() += c;
            }
        }
        row.is_whole = !is_quoted;
        return row;
    }

  private:
    std::string_view rest_;
    std::size_t line_ = 1;
};

std::string AddressRecord::*field_of(const std::string& title) {
    for (const Column& column : kColumns) {
        if (automation::equals_ignoring_case(automation::trim(title), column.title)) {
            return column.field;
        }
    }
    return nullptr;
}

AddressRecord record_of(const Row& row, const std::vector<std::string AddressRecord::*>& columns) {
    AddressRecord record;
    for (std::size_t i = 0; i < row.fields.size() && i < columns.size(); ++i) {
        if (columns[i] != nullptr) {
            record.*columns[i] = automation::utf8_to_code_page(automation::trim(row.fields[i]));
        }
    }
    return record;
}

bool is_blank(const Row& row) {
    return row.fields.size() == 1 && automation::trim(row.fields.front()).empty();
}

}  // namespace

std::vector<AddressRecord> read_csv(std::string_view text, const BookComplaint& complain) {
    std::vector<AddressRecord> records;
    Rows rows(text);
    const auto titles = rows.next();
    std::vector<std::string AddressRecord::*> columns;
    for (const std::string& title : titles ? titles->fields : std::vector<std::string>()) {
        columns.push_back(field_of(title));
    }
    while (const auto row = rows.next()) {
        if (is_blank(*row)) {
            continue;
        }
        const AddressRecord record = record_of(*row, columns);
        const bool has_number =
            !(record.home_phone + record.cell_phone + record.business_phone).empty();
        if (!row->is_whole || !has_number) {
            complain("line " + std::to_string(row->line) + ": " +
                     (row->is_whole ? "no number" : "a quote that does not end") + ", passed over");
            continue;
        }
        records.push_back(record);
    }
    return records;
}

}  // namespace home
