#include "vbscript/syntax/expression_parser.h"

#include <algorithm>
#include <optional>

namespace vbscript::syntax {
namespace {

using ast::BinaryOperator;
using ast::Expression;
using ast::ExpressionKind;

// What binds tighter has the higher number. Not stands between And and the comparisons; a sign
// between * and ^.
constexpr int kLoosest = 1;
constexpr int kComparison = 6;
constexpr int kPower = 12;

struct Operator {
    BinaryOperator operation;
    int precedence;
};

std::optional<Operator> word_operator(Keyword keyword) {
    switch (keyword) {
        case Keyword::Imp:
            return Operator{BinaryOperator::Imp, kLoosest};
        case Keyword::Eqv:
            return Operator{BinaryOperator::Eqv, 2};
        case Keyword::Xor:
            return Operator{BinaryOperator::Xor, 3};
        case Keyword::Or:
            return Operator{BinaryOperator::Or, 4};
        case Keyword::And:
            return Operator{BinaryOperator::And, 5};
        case Keyword::Is:
            return Operator{BinaryOperator::Is, kComparison};
        case Keyword::Mod:
            return Operator{BinaryOperator::Modulo, 9};
        default:
            return std::nullopt;
    }
}

std::optional<Operator> binary_operator(const Token& token) {
    switch (token.kind) {
        case TokenKind::Word:
            return word_operator(token.keyword);
        case TokenKind::Equal:
            return Operator{BinaryOperator::Equal, kComparison};
        case TokenKind::NotEqual:
            return Operator{BinaryOperator::NotEqual, kComparison};
        case TokenKind::Less:
            return Operator{BinaryOperator::Less, kComparison};
        case TokenKind::Greater:
            return Operator{BinaryOperator::Greater, kComparison};
        case TokenKind::LessOrEqual:
            return Operator{BinaryOperator::LessOrEqual, kComparison};
        case TokenKind::GreaterOrEqual:
            return Operator{BinaryOperator::GreaterOrEqual, kComparison};
        case TokenKind::Ampersand:
            return Operator{BinaryOperator::Concatenate, 7};
        case TokenKind::Plus:
            return Operator{BinaryOperator::Add, 8};
        case TokenKind::Minus:
            return Operator{BinaryOperator::Subtract, 8};
        case TokenKind::Backslash:
            return Operator{BinaryOperator::IntegerDivide, 10};
        case TokenKind::Star:
            return Operator{BinaryOperator::Multiply, 11};
        case TokenKind::Slash:
            return Operator{BinaryOperator::Divide, 11};
        case TokenKind::Caret:
            return Operator{BinaryOperator::Power, kPower};
        default:
            return std::nullopt;
    }
}

}  // namespace

const Expression* ExpressionParser::expression() {
    return binary(kLoosest);
}

std::span<const Expression* const> ExpressionParser::expressions() {
    std::vector<const Expression*> found;
    do {
        found.push_back(expression());
    } while (tokens_.take(TokenKind::Comma));
    return arena_.list(found);
}

bool ExpressionParser::is_at_operator() const {
    return binary_operator(tokens_.current()).has_value();
}

bool ExpressionParser::is_at_operand() const {
    switch (tokens_.current().kind) {
        case TokenKind::Literal:
        case TokenKind::LeftParenthesis:
        case TokenKind::Dot:
        case TokenKind::Plus:
        case TokenKind::Minus:
            return true;
        case TokenKind::Word:
            break;
        default:
            return false;
    }
    switch (tokens_.current().keyword) {
        case Keyword::Empty:
        case Keyword::False:
        case Keyword::Me:
        case Keyword::New:
        case Keyword::Not:
        case Keyword::Nothing:
        case Keyword::Null:
        case Keyword::True:
            return true;
        default:
            return tokens_.is_at_name();
    }
}

const Expression* ExpressionParser::binary(int lowest) {
    const Nesting::Level level(nesting_, tokens_);
    return continue_binary(operand(), lowest);
}

const Expression* ExpressionParser::continue_binary(const Expression* left, int lowest) {
    for (;;) {
        const auto found = binary_operator(tokens_.current());
        if (!found || found->precedence < lowest) {
            return left;
        }
        const ast::Position position = tokens_.current().position;
        tokens_.advance();
        const Expression* right = binary(found->precedence + 1);
        left = arena_.make<ast::Binary>(
            Expression{.kind = ExpressionKind::Binary,
                       .height = height_above(std::max(left->height, right->height)),
                       .position = position},
            found->operation, left, right);
    }
}

const Expression* ExpressionParser::operand() {
    if (tokens_.is(Keyword::Not)) {
        return unary(ast::UnaryOperator::Not, kComparison);
    }
    if (tokens_.is(TokenKind::Minus)) {
        return unary(ast::UnaryOperator::Minus, kPower);
    }
    if (tokens_.is(TokenKind::Plus)) {
        return unary(ast::UnaryOperator::Plus, kPower);
    }
    return primary();
}

const Expression* ExpressionParser::unary(ast::UnaryOperator operation, int lowest) {
    const ast::Position position = tokens_.current().position;
    tokens_.advance();
    const Expression* inner = binary(lowest);
    return arena_.make<ast::Unary>(Expression{.kind = ExpressionKind::Unary,
                                              .height = height_above(inner->height),
                                              .position = position},
                                   operation, inner);
}

const Expression* ExpressionParser::primary() {
    switch (tokens_.current().kind) {
        case TokenKind::Literal:
            return literal(tokens_.current().literal);
        case TokenKind::LeftParenthesis:
            return continue_target(in_parentheses(), Place::InExpression);
        case TokenKind::Dot:
            return target(Place::InExpression);
        case TokenKind::Word:
            return word();
        default:
            tokens_.fail(SyntaxErrorNumber::SyntaxError);
    }
}

const Expression* ExpressionParser::word() {
    switch (tokens_.current().keyword) {
        case Keyword::True:
            return literal(true);
        case Keyword::False:
            return literal(false);
        case Keyword::Empty:
            return literal(ast::EmptyLiteral{});
        case Keyword::Null:
            return literal(ast::NullLiteral{});
        case Keyword::Nothing:
            return literal(ast::NothingLiteral{});
        case Keyword::New:
            return new_object();
        default:
            break;
    }
    if (!tokens_.is_at_name() && !tokens_.is(Keyword::Me)) {
        tokens_.fail(SyntaxErrorNumber::SyntaxError);
    }
    return target(Place::InExpression);
}

const Expression* ExpressionParser::literal(const ast::LiteralValue& value) {
    const auto* node = arena_.make<ast::Literal>(
        Expression{.kind = ExpressionKind::Literal, .position = tokens_.current().position}, value);
    tokens_.advance();
    return node;
}

const Expression* ExpressionParser::in_parentheses() {
    const ast::Position position = tokens_.current().position;
    tokens_.advance();
    const Expression* inner = expression();
    tokens_.expect(TokenKind::RightParenthesis, SyntaxErrorNumber::ExpectedRightParenthesis);
    return parenthesized(inner, position);
}

const Expression* ExpressionParser::parenthesized(const Expression* inner, ast::Position position) {
    return arena_.make<ast::Parenthesized>(Expression{.kind = ExpressionKind::Parenthesized,
                                                      .height = height_above(inner->height),
                                                      .position = position},
                                           inner);
}

const Expression* ExpressionParser::new_object() {
    const ast::Position position = tokens_.current().position;
    tokens_.advance();
    const ast::Name name = tokens_.expect_name();
    return arena_.make<ast::New>(Expression{.kind = ExpressionKind::New, .position = position},
                                 name);
}

const Expression* ExpressionParser::target(Place place) {
    return continue_target(target_start(), place);
}

const Expression* ExpressionParser::target_start() {
    const Token& token = tokens_.current();
    const ast::Position position = token.position;
    if (token.kind == TokenKind::Dot) {
        if (surroundings_.withs == 0) {
            tokens_.fail(SyntaxErrorNumber::InvalidReference);
        }
        return member(arena_.make<ast::WithObject>(
            Expression{.kind = ExpressionKind::WithObject, .position = position}));
    }
    if (token.keyword == Keyword::Me) {
        if (!surroundings_.may_use_me) {
            tokens_.fail(SyntaxErrorNumber::InvalidUseOfMe);
        }
        tokens_.advance();
        return arena_.make<ast::Me>(Expression{.kind = ExpressionKind::Me, .position = position});
    }
    const ast::Name name = tokens_.expect_name();
    return arena_.make<ast::Identifier>(
        Expression{.kind = ExpressionKind::Identifier, .position = position}, name);
}

const Expression* ExpressionParser::continue_target(const Expression* start, Place place) {
    const Expression* found = start;
    for (;;) {
        if (tokens_.is(TokenKind::LeftParenthesis)) {
            found = apply(found);
        } else if (is_member_dot(place)) {
            found = member(found);
        } else {
            return found;
        }
    }
}

// `Echo .Name` within With gives an argument, while `object _` with `.Name` on the next line goes
// on with the object.
bool ExpressionParser::is_member_dot(Place place) const {
    const bool starts_argument = place == Place::StartOfStatement && surroundings_.withs > 0 &&
                                 tokens_.current().follows_blank;
    return tokens_.is(TokenKind::Dot) && !starts_argument;
}

const Expression* ExpressionParser::member(const Expression* object) {
    tokens_.advance();
    const ast::Position position = tokens_.current().position;
    const ast::Name name = tokens_.expect_member_name();
    return arena_.make<ast::Member>(Expression{.kind = ExpressionKind::Member,
                                               .height = height_above(object->height),
                                               .position = position},
                                    object, name);
}

const Expression* ExpressionParser::apply(const Expression* callee) {
    const ast::Position position = tokens_.current().position;
    tokens_.advance();
    std::vector<const Expression*> arguments;
    if (!tokens_.is(TokenKind::RightParenthesis)) {
        arguments.push_back(argument());
        rest_of_arguments(arguments);
    }
    tokens_.expect(TokenKind::RightParenthesis, SyntaxErrorNumber::ExpectedRightParenthesis);
    std::uint16_t height = callee->height;
    for (const Expression* one : arguments) {
        height = std::max(height, one == nullptr ? std::uint16_t{0} : one->height);
    }
    return arena_.make<ast::Apply>(
        Expression{
            .kind = ExpressionKind::Apply, .height = height_above(height), .position = position},
        callee, arena_.list(arguments));
}

ast::Arguments ExpressionParser::arguments() {
    std::vector<const Expression*> found{argument()};
    rest_of_arguments(found);
    return arena_.list(found);
}

ast::Arguments ExpressionParser::arguments_from(const ast::Apply& apply) {
    const Expression* first = parenthesized(apply.arguments.front(), apply.position);
    std::vector<const Expression*> found{continue_binary(first, kLoosest)};
    rest_of_arguments(found);
    return arena_.list(found);
}

void ExpressionParser::rest_of_arguments(std::vector<const Expression*>& arguments) {
    while (tokens_.take(TokenKind::Comma)) {
        arguments.push_back(argument());
    }
}

// One argument, or null where it is left out.
const Expression* ExpressionParser::argument() {
    if (tokens_.is(TokenKind::Comma) || tokens_.is(TokenKind::RightParenthesis) ||
        tokens_.is_at_end_of_statement()) {
        return nullptr;
    }
    return expression();
}

std::uint16_t ExpressionParser::height_above(std::uint32_t height) const {
    if (height >= ast::kMostHeight) {
        tokens_.fail(SyntaxErrorNumber::OutOfMemory);
    }
    return static_cast<std::uint16_t>(height + 1);
}

}  // namespace vbscript::syntax
