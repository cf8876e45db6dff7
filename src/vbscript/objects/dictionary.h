#pragma once

#include "vbscript/objects/key_table.h"
#include "vbscript/objects/native_object.h"

namespace vbscript {

// `Scripting.Dictionary`. Reading the item of a key that is not there adds the key. Shared by the
// values that hold it.
class Dictionary final : public NativeObject {
  public:
    [[nodiscard]] std::unique_ptr<Enumerator> enumerate(Context& context) override;

    // Members; each takes what a script gives. Throws: ScriptError 5 for a key that is an array
    // and for a comparison that is set too late, 457 for a key that is there already, 32811 for
    // one that is not.
    Value add(Arguments& arguments);
    Value exists(Arguments& arguments);
    Value item(Arguments& arguments);
    Value let_item(Arguments& arguments);
    Value set_item(Arguments& arguments);
    Value let_key(Arguments& arguments);
    Value remove(Arguments& arguments);
    Value remove_all();
    Value items() const;
    Value keys() const;
    Value count() const;
    Value compare_mode() const;
    Value let_compare_mode(Arguments& arguments);
    Value hash_value(Arguments& arguments);

  protected:
    [[nodiscard]] const NativeClass& native_class() const noexcept override;

  private:
    void put(const Value& key, Value item);
    [[nodiscard]] std::vector<Value> key_list() const;

    KeyTable table_;
};

}  // namespace vbscript
