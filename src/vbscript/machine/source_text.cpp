#include "vbscript/machine/source_text.h"

#include <variant>

#include "vbscript/value/convert.h"
#include "vbscript/value/locale.h"

namespace vbscript {

namespace {

struct LiteralText {
    std::u16string operator()(std::u16string_view text) const {
        return std::u16string(u"[string: \"").append(text).append(u"\"]");
    }

    std::u16string operator()(std::int16_t number) const {
        return (*this)(static_cast<double>(number));
    }

    std::u16string operator()(std::int32_t number) const {
        return (*this)(static_cast<double>(number));
    }

    std::u16string operator()(double number) const {
        return u"[number: " + text_of_double(locales().front(), number) + u"]";
    }

    std::u16string operator()(bool truth) const { return truth ? u"True" : u"False"; }

    std::u16string operator()(ast::EmptyLiteral) const { return u"Empty"; }

    std::u16string operator()(ast::NullLiteral) const { return u"Null"; }

    std::u16string operator()(ast::NothingLiteral) const { return u"Nothing"; }

    std::u16string operator()(ast::DateLiteral) const { return {}; }
};

}  // namespace

std::u16string text_of(const ast::Expression& node) {
    using ast::ExpressionKind;
    switch (node.kind) {
        case ExpressionKind::Literal:
            return std::visit(LiteralText{}, ast::as<ast::Literal>(node).value);
        case ExpressionKind::Identifier:
            return std::u16string(ast::as<ast::Identifier>(node).name.spelled);
        case ExpressionKind::Me:
            return u"Me";
        case ExpressionKind::Member: {
            const auto& member = ast::as<ast::Member>(node);
            std::u16string text = text_of(*member.object);
            if (!text.empty()) {
                text.append(u".");
            }
            return text.append(member.name.spelled);
        }
        case ExpressionKind::Apply:
            return text_of(*ast::as<ast::Apply>(node).callee).append(u"(...)");
        case ExpressionKind::Parenthesized:
            return text_of(*ast::as<ast::Parenthesized>(node).inner);
        case ExpressionKind::New:
            return std::u16string(ast::as<ast::New>(node).class_name.spelled);
        case ExpressionKind::WithObject:
        case ExpressionKind::Unary:
        case ExpressionKind::Binary:
            return {};
    }
    return {};
}

std::u16string_view line_of(std::u16string_view source, std::uint32_t number) noexcept {
    for (; number > 1; --number) {
        const std::size_t end = source.find_first_of(u"\r\n");
        if (end == std::u16string_view::npos) {
            return {};
        }
        const bool is_pair = source.substr(end, 2) == u"\r\n";
        source.remove_prefix(end + (is_pair ? 2 : 1));
    }
    return source.substr(0, source.find_first_of(u"\r\n"));
}

}  // namespace vbscript
