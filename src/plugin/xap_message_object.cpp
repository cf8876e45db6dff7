#include "plugin/xap_message_object.h"

#include <array>

#include "automation/array.h"
#include "automation/convert.h"

namespace plugin {

namespace {

using automation::Value;

std::vector<std::string> texts_of(const Value& list) {
    std::vector<std::string> texts;
    if (const auto* const array = list.get_if<std::shared_ptr<automation::Array>>()) {
        for (const Value& element : (*array)->elements()) {
            texts.push_back(automation::to_text(element));
        }
        return texts;
    }
    const std::shared_ptr<automation::Object> collection = automation::to_object(list);
    const std::int32_t count = automation::to_int32(collection->call("Count"));
    for (std::int32_t i = 1; i <= count; ++i) {
        std::array<Value, 1> index{Value(i)};
        texts.push_back(automation::to_text(collection->call("Item", index)));
    }
    return texts;
}

}  // namespace

std::string XapMessageObject::text(std::string_view member) const {
    return automation::to_text(object_->call(member));
}

std::vector<std::string> XapMessageObject::MsgSection() const {
    return texts_of(object_->call("MsgSection"));
}

std::vector<std::string> XapMessageObject::msgCollection(std::size_t block) const {
    std::array<Value, 1> index{Value(static_cast<std::int32_t>(block))};
    return texts_of(object_->call("msgCollection", index));
}

bool XapMessageObject::CompareClass(std::string_view message_class) const {
    std::array<Value, 1> argument{Value(std::string(message_class))};
    return automation::to_boolean(object_->call("CompareClass", argument));
}

bool XapMessageObject::CompareTarget(std::string_view address) const {
    std::array<Value, 1> argument{Value(std::string(address))};
    return automation::to_boolean(object_->call("CompareTarget", argument));
}

std::string XapMessageObject::GetItem(std::string_view section, std::string_view key) const {
    std::array<Value, 2> arguments{Value(std::string(section)), Value(std::string(key))};
    return automation::to_text(object_->call("GetItem", arguments));
}

}  // namespace plugin
