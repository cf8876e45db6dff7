#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "home/events/event.h"
#include "home/sqlite/database.h"

namespace home {

// What a store of events gives back after a new start.
struct StoredEvents {
    std::vector<Event> events;          // oldest first
    std::vector<std::string> problems;  // one text for each that cannot be read
};

// Events in the home's database, triggers and actions in their notation, texts as UTF-8. Owned by
// the host. A change is committed when the call returns; all throw RunTimeError with the file's
// name, and then nothing is changed.
class SqliteEventStore {
  public:
    // The database, of `open_home_database`, must outlive the store.
    explicit SqliteEventStore(Database& database);

    [[nodiscard]] StoredEvents load();

    // Gives the new event's id, which was never given before.
    std::int64_t add(const Event& event);
    void save(const Event& event);
    void remove(std::int64_t id);

  private:
    Database& database_;
    Statement insert_;
    Statement update_;
    Statement delete_;
};

}  // namespace home
