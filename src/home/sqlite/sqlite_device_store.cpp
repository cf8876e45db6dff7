#include "home/sqlite/sqlite_device_store.h"

#include <limits>
#include <string>

#include "automation/code_page.h"
#include "automation/run_time_error.h"

namespace home {
namespace {

using automation::code_page_to_utf8;
using automation::utf8_to_code_page;

constexpr std::string_view kInsert =
    "INSERT INTO device(name, hc, dc, location, dev_type_string, interface, iomisc, misc, iotype,"
    " value_list, buttons, ref, status, value, text, last_change)"
    " VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)";
constexpr std::string_view kUpdateFields =
    "UPDATE device SET name=?, hc=?, dc=?, location=?, dev_type_string=?, interface=?, iomisc=?,"
    " misc=?, iotype=?, value_list=?, buttons=? WHERE ref=?";
constexpr std::string_view kUpdateText = "UPDATE device SET text=? WHERE ref=?";
constexpr std::string_view kUpdateState =
    "UPDATE device SET status=?, value=?, last_change=? WHERE ref=?";
constexpr std::string_view kDelete = "DELETE FROM device WHERE ref=?";
constexpr std::string_view kSelect =
    "SELECT name, hc, dc, location, dev_type_string, interface, iomisc, misc, iotype, value_list,"
    " buttons, ref, status, value, text, last_change FROM device ORDER BY ref";
constexpr std::string_view kLastRef = "SELECT seq FROM sqlite_sequence WHERE name='device'";

constexpr int kFieldCount = 11;  // of the columns, those of DeviceFields, which come first

std::int32_t int32_in(const Statement& row, int column) {
    const std::int64_t number = row.number(column);
    if (number < std::numeric_limits<std::int32_t>::min() ||
        number > std::numeric_limits<std::int32_t>::max()) {
        throw automation::RunTimeError(
            automation::ErrorNumber::DeviceIoError,
            "Data/home.db: a device has the number " + std::to_string(number) + ", which is none");
    }
    return static_cast<std::int32_t>(number);
}

void bind_fields(Statement& statement, const host::DeviceFields& fields) {
    int parameter = 0;
    for (const std::string* text :
         {&fields.name, &fields.hc, &fields.dc, &fields.location, &fields.dev_type_string,
          &fields.interface_name, &fields.iomisc}) {
        statement.bind(++parameter, code_page_to_utf8(*text));
    }
    statement.bind(++parameter, std::int64_t{fields.misc});
    statement.bind(++parameter, std::int64_t{fields.iotype});
    statement.bind(++parameter, code_page_to_utf8(fields.values));
    statement.bind(++parameter, code_page_to_utf8(fields.buttons));
}

host::DeviceFields fields_in(const Statement& row) {
    host::DeviceFields fields;
    int column = 0;
    for (std::string* text : {&fields.name, &fields.hc, &fields.dc, &fields.location,
                              &fields.dev_type_string, &fields.interface_name, &fields.iomisc}) {
        *text = utf8_to_code_page(row.text(column++));
    }
    fields.misc = int32_in(row, column++);
    fields.iotype = int32_in(row, column++);
    fields.values = utf8_to_code_page(row.text(column++));
    fields.buttons = utf8_to_code_page(row.text(column++));
    return fields;
}

std::optional<std::int64_t> milliseconds_of(const DeviceState& state) {
    return state.last_change
               ? std::optional<std::int64_t>(state.last_change->time_since_epoch().count())
               : std::nullopt;
}

DeviceRecord record_in(const Statement& row) {
    DeviceRecord record;
    record.fields = fields_in(row);
    record.ref = int32_in(row, kFieldCount);
    record.status = int32_in(row, kFieldCount + 1);
    record.value = int32_in(row, kFieldCount + 2);
    record.text = utf8_to_code_page(row.text(kFieldCount + 3));
    if (const auto milliseconds = row.optional_number(kFieldCount + 4)) {
        record.last_change = automation::DateTime(std::chrono::milliseconds(*milliseconds));
    }
    return record;
}

}  // namespace

SqliteDeviceStore::SqliteDeviceStore(Database& database)
    : database_(database),
      insert_(database.prepare(kInsert)),
      update_fields_(database.prepare(kUpdateFields)),
      update_text_(database.prepare(kUpdateText)),
      update_state_(database.prepare(kUpdateState)),
      delete_(database.prepare(kDelete)) {}

StoredDevices SqliteDeviceStore::load() {
    StoredDevices stored;
    Statement rows = database_.prepare(kSelect);
    while (rows.step()) {
        stored.records.push_back(record_in(rows));
    }
    Statement last_ref = database_.prepare(kLastRef);
    if (last_ref.step()) {
        stored.last_ref = int32_in(last_ref, 0);
    }
    return stored;
}

void SqliteDeviceStore::add(const DeviceRecord& record) {
    bind_fields(insert_, record.fields);
    insert_.bind(kFieldCount + 1, std::int64_t{record.ref})
        .bind(kFieldCount + 2, std::int64_t{record.status})
        .bind(kFieldCount + 3, std::int64_t{record.value})
        .bind(kFieldCount + 4, code_page_to_utf8(record.text))
        .bind(kFieldCount + 5, milliseconds_of(record))
        .step();
}

void SqliteDeviceStore::save_fields(host::DeviceRef ref, const host::DeviceFields& fields) {
    bind_fields(update_fields_, fields);
    update_fields_.bind(kFieldCount + 1, std::int64_t{ref}).step();
}

void SqliteDeviceStore::save_text(host::DeviceRef ref, std::string_view text) {
    update_text_.bind(1, code_page_to_utf8(text)).bind(2, std::int64_t{ref}).step();
}

void SqliteDeviceStore::save_state(host::DeviceRef ref, const DeviceState& state) {
    update_state_.bind(1, std::int64_t{state.status})
        .bind(2, std::int64_t{state.value})
        .bind(3, milliseconds_of(state))
        .bind(4, std::int64_t{ref})
        .step();
}

void SqliteDeviceStore::remove(host::DeviceRef ref) {
    delete_.bind(1, std::int64_t{ref}).step();
}

}  // namespace home
