#include "vbscript/objects/key_table.h"

#include <bit>
#include <cstring>

#include "vbscript/value/convert.h"
#include "vbscript/value/object.h"

namespace vbscript {
namespace {

constexpr std::size_t kFirstSlots = 16;
constexpr std::uint64_t kMixer = 0x9E3779B97F4A7C15ULL;

[[nodiscard]] constexpr std::uint64_t mix(std::uint64_t state, std::uint64_t word) noexcept {
    state = (state ^ word) * kMixer;
    return state ^ (state >> 32);
}

[[nodiscard]] std::uint64_t load(const char16_t* units, std::size_t count) noexcept {
    std::uint64_t word = 0;
    std::memcpy(&word, units, count * sizeof(char16_t));
    return word;
}

[[nodiscard]] std::uint32_t hash_units(std::u16string_view units) noexcept {
    constexpr std::size_t kStep = sizeof(std::uint64_t) / sizeof(char16_t);
    std::uint64_t state = units.size();
    const char16_t* from = units.data();
    std::size_t left = units.size();
    for (; left >= kStep; left -= kStep, from += kStep) {
        state = mix(state, load(from, kStep));
    }
    if (left > 0) {
        state = mix(state, load(from, left));
    }
    return static_cast<std::uint32_t>(mix(state, kMixer));
}

[[nodiscard]] std::uint32_t hash_lower_units(std::u16string_view units) noexcept {
    std::uint64_t state = units.size();
    for (const char16_t unit : units) {
        state = mix(state, to_lower(unit));
    }
    return static_cast<std::uint32_t>(state);
}

[[nodiscard]] bool is_same_text(std::u16string_view left, std::u16string_view right) noexcept {
    return left.size() == right.size() &&
           (left.data() == right.data() ||
            std::memcmp(left.data(), right.data(), left.size() * sizeof(char16_t)) == 0);
}

// Keys of different kinds are never the same.
enum class KeyKind : std::uint8_t { Number, Text, Object, Other };

[[nodiscard]] KeyKind kind_of(const Value& key) noexcept {
    switch (key.type()) {
        case Type::String:
            return KeyKind::Text;
        case Type::Boolean:
        case Type::Byte:
        case Type::Integer:
        case Type::Long:
        case Type::Single:
        case Type::Double:
        case Type::Currency:
        case Type::Date:
            return KeyKind::Number;
        case Type::Object:
            return KeyKind::Object;
        default:
            return KeyKind::Other;
    }
}

[[nodiscard]] double number_of(const Value& key) noexcept {
    constexpr double kCurrencyUnits = 10000;
    switch (key.type()) {
        case Type::Single:
        case Type::Double:
        case Type::Date:
            return key.real();
        case Type::Currency:
            return static_cast<double>(key.currency().units) / kCurrencyUnits;
        default:
            return key.number();
    }
}

[[nodiscard]] std::uint32_t hash_number(double number) noexcept {
    return static_cast<std::uint32_t>(mix(kMixer, std::bit_cast<std::uint64_t>(number + 0.0)));
}

}  // namespace

std::uint32_t KeyTable::hash(const Value& key) const noexcept {
    switch (kind_of(key)) {
        case KeyKind::Text:
            return comparison_ == KeyComparison::Binary ? hash_units(key.units())
                                                        : hash_lower_units(key.units());
        case KeyKind::Number:
            return hash_number(number_of(key));
        case KeyKind::Object:
            return static_cast<std::uint32_t>(
                mix(kMixer, std::bit_cast<std::uintptr_t>(key.object())));
        case KeyKind::Other:
            return static_cast<std::uint32_t>(key.type());
    }
    return 0;
}

bool KeyTable::is_key(const Entry& entry, const Value& key) const noexcept {
    const KeyKind kind = kind_of(key);
    if (kind != kind_of(entry.key)) {
        return false;
    }
    switch (kind) {
        case KeyKind::Text:
            return comparison_ == KeyComparison::Binary
                       ? is_same_text(entry.key.units(), key.units())
                       : equals_ignoring_case(entry.key.units(), key.units());
        case KeyKind::Number:
            return number_of(entry.key) == number_of(key);
        case KeyKind::Object:
            return entry.key.object() == key.object();
        case KeyKind::Other:
            return entry.key.type() == key.type();
    }
    return false;
}

std::size_t KeyTable::slot_of(const Value& key, std::uint32_t hash) const noexcept {
    std::size_t slot = hash & mask();
    for (; slots_[slot].place != 0; slot = (slot + 1) & mask()) {
        if (slots_[slot].hash == hash && is_key(entries_[slots_[slot].place - 1], key)) {
            break;
        }
    }
    return slot;
}

KeyTable::Entry* KeyTable::find(const Value& key) noexcept {
    if (slots_.empty()) {
        return nullptr;
    }
    const Slot& slot = slots_[slot_of(key, hash(key))];
    return slot.place == 0 ? nullptr : &entries_[slot.place - 1];
}

KeyTable::Added KeyTable::find_or_add(const Value& key) {
    const std::uint32_t key_hash = hash(key);
    if (!slots_.empty()) {
        const Slot& slot = slots_[slot_of(key, key_hash)];
        if (slot.place != 0) {
            return {entries_[slot.place - 1], false};
        }
    }
    make_room();
    Entry& entry = entries_.emplace_back(Entry{key, Value(), key_hash, true});
    slots_[slot_of(key, key_hash)] = {key_hash, static_cast<std::uint32_t>(entries_.size())};
    ++live_;
    return {entry, true};
}

void KeyTable::rename(const Value& old_key, const Value& new_key) {
    const std::size_t old_slot = slot_of(old_key, hash(old_key));
    const std::uint32_t place = slots_[old_slot].place;
    const std::uint32_t new_hash = hash(new_key);
    free_slot(old_slot);
    slots_[slot_of(new_key, new_hash)] = {new_hash, place};
    entries_[place - 1].hash = new_hash;
    // The old key goes last: `old_key` may be that very value.
    const Value gone = std::exchange(entries_[place - 1].key, new_key);
}

bool KeyTable::remove(const Value& key) {
    if (slots_.empty()) {
        return false;
    }
    const std::size_t slot = slot_of(key, hash(key));
    const std::uint32_t place = slots_[slot].place;
    if (place == 0) {
        return false;
    }
    free_slot(slot);
    --live_;
    // The end of an object may run script that comes back here: the table is whole by then.
    Entry gone = std::exchange(entries_[place - 1], Entry{});
    return true;
}

void KeyTable::clear() noexcept {
    std::vector<Entry> gone;
    gone.swap(entries_);
    slots_.clear();
    live_ = 0;
}

// Entries behind the freed slot move up, so that every key stays reachable from its own slot.
void KeyTable::free_slot(std::size_t slot) noexcept {
    std::size_t free = slot;
    for (std::size_t next = (slot + 1) & mask(); slots_[next].place != 0;
         next = (next + 1) & mask()) {
        const std::size_t home = slots_[next].hash & mask();
        if (((next - home) & mask()) >= ((next - free) & mask())) {
            slots_[free] = slots_[next];
            free = next;
        }
    }
    slots_[free] = {};
}

void KeyTable::make_room() {
    if (slots_.empty()) {
        slots_.resize(kFirstSlots);
        return;
    }
    const std::size_t wanted = entries_.size() + 1;
    if (wanted * 4 <= slots_.size() * 3) {
        return;
    }
    if (live_ * 2 <= entries_.size()) {
        drop_removed_entries();
        index_entries(slots_.size());
    } else {
        index_entries(slots_.size() * 2);
    }
}

void KeyTable::drop_removed_entries() {
    std::erase_if(entries_, [](const Entry& entry) { return !entry.is_live; });
}

void KeyTable::index_entries(std::size_t slots) {
    std::vector<Slot> index(slots);
    for (std::size_t place = 0; place < entries_.size(); ++place) {
        if (!entries_[place].is_live) {
            continue;
        }
        std::size_t slot = entries_[place].hash & (slots - 1);
        while (index[slot].place != 0) {
            slot = (slot + 1) & (slots - 1);
        }
        index[slot] = {entries_[place].hash, static_cast<std::uint32_t>(place + 1)};
    }
    slots_ = std::move(index);
}

}  // namespace vbscript
