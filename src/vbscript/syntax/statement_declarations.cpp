#include <algorithm>
#include <limits>

#include "vbscript/syntax/statement_parser.h"

namespace vbscript::syntax {
namespace {

constexpr std::size_t kMostDimensions = 60;

struct Negated {
    ast::LiteralValue operator()(std::int16_t number) const {
        if (number == std::numeric_limits<std::int16_t>::min()) {
            return -static_cast<std::int32_t>(number);
        }
        return static_cast<std::int16_t>(-number);
    }

    ast::LiteralValue operator()(std::int32_t number) const {
        if (number == std::numeric_limits<std::int32_t>::min()) {
            return -static_cast<double>(number);
        }
        return -number;
    }

    ast::LiteralValue operator()(double number) const { return -number; }

    template <typename Other>
    ast::LiteralValue operator()(const Other& /*other*/) const {
        return ast::NothingLiteral{};
    }
};

bool is_number(const ast::LiteralValue& value) {
    return std::holds_alternative<std::int16_t>(value) ||
           std::holds_alternative<std::int32_t>(value) || std::holds_alternative<double>(value);
}

}  // namespace

using ast::Expression;
using ast::Statement;
using ast::StatementKind;

const Statement* StatementParser::dim(ast::Visibility visibility, ast::Position position) {
    if (visibility == ast::Visibility::Unstated) {
        tokens_.advance();
    }
    return arena_.make<ast::Dim>(Statement{StatementKind::Dim, position}, visibility,
                                 declarators(*names_));
}

std::span<const ast::Declarator> StatementParser::declarators(DeclaredNames& names) {
    std::vector<ast::Declarator> found;
    do {
        found.push_back(declarator(names));
    } while (tokens_.take(TokenKind::Comma));
    return arena_.list(found);
}

ast::Declarator StatementParser::declarator(DeclaredNames& names) {
    const Token token = tokens_.current();
    ast::Declarator declared{.name = tokens_.expect_name(), .position = token.position};
    names.declare(declared.name, DeclaredNames::What::Variable, tokens_, token);
    if (tokens_.take(TokenKind::LeftParenthesis)) {
        declared.is_array = true;
        declared.bounds = fixed_bounds();
    }
    return declared;
}

// Up to the closing bracket; none at all makes an array without elements.
std::span<const std::int32_t> StatementParser::fixed_bounds() {
    std::vector<std::int32_t> bounds;
    if (!tokens_.is(TokenKind::RightParenthesis)) {
        do {
            bounds.push_back(fixed_bound());
        } while (tokens_.take(TokenKind::Comma));
    }
    if (bounds.size() > kMostDimensions) {
        tokens_.fail(SyntaxErrorNumber::SyntaxError);
    }
    tokens_.expect(TokenKind::RightParenthesis, SyntaxErrorNumber::ExpectedRightParenthesis);
    return arena_.list(bounds);
}

std::int32_t StatementParser::fixed_bound() {
    const Token& token = tokens_.current();
    std::int32_t bound = -1;
    if (token.kind == TokenKind::Literal) {
        if (const auto* number = std::get_if<std::int16_t>(&token.literal)) {
            bound = *number;
        } else if (const auto* large = std::get_if<std::int32_t>(&token.literal)) {
            bound = *large;
        }
    }
    if (bound < 0) {
        tokens_.fail(SyntaxErrorNumber::ExpectedIntegerConstant);
    }
    tokens_.advance();
    return bound;
}

const Statement* StatementParser::redim() {
    const ast::Position position = tokens_.current().position;
    tokens_.advance();
    const bool preserve = tokens_.take(Keyword::Preserve);
    std::vector<ast::ReDimItem> items;
    do {
        const ast::Position place = tokens_.current().position;
        const ast::Name name = tokens_.expect_name();
        tokens_.expect(TokenKind::LeftParenthesis, SyntaxErrorNumber::ExpectedLeftParenthesis);
        const auto bounds = expressions_.expressions();
        if (bounds.size() > kMostDimensions) {
            tokens_.fail(SyntaxErrorNumber::SyntaxError);
        }
        tokens_.expect(TokenKind::RightParenthesis, SyntaxErrorNumber::ExpectedRightParenthesis);
        items.push_back({.name = name, .position = place, .bounds = bounds});
    } while (tokens_.take(TokenKind::Comma));
    return arena_.make<ast::ReDim>(Statement{StatementKind::ReDim, position}, preserve,
                                   arena_.list(items));
}

const Statement* StatementParser::erase() {
    const ast::Position position = tokens_.current().position;
    tokens_.advance();
    std::vector<const Expression*> targets;
    do {
        targets.push_back(expressions_.target(ExpressionParser::Place::InExpression));
    } while (tokens_.take(TokenKind::Comma));
    return arena_.make<ast::Erase>(Statement{StatementKind::Erase, position}, arena_.list(targets));
}

const Statement* StatementParser::constants(ast::Visibility visibility, ast::Position position) {
    tokens_.advance();
    std::vector<ast::Constant> found;
    do {
        found.push_back(constant());
    } while (tokens_.take(TokenKind::Comma));
    return arena_.make<ast::Const>(Statement{StatementKind::Const, position}, visibility,
                                   arena_.list(found));
}

ast::Constant StatementParser::constant() {
    const Token token = tokens_.current();
    ast::Constant found{.name = tokens_.expect_name(), .position = token.position, .value = {}};
    names_->declare(found.name, DeclaredNames::What::Constant, tokens_, token);
    tokens_.expect(TokenKind::Equal, SyntaxErrorNumber::ExpectedEqual);
    found.value = constant_value();
    return found;
}

// A literal with signs and brackets around it, but no calculation.
ast::LiteralValue StatementParser::constant_value() {
    const Nesting::Level level(nesting_, tokens_);
    if (tokens_.take(TokenKind::Plus)) {
        return constant_value();
    }
    if (tokens_.is(TokenKind::Minus)) {
        return negated_constant();
    }
    if (tokens_.take(TokenKind::LeftParenthesis)) {
        const ast::LiteralValue inner = constant_value();
        tokens_.expect(TokenKind::RightParenthesis, SyntaxErrorNumber::ExpectedRightParenthesis);
        return inner;
    }
    ast::LiteralValue value;
    switch (tokens_.current().keyword) {
        case Keyword::True:
            value = true;
            break;
        case Keyword::False:
            value = false;
            break;
        case Keyword::Empty:
            value = ast::EmptyLiteral{};
            break;
        case Keyword::Null:
            value = ast::NullLiteral{};
            break;
        case Keyword::Nothing:
            value = ast::NothingLiteral{};
            break;
        default:
            if (!tokens_.is(TokenKind::Literal)) {
                tokens_.fail(SyntaxErrorNumber::ExpectedLiteral);
            }
            value = tokens_.current().literal;
    }
    tokens_.advance();
    return value;
}

ast::LiteralValue StatementParser::negated_constant() {
    tokens_.advance();
    const Token token = tokens_.current();
    const ast::LiteralValue value = constant_value();
    if (!is_number(value)) {
        tokens_.fail_at(SyntaxErrorNumber::ExpectedLiteral, token);
    }
    return std::visit(Negated{}, value);
}

}  // namespace vbscript::syntax
