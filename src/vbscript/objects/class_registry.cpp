#include "vbscript/objects/class_registry.h"

#include <algorithm>

#include "vbscript/value/convert.h"
#include "vbscript/value/script_error.h"

namespace vbscript {
namespace {

[[nodiscard]] bool is_digit(char16_t unit) noexcept {
    return unit >= u'0' && unit <= u'9';
}

// "Scripting.Dictionary" of "Scripting.Dictionary.1" and "ADODB.Recordset" of
// "ADODB.Recordset.2.8"; the whole name when it has no version.
[[nodiscard]] std::u16string_view without_version(std::u16string_view name) noexcept {
    for (;;) {
        const std::size_t dot = name.rfind(u'.');
        if (dot == std::u16string_view::npos || dot + 1 == name.size()) {
            return name;
        }
        if (!std::ranges::all_of(name.substr(dot + 1), is_digit)) {
            return name;
        }
        name = name.substr(0, dot);
    }
}

}  // namespace

void ClassRegistry::add(std::u16string_view name, Factory factory) {
    factories_.insert_or_assign(to_lower(name), std::move(factory));
}

bool ClassRegistry::contains(std::u16string_view name) const {
    return find(name) != nullptr;
}

Ref<Object> ClassRegistry::create(Context& context, std::u16string_view name) const {
    const Factory* factory = find(name);
    Ref<Object> object = factory == nullptr ? Ref<Object>() : (*factory)(context);
    if (!object) {
        throw ScriptError(ErrorNumber::CannotCreateObject, name);
    }
    return object;
}

const ClassRegistry::Factory* ClassRegistry::find(std::u16string_view name) const {
    auto row = factories_.find(to_lower(name));
    if (row == factories_.end()) {
        row = factories_.find(to_lower(without_version(name)));
    }
    return row == factories_.end() ? nullptr : &row->second;
}

}  // namespace vbscript
