#include "vbscript/syntax/declared_names.h"

namespace vbscript::syntax {
namespace {

using What = DeclaredNames::What;

constexpr std::uint32_t bit_of(What what) {
    return 1U << static_cast<std::uint32_t>(what);
}

constexpr std::uint32_t kProperty = bit_of(What::Get) | bit_of(What::Let) | bit_of(What::Set);

// The bits that may be there already.
std::uint32_t compatible_with(What what) {
    const std::uint32_t bit = bit_of(what);
    if (what == What::Procedure) {
        return bit;
    }
    return (bit & kProperty) != 0 ? kProperty & ~bit : 0U;
}

}  // namespace

void DeclaredNames::declare(const ast::Name& name, What what, const TokenStream& tokens,
                            const Token& token) {
    std::uint32_t& bits = found_[name.id];
    if ((bits & ~compatible_with(what)) != 0) {
        tokens.fail_at(SyntaxErrorNumber::NameRedefined, token);
    }
    bits |= bit_of(what);
}

}  // namespace vbscript::syntax
