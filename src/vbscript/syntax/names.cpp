#include "vbscript/syntax/names.h"

#include <algorithm>
#include <array>

#include "vbscript/value/convert.h"

namespace vbscript::syntax {
namespace {

struct KeywordText {
    std::u16string_view text;
    Keyword keyword;
};

// In alphabetical order.
constexpr auto kKeywords = std::to_array<KeywordText>({
    {u"and", Keyword::And},
    {u"as", Keyword::Reserved},
    {u"boolean", Keyword::Reserved},
    {u"byref", Keyword::ByRef},
    {u"byte", Keyword::Reserved},
    {u"byval", Keyword::ByVal},
    {u"call", Keyword::Call},
    {u"case", Keyword::Case},
    {u"class", Keyword::Class},
    {u"const", Keyword::Const},
    {u"currency", Keyword::Reserved},
    {u"debug", Keyword::Reserved},
    {u"default", Keyword::Default},
    {u"dim", Keyword::Dim},
    {u"do", Keyword::Do},
    {u"double", Keyword::Reserved},
    {u"each", Keyword::Each},
    {u"else", Keyword::Else},
    {u"elseif", Keyword::ElseIf},
    {u"empty", Keyword::Empty},
    {u"end", Keyword::End},
    {u"endif", Keyword::Reserved},
    {u"enum", Keyword::Reserved},
    {u"eqv", Keyword::Eqv},
    {u"erase", Keyword::Erase},
    {u"error", Keyword::Error},
    {u"event", Keyword::Reserved},
    {u"exit", Keyword::Exit},
    {u"explicit", Keyword::Explicit},
    {u"false", Keyword::False},
    {u"for", Keyword::For},
    {u"function", Keyword::Function},
    {u"get", Keyword::Get},
    {u"goto", Keyword::GoTo},
    {u"if", Keyword::If},
    {u"imp", Keyword::Imp},
    {u"implements", Keyword::Reserved},
    {u"in", Keyword::In},
    {u"integer", Keyword::Reserved},
    {u"is", Keyword::Is},
    {u"let", Keyword::Let},
    {u"like", Keyword::Reserved},
    {u"long", Keyword::Reserved},
    {u"loop", Keyword::Loop},
    {u"lset", Keyword::Reserved},
    {u"me", Keyword::Me},
    {u"mod", Keyword::Mod},
    {u"new", Keyword::New},
    {u"next", Keyword::Next},
    {u"not", Keyword::Not},
    {u"nothing", Keyword::Nothing},
    {u"null", Keyword::Null},
    {u"on", Keyword::On},
    {u"option", Keyword::Option},
    {u"optional", Keyword::Reserved},
    {u"or", Keyword::Or},
    {u"paramarray", Keyword::Reserved},
    {u"preserve", Keyword::Preserve},
    {u"private", Keyword::Private},
    {u"property", Keyword::Property},
    {u"public", Keyword::Public},
    {u"raiseevent", Keyword::Reserved},
    {u"redim", Keyword::ReDim},
    {u"rem", Keyword::Rem},
    {u"resume", Keyword::Resume},
    {u"rset", Keyword::Reserved},
    {u"select", Keyword::Select},
    {u"set", Keyword::Set},
    {u"shared", Keyword::Reserved},
    {u"single", Keyword::Reserved},
    {u"static", Keyword::Reserved},
    {u"step", Keyword::Step},
    {u"stop", Keyword::Stop},
    {u"sub", Keyword::Sub},
    {u"then", Keyword::Then},
    {u"to", Keyword::To},
    {u"true", Keyword::True},
    {u"type", Keyword::Reserved},
    {u"typeof", Keyword::Reserved},
    {u"until", Keyword::Until},
    {u"variant", Keyword::Reserved},
    {u"wend", Keyword::Wend},
    {u"while", Keyword::While},
    {u"with", Keyword::With},
    {u"xor", Keyword::Xor},
});

static_assert(std::ranges::is_sorted(kKeywords, {}, &KeywordText::text));

Keyword keyword_of(std::u16string_view folded) {
    const auto found = std::ranges::lower_bound(kKeywords, folded, {}, &KeywordText::text);
    return found != kKeywords.end() && found->text == folded ? found->keyword : Keyword::None;
}

}  // namespace

KnownName& Names::find(std::u16string_view spelled) {
    std::array<char16_t, kMostUnits> units;
    std::ranges::transform(spelled, units.begin(), [](char16_t unit) { return to_lower(unit); });
    const std::u16string_view folded(units.data(), spelled.size());
    const auto found = known_.find(folded);
    if (found != known_.end()) {
        return found->second;
    }
    const std::u16string_view kept = arena_.text(folded);
    return known_.try_emplace(kept, KnownName{.folded = kept, .keyword = keyword_of(kept)})
        .first->second;
}

ast::Name Names::name(std::u16string_view spelled, KnownName& known) {
    if (known.id == KnownName::kNoId) {
        known.id = static_cast<std::uint32_t>(by_id_.size());
        by_id_.push_back(known.folded);
    }
    return {.spelled = spelled, .folded = known.folded, .id = known.id};
}

}  // namespace vbscript::syntax
