#include "vbscript/value/string.h"

#include "vbscript/value/script_error.h"

namespace vbscript {

void String::append(std::u16string_view more) {
    if (more.size() > kMaximumUnits - units_.size()) {
        throw ScriptError(ErrorNumber::OutOfStringSpace);
    }
    units_.append(more);
}

}  // namespace vbscript
