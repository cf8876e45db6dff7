#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "vbscript/value/value.h"

namespace vbscript {

// How keys that are texts compare.
enum class KeyComparison : std::uint8_t { Binary = 0, Text = 1, Database = 2 };

// Keys with one value each, in the order in which they were added. The entries stand in blocks that
// never move; an open-addressed index of hashes leads to them, so that a look-up allocates nothing
// and mostly touches one entry. Numbers of all sub-types are one kind of key and texts another;
// objects are keys by identity. A missing argument is no key: it stands in a removed entry. Used by
// `Dictionary` alone.
class KeyTable {
  public:
    struct Entry {
        Value key;
        Value item;

        [[nodiscard]] bool is_removed() const noexcept { return key.is_missing(); }
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

    // Calls `visit` with each entry that is there. Requires: `visit` leaves the table alone.
    template <typename Visit>
    void each(const Visit& visit) const {
        for (std::size_t place = 0; place < used_; ++place) {
            const Entry& entry = entry_at(place);
            if (!entry.is_removed()) {
                visit(entry);
            }
        }
    }

    [[nodiscard]] std::uint32_t hash(const Value& key) const noexcept;

  private:
    // A table of 100,000 keys is some thousand pages of memory: growing by blocks touches each
    // once.
    static constexpr std::size_t kBlock = 256;

    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t place = 0;  // of the entry, plus 1; 0 is free
    };

    [[nodiscard]] Entry& entry_at(std::size_t place) const noexcept {
        return blocks_[place / kBlock][place % kBlock];
    }

    [[nodiscard]] std::size_t mask() const noexcept { return slots_.size() - 1; }

    [[nodiscard]] bool is_key(const Entry& entry, const Value& key) const noexcept;

    // The slot of the key, or the free one where it would go. Requires: slots.
    [[nodiscard]] std::size_t slot_of(const Value& key, std::uint32_t hash) const noexcept;

    // Requires: a free slot, and a key that is not there.
    static void put_into(std::vector<Slot>& index, Slot slot) noexcept;

    void free_slot(std::size_t slot) noexcept;
    void make_room();
    void close_gaps();
    void grow_index();

    std::vector<std::unique_ptr<Entry[]>> blocks_;
    std::vector<Slot> slots_;  // none, or a power of two of which at most three quarters are used
    std::size_t used_ = 0;     // entries, removed ones too
    std::size_t live_ = 0;
    KeyComparison comparison_ = KeyComparison::Binary;
};

}  // namespace vbscript
