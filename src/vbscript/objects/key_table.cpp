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

// Lets every bit of a word reach the lowest ones, which alone choose a slot. The bits of a small
// whole number as a double are all high ones.
[[nodiscard]] constexpr std::uint32_t spread(std::uint64_t word) noexcept {
    constexpr std::uint64_t kFirst = 0xFF51AFD7ED558CCDULL;
    constexpr std::uint64_t kSecond = 0xC4CEB9FE1A85EC53ULL;
    constexpr int kHalf = 33;
    word = (word ^ (word >> kHalf)) * kFirst;
    word = (word ^ (word >> kHalf)) * kSecond;
    return static_cast<std::uint32_t>(word ^ (word >> kHalf));
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
    return spread(state);
}

[[nodiscard]] std::uint32_t hash_lower_units(std::u16string_view units) noexcept {
    std::uint64_t state = units.size();
    for (const char16_t unit : units) {
        state = mix(state, to_lower(unit));
    }
    return spread(state);
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
    return spread(std::bit_cast<std::uint64_t>(number + 0.0));
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
            return spread(std::bit_cast<std::uintptr_t>(key.object()));
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
        if (slots_[slot].hash == hash && is_key(entry_at(slots_[slot].place - 1), key)) {
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
    return slot.place == 0 ? nullptr : &entry_at(slot.place - 1);
}

KeyTable::Added KeyTable::find_or_add(const Value& key) {
    const std::uint32_t key_hash = hash(key);
    if (!slots_.empty()) {
        const Slot& slot = slots_[slot_of(key, key_hash)];
        if (slot.place != 0) {
            return {entry_at(slot.place - 1), false};
        }
    }
    make_room();
    if (used_ == blocks_.size() * kBlock) {
        blocks_.push_back(std::make_unique<Entry[]>(kBlock));
    }
    Entry& entry = entry_at(used_++);
    entry.key = key;
    put_into(slots_, {key_hash, static_cast<std::uint32_t>(used_)});
    ++live_;
    return {entry, true};
}

void KeyTable::rename(const Value& old_key, const Value& new_key) {
    const std::size_t old_slot = slot_of(old_key, hash(old_key));
    const std::uint32_t place = slots_[old_slot].place;
    free_slot(old_slot);
    put_into(slots_, {hash(new_key), place});
    // The old key goes last: `old_key` may be that very value.
    const Value gone = std::exchange(entry_at(place - 1).key, new_key);
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
    const Entry gone = std::exchange(entry_at(place - 1), Entry{Value(kMissing), Value()});
    return true;
}

void KeyTable::clear() noexcept {
    const auto gone = std::exchange(blocks_, {});
    slots_.clear();
    used_ = 0;
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
    }
    if (used_ > kFirstSlots && live_ * 2 <= used_) {
        close_gaps();
    }
    if ((live_ + 1) * 4 > slots_.size() * 3) {
        grow_index();
    }
}

// Entries move up to where others were removed; every hash is taken anew.
void KeyTable::close_gaps() {
    slots_.assign(slots_.size(), Slot{});
    std::size_t to = 0;
    for (std::size_t from = 0; from < used_; ++from) {
        if (entry_at(from).is_removed()) {
            continue;
        }
        if (to != from) {
            entry_at(to) = std::move(entry_at(from));
        }
        ++to;
        put_into(slots_, {hash(entry_at(to - 1).key), static_cast<std::uint32_t>(to)});
    }
    for (std::size_t place = to; place < used_; ++place) {
        entry_at(place) = Entry{};
    }
    used_ = to;
    blocks_.resize((used_ + kBlock - 1) / kBlock);
}

void KeyTable::grow_index() {
    std::vector<Slot> index(slots_.size() * 2);
    for (const Slot& slot : slots_) {
        if (slot.place != 0) {
            put_into(index, slot);
        }
    }
    slots_.swap(index);
}

void KeyTable::put_into(std::vector<Slot>& index, Slot slot) noexcept {
    const std::size_t last = index.size() - 1;
    std::size_t place = slot.hash & last;
    while (index[place].place != 0) {
        place = (place + 1) & last;
    }
    index[place] = slot;
}

}  // namespace vbscript
