#include "vbscript/objects/dictionary.h"

#include <array>

#include "vbscript/objects/object_errors.h"
#include "vbscript/value/array.h"
#include "vbscript/value/script_error.h"

namespace vbscript {
namespace {

constexpr auto kMembers = std::to_array<NativeMember>({
    native_property<&Dictionary::item, &Dictionary::let_item, &Dictionary::set_item>(u"Item", 1),
    native_method<&Dictionary::add>(u"Add", 2),
    native_method<&Dictionary::exists>(u"Exists", 1),
    native_method<&Dictionary::items>(u"Items"),
    native_method<&Dictionary::keys>(u"Keys"),
    native_method<&Dictionary::remove>(u"Remove", 1),
    native_method<&Dictionary::remove_all>(u"RemoveAll"),
    native_property<&Dictionary::count>(u"Count"),
    native_property<&Dictionary::compare_mode, &Dictionary::let_compare_mode>(u"CompareMode"),
    native_property<&Dictionary::hash_value>(u"HashVal", 1),
    {.name = u"Key",
     .required = 1,
     .accepted = 1,
     .let = &detail::call_native<&Dictionary::let_key>,
     .is_property = true},
});

[[nodiscard]] const Value& key_of(const Arguments& arguments, std::size_t index = 0) {
    const Value& key = arguments.at(index);
    if (key.is(Type::Array)) {
        throw ScriptError(ErrorNumber::InvalidProcedureCall);
    }
    return key;
}

[[nodiscard]] Value array_of(std::vector<Value> elements) {
    return Value(make<Array>(std::move(elements)));
}

}  // namespace

const NativeClass& Dictionary::native_class() const noexcept {
    static const NativeClass kClass(u"Dictionary", kMembers, u"Item");
    return kClass;
}

std::unique_ptr<Enumerator> Dictionary::enumerate(Context& /*context*/) {
    return std::make_unique<ListEnumerator>(key_list());
}

Value Dictionary::add(Arguments& arguments) {
    const Value& key = key_of(arguments);
    const Value& item = arguments.at(1);
    const auto [entry, is_new] = table_.find_or_add(key);
    if (!is_new) {
        throw object_error(ObjectError::DuplicateKey);
    }
    entry.item = item;
    return {};
}

Value Dictionary::exists(Arguments& arguments) {
    return Value(table_.find(key_of(arguments)) != nullptr);
}

Value Dictionary::item(Arguments& arguments) {
    return table_.find_or_add(key_of(arguments)).entry.item;
}

Value Dictionary::let_item(Arguments& arguments) {
    put(key_of(arguments), arguments.context().plain(arguments.new_value()));
    return {};
}

Value Dictionary::set_item(Arguments& arguments) {
    put(key_of(arguments), arguments.new_value());
    return {};
}

Value Dictionary::let_key(Arguments& arguments) {
    const Value& key = key_of(arguments);
    const Value& new_key = key_of(arguments, 1);
    const KeyTable::Entry* entry = table_.find(key);
    if (entry == nullptr) {
        throw object_error(ObjectError::ElementNotFound);
    }
    const KeyTable::Entry* other = table_.find(new_key);
    if (other != nullptr && other != entry) {
        throw object_error(ObjectError::DuplicateKey);
    }
    table_.rename(key, new_key);
    return {};
}

Value Dictionary::remove(Arguments& arguments) {
    if (!table_.remove(key_of(arguments))) {
        throw object_error(ObjectError::ElementNotFound);
    }
    return {};
}

Value Dictionary::remove_all() {
    table_.clear();
    return {};
}

Value Dictionary::items() const {
    std::vector<Value> items;
    items.reserve(table_.size());
    table_.each([&](const KeyTable::Entry& entry) { items.push_back(entry.item); });
    return array_of(std::move(items));
}

Value Dictionary::keys() const {
    return array_of(key_list());
}

Value Dictionary::count() const {
    return Value(static_cast<std::int32_t>(table_.size()));
}

Value Dictionary::compare_mode() const {
    return Value(static_cast<std::int32_t>(table_.comparison()));
}

Value Dictionary::let_compare_mode(Arguments& arguments) {
    const std::int32_t mode = arguments.number(0);
    constexpr auto kLast = static_cast<std::int32_t>(KeyComparison::Database);
    if (table_.size() != 0 || mode < 0 || mode > kLast) {
        throw ScriptError(ErrorNumber::InvalidProcedureCall);
    }
    table_.set_comparison(static_cast<KeyComparison>(mode));
    return {};
}

Value Dictionary::hash_value(Arguments& arguments) {
    constexpr std::uint32_t kBuckets = 1201;
    return Value(static_cast<std::int32_t>(table_.hash(key_of(arguments)) % kBuckets));
}

void Dictionary::put(const Value& key, Value item) {
    // The old item goes last: its end may run script that changes the table.
    table_.find_or_add(key).entry.item.swap(item);
}

std::vector<Value> Dictionary::key_list() const {
    std::vector<Value> keys;
    keys.reserve(table_.size());
    table_.each([&](const KeyTable::Entry& entry) { keys.push_back(entry.key); });
    return keys;
}

}  // namespace vbscript
