#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "vbscript/value/value.h"

namespace vbscript {

// How keys that are texts compare.
enum class KeyComparison : std::uint8_t { Binary = 0, Text = 1, Database = 2 };

// Keys with one value each, in the order in which they were added. The entries stand in one list;
// an open-addressed index of hashes leads to them, so that a look-up allocates nothing and mostly
// touches one entry. Numbers of all sub-types are one kind of key and texts another; objects are
// keys by identity. Used by `Dictionary` alone.
class KeyTable {
  public:
    struct Entry {
        Value key;
        Value item;
        std::uint32_t hash = 0;
        bool is_live = false;
    };

    [[nodiscard]] std::size_t size() const noexcept { return live_; }

    [[nodiscard]] KeyComparison comparison() const noexcept { return comparison_; }

    // Requires: no keys.
    void set_comparison(KeyComparison comparison) noexcept { comparison_ = comparison; }

    // Stays valid until the table next changes. Null when there is none.
    [[nodiscard]] Entry* find(const Value& key) noexcept;

    // The entry of a key, with an Empty item when it is new, and whether it is new.
    struct Added {
        Entry& entry;
        bool is_new;
    };

    [[nodiscard]] Added find_or_add(const Value& key);

    // Gives the entry of `old_key` another key and leaves it in its place. Requires: `old_key` is
    // there and `new_key` is not.
    void rename(const Value& old_key, const Value& new_key);

    // False when there is no such key.
    bool remove(const Value& key);

    void clear() noexcept;

    // Entries that are not live were removed.
    [[nodiscard]] const std::vector<Entry>& entries() const noexcept { return entries_; }

    [[nodiscard]] std::uint32_t hash(const Value& key) const noexcept;

  private:
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t place = 0;  // in `entries_`, plus 1; 0 is free
    };

    [[nodiscard]] std::size_t mask() const noexcept { return slots_.size() - 1; }

    [[nodiscard]] bool is_key(const Entry& entry, const Value& key) const noexcept;

    // The slot of the key, or the free one where it would go. Requires: slots.
    [[nodiscard]] std::size_t slot_of(const Value& key, std::uint32_t hash) const noexcept;

    void free_slot(std::size_t slot) noexcept;
    void make_room();
    void drop_removed_entries();
    void index_entries(std::size_t slots);

    std::vector<Entry> entries_;
    std::vector<Slot> slots_;  // none, or a power of two of which at most three quarters are used
    std::size_t live_ = 0;
    KeyComparison comparison_ = KeyComparison::Binary;
};

}  // namespace vbscript
