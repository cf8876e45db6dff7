#include "vbscript/machine/name_table.h"

#include "vbscript/value/convert.h"

namespace vbscript {

NameId NameTable::intern(std::u16string_view name) {
    return intern_folded(to_lower(name));
}

NameId NameTable::intern_folded(std::u16string_view folded) {
    if (const auto found = ids_.find(folded); found != ids_.end()) {
        return found->second;
    }
    const auto id = static_cast<NameId>(texts_.size());
    texts_.emplace_back(folded);
    ids_.emplace(texts_.back(), id);
    return id;
}

}  // namespace vbscript
