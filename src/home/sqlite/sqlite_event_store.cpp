#include "home/sqlite/sqlite_event_store.h"

#include <string_view>

#include "automation/code_page.h"
#include "automation/run_time_error.h"
#include "automation/strings.h"
#include "home/events/notation.h"

namespace home {
namespace {

using automation::code_page_to_utf8;
using automation::utf8_to_code_page;

constexpr std::string_view kInsert =
    "INSERT INTO event(name, name_key, cause, actions, enabled, last_run, runs, last_day)"
    " VALUES(?, ?, ?, ?, ?, ?, ?, ?)";
constexpr std::string_view kUpdate =
    "UPDATE event SET name=?, name_key=?, cause=?, actions=?, enabled=?, last_run=?, runs=?,"
    " last_day=? WHERE id=?";
constexpr std::string_view kDelete = "DELETE FROM event WHERE id=?";
constexpr std::string_view kSelect =
    "SELECT id, name, cause, actions, enabled, last_run, runs, last_day FROM event ORDER BY id";
constexpr int kIdParameter = 9;

std::string lines_of(const std::vector<Action>& actions) {
    std::vector<std::string> lines;
    lines.reserve(actions.size());
    for (const Action& action : actions) {
        lines.push_back(text_of(action));
    }
    return automation::join(lines, "\n");
}

void bind(Statement& statement, const Event& event) {
    const EventDefinition& definition = event.definition;
    std::optional<std::int64_t> last_run;
    if (event.last_run) {
        last_run = event.last_run->time_since_epoch().count();
    }
    std::optional<std::int64_t> last_day;
    if (event.last_day) {
        last_day = event.last_day->time_since_epoch().count();
    }
    statement.bind(1, code_page_to_utf8(definition.name))
        .bind(2, code_page_to_utf8(automation::to_lower(definition.name)))
        .bind(3, code_page_to_utf8(text_of(definition.trigger)))
        .bind(4, code_page_to_utf8(lines_of(definition.actions)))
        .bind(5, std::int64_t{definition.enabled ? 1 : 0})
        .bind(6, last_run)
        .bind(7, event.runs)
        .bind(8, last_day);
}

// Throws: RunTimeError 5 for a trigger or action that is none.
Event event_in(const Statement& row) {
    Event event;
    event.id = row.number(0);
    event.definition.name = utf8_to_code_page(row.text(1));
    event.definition.trigger = parse_trigger(utf8_to_code_page(row.text(2)));
    for (const std::string& line : automation::split(utf8_to_code_page(row.text(3)), '\n')) {
        event.definition.actions.push_back(parse_action(line));
    }
    event.definition.enabled = row.number(4) != 0;
    if (const auto milliseconds = row.optional_number(5)) {
        event.last_run = automation::DateTime(std::chrono::milliseconds(*milliseconds));
    }
    event.runs = row.number(6);
    if (const auto days = row.optional_number(7)) {
        event.last_day = std::chrono::local_days(std::chrono::days(*days));
    }
    return event;
}

}  // namespace

SqliteEventStore::SqliteEventStore(Database& database)
    : database_(database),
      insert_(database.prepare(kInsert)),
      update_(database.prepare(kUpdate)),
      delete_(database.prepare(kDelete)) {}

StoredEvents SqliteEventStore::load() {
    StoredEvents stored;
    Statement rows = database_.prepare(kSelect);
    while (rows.step()) {
        try {
            stored.events.push_back(event_in(rows));
        } catch (const automation::RunTimeError& error) {
            stored.problems.push_back("The stored event '" + utf8_to_code_page(rows.text(1)) +
                                      "' cannot be read: " + error.description());
        }
    }
    return stored;
}

std::int64_t SqliteEventStore::add(const Event& event) {
    bind(insert_, event);
    insert_.step();
    return database_.last_row();
}

void SqliteEventStore::save(const Event& event) {
    bind(update_, event);
    update_.bind(kIdParameter, event.id).step();
}

void SqliteEventStore::remove(std::int64_t id) {
    delete_.bind(1, id).step();
}

}  // namespace home
