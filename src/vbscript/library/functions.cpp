#include "vbscript/library/functions.h"

#include <vector>

#include "vbscript/library/arrays.h"
#include "vbscript/library/conversion.h"
#include "vbscript/library/dates.h"
#include "vbscript/library/environment.h"
#include "vbscript/library/formatting.h"
#include "vbscript/library/maths.h"
#include "vbscript/library/text.h"

namespace vbscript {
namespace {

std::vector<LibraryFunction> gathered() {
    std::vector<LibraryFunction> functions;
    for (const auto rows : {conversion_functions(), maths_functions(), text_functions(),
                            character_functions(), byte_functions(), search_functions(),
                            list_functions(), array_functions(), information_functions(),
                            environment_functions(), date_functions(), formatting_functions()}) {
        functions.insert(functions.end(), rows.begin(), rows.end());
    }
    return functions;
}

}  // namespace

std::span<const LibraryFunction> library_functions() {
    static const std::vector<LibraryFunction> kFunctions = gathered();
    return kFunctions;
}

}  // namespace vbscript
