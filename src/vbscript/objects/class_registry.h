#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "vbscript/value/context.h"
#include "vbscript/value/object.h"

namespace vbscript {

// The classes that `CreateObject` knows. Filled by whoever sets an engine up, and shared by as many
// engines as see the same classes.
class ClassRegistry {
  public:
    // May give none, when the class is there but no object can be made.
    using Factory = std::function<Ref<Object>(Context& context)>;

    // Names compare without regard to case. A class that is added again replaces the first one.
    void add(std::u16string_view name, Factory factory);

    // A version behind the name, as in "Scripting.Dictionary.1", may be left out by the registry:
    // it leads to the class without one.
    [[nodiscard]] bool contains(std::u16string_view name) const;

    // Throws: ScriptError 429 "ActiveX component can't create object: 'name'" for an unknown name
    // and for a factory that gives none, and what the factory throws.
    [[nodiscard]] Ref<Object> create(Context& context, std::u16string_view name) const;

  private:
    [[nodiscard]] const Factory* find(std::u16string_view name) const;

    std::unordered_map<std::u16string, Factory> factories_;  // by name in lower case
};

// The classes that need nothing but the language: `Scripting.Dictionary`, `VBScript.RegExp`,
// `ADODB.Recordset`.
void add_standard_classes(ClassRegistry& registry);

}  // namespace vbscript
