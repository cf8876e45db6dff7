#pragma once

#include <cstdint>
#include <string_view>

#include "vbscript/value/script_error.h"

namespace vbscript {

// Errors that only the engine's own objects raise; the numbers are as scripts see them in
// `Err.Number`.
enum class ObjectError : std::uint8_t {
    DuplicateKey,             // 457
    ElementNotFound,          // 32811
    WrongArgument,            // 3001
    NoCurrentRecord,          // 3021
    ItemNotInCollection,      // 3265
    ItemAlreadyInCollection,  // 3367
    WrongValueType,           // 3421
    ObjectClosed,             // 3704
    ObjectAlreadyOpen,        // 3705
    NoConnection,             // 3709
    ValueTooLong,             // -2147217887
};

[[nodiscard]] ScriptError object_error(ObjectError error);

}  // namespace vbscript
