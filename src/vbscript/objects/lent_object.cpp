#include "vbscript/objects/lent_object.h"

#include <algorithm>
#include <vector>

#include "automation/array.h"
#include "automation/code_page.h"
#include "automation/run_time_error.h"
#include "vbscript/objects/automation_bridge.h"
#include "vbscript/objects/native_object.h"
#include "vbscript/value/array.h"
#include "vbscript/value/convert.h"
#include "vbscript/value/script_error.h"

namespace vbscript {
namespace {

using SharedArray = std::shared_ptr<automation::Array>;

// Elements that the member changed go back into the array that the script passed; the array itself
// goes back when it has got another size.
void write_array_back(BridgeTable& table, const automation::Array& changed, Value& argument) {
    const auto elements = changed.elements();
    if (elements.size() != argument.array().elements().size()) {
        argument = table.from_automation(std::make_shared<automation::Array>(changed));
        return;
    }
    for (std::size_t i = 0; i < elements.size(); ++i) {
        const Value& old = argument.array().elements()[i];
        if (elements[i] == table.to_automation(old)) {
            continue;
        }
        writable(argument).elements()[i] = table.from_automation(elements[i]);
    }
}

void write_back(BridgeTable& table, const automation::Value& given, const automation::Value& now,
                Value& argument) {
    const auto* array = now.get_if<SharedArray>();
    if (given != now) {
        argument = table.from_automation(now);
    } else if (array != nullptr && *array && argument.is(Type::Array)) {
        write_array_back(table, **array, argument);
    }
}

// Walks an object that has a count and numbered items.
class ItemEnumerator final : public Enumerator {
  public:
    ItemEnumerator(Context& context, Ref<Object> collection) noexcept
        : context_(context), collection_(std::move(collection)) {}

    std::optional<Value> next() override {
        const Value count = collection_->call(context_, u"Count", Access::Call, {});
        if (place_ >= to_long(context_, count)) {
            return std::nullopt;
        }
        Value index(++place_);
        return collection_->call(context_, u"Item", Access::Call, std::span(&index, 1));
    }

  private:
    Context& context_;
    Ref<Object> collection_;
    std::int32_t place_ = 0;
};

}  // namespace

LentObject::LentObject(std::shared_ptr<BridgeTable> table,
                       std::shared_ptr<automation::Object> object)
    : table_(std::move(table)), object_(std::move(object)), class_(table_->class_of(*object_)) {}

LentObject::~LentObject() {
    table_->forget_lent(*object_);
}

std::u16string LentObject::type_name() const {
    return automation::code_page_to_utf16(object_->type_name());
}

std::optional<MemberId> LentObject::find_member(std::u16string_view name) const {
    return object_->find_member(automation::utf16_to_code_page(name));
}

Value LentObject::invoke(Context& /*context*/, MemberId member, Access access,
                         std::span<Value> arguments) {
    const Ref<LentObject> alive(this);
    std::vector<automation::Value> passed;
    passed.reserve(arguments.size());
    for (const Value& argument : arguments) {
        passed.push_back(table_->to_automation(argument));
    }
    const std::vector<automation::Value> given = passed;
    const std::size_t references = arguments.size() - (access == Access::Call ? 0U : 1U);
    try {
        const automation::Value result =
            object_->invoke(member, static_cast<automation::Access>(access), passed);
        for (std::size_t i = 0; i < references; ++i) {
            write_back(*table_, given[i], passed[i], arguments[i]);
        }
        return table_->from_automation(result);
    } catch (const automation::RunTimeError& error) {
        throw to_script_error(error, type_name());
    }
}

std::unique_ptr<Enumerator> LentObject::enumerate(Context& context) {
    if (const auto member = find_member(u"_NewEnum")) {
        const Value list = invoke(context, *member, Access::Call, {});
        if (!list.is(Type::Array)) {
            return nullptr;
        }
        const auto elements = list.array().elements();
        return std::make_unique<ListEnumerator>(
            std::vector<Value>(elements.begin(), elements.end()));
    }
    if (!find_member(u"Count") || !find_member(u"Item")) {
        return nullptr;
    }
    return std::make_unique<ItemEnumerator>(context, Ref<Object>(this));
}

}  // namespace vbscript
