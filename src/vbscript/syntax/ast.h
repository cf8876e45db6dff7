#pragma once

#include <cassert>
#include <cstdint>
#include <span>
#include <string_view>
#include <variant>

// The syntax tree of a script. All nodes, lists, names and texts lie in the arena of the `Program`
// that owns them and live as long as it does; nothing in here owns or frees anything, so that the
// deepest tree goes away at once. The tree is read only once the parser is done.
//
// Nodes are told apart by `kind`; `as<Node>(expression)` gives the node itself:
//
//     switch (expression.kind) {
//         case ExpressionKind::Binary: return compile(as<Binary>(expression));
//
// How deep a reader may have to recurse: blocks and brackets nest at most `kMostNesting` deep, and
// no expression is higher than `kMostHeight` nodes, which only a chain such as `a & b & c` or
// `a.b.c` gets near. Such chains are deep on the left side alone.
namespace vbscript::ast {

inline constexpr std::uint32_t kMostNesting = 500;
inline constexpr std::uint32_t kMostHeight = 2000;

// Both from 1. A line ends with CR, LF or CR LF; a column counts 16-bit units.
struct Position {
    std::uint32_t line = 1;
    std::uint32_t column = 1;
    friend bool operator==(const Position&, const Position&) = default;
};

// An identifier, without the brackets that it may have been written in.
struct Name {
    std::u16string_view spelled{};  // as at this place of the source
    std::u16string_view folded{};   // in small letters: equal names are equal here
    std::uint32_t id = 0;           // index into Program::names(): equal names, equal ids
};

// ---------------------------------------------------------------------------------------------
// Expressions

enum class ExpressionKind : std::uint8_t {
    Literal,
    Identifier,
    Me,
    WithObject,
    Member,
    Apply,
    Parenthesized,
    New,
    Unary,
    Binary,
};

struct Expression {
    ExpressionKind kind;
    std::uint16_t height = 1;  // nodes on the longest way down, this one included
    // The token that makes the expression: the operator, the name behind the dot, the first "(" of
    // the arguments, or the token itself.
    Position position{};
};

// A missing argument, as in `f(1, , 2)`, is a null pointer.
using Arguments = std::span<const Expression* const>;

struct EmptyLiteral {};

struct NullLiteral {};

struct NothingLiteral {};

struct DateLiteral {
    double days = 0;  // since 30 December 1899
};

// Whole numbers are Integer if they fit, else Long, else Double. A negative number is a `Unary`
// but in `Const`.
using LiteralValue = std::variant<EmptyLiteral, NullLiteral, NothingLiteral, bool, std::int16_t,
                                  std::int32_t, double, DateLiteral, std::u16string_view>;

struct Literal : Expression {
    static constexpr ExpressionKind kKind = ExpressionKind::Literal;
    LiteralValue value{};
};

// A variable, a constant, or a function called without brackets.
struct Identifier : Expression {
    static constexpr ExpressionKind kKind = ExpressionKind::Identifier;
    Name name{};
};

struct Me : Expression {
    static constexpr ExpressionKind kKind = ExpressionKind::Me;
};

// What stands in front of the dot of `.Member`: the object of the innermost `With`. The parser
// makes sure that there is one in the same procedure.
struct WithObject : Expression {
    static constexpr ExpressionKind kKind = ExpressionKind::WithObject;
};

// `object.name`
struct Member : Expression {
    static constexpr ExpressionKind kKind = ExpressionKind::Member;
    const Expression* object = nullptr;
    Name name{};
};

// `callee(arguments)`: a call, an element of an array or a default property. `f()` has no
// arguments, but is an `Apply` nevertheless.
struct Apply : Expression {
    static constexpr ExpressionKind kKind = ExpressionKind::Apply;
    const Expression* callee = nullptr;
    Arguments arguments{};
};

// `(inner)`: a value, never a variable; as an argument it is passed by value.
struct Parenthesized : Expression {
    static constexpr ExpressionKind kKind = ExpressionKind::Parenthesized;
    const Expression* inner = nullptr;
};

struct New : Expression {
    static constexpr ExpressionKind kKind = ExpressionKind::New;
    Name class_name{};
};

enum class UnaryOperator : std::uint8_t { Minus, Plus, Not };

struct Unary : Expression {
    static constexpr ExpressionKind kKind = ExpressionKind::Unary;
    UnaryOperator operation = UnaryOperator::Minus;
    const Expression* operand = nullptr;
};

enum class BinaryOperator : std::uint8_t {
    Power,
    Multiply,
    Divide,
    IntegerDivide,
    Modulo,
    Add,
    Subtract,
    Concatenate,
    Equal,
    NotEqual,
    Less,
    Greater,
    LessOrEqual,
    GreaterOrEqual,
    Is,
    And,
    Or,
    Xor,
    Eqv,
    Imp,
};

struct Binary : Expression {
    static constexpr ExpressionKind kKind = ExpressionKind::Binary;
    BinaryOperator operation = BinaryOperator::Add;
    const Expression* left = nullptr;
    const Expression* right = nullptr;
};

// ---------------------------------------------------------------------------------------------
// Statements

enum class StatementKind : std::uint8_t {
    Dim,
    ReDim,
    Erase,
    Const,
    Assign,
    SetAssign,
    Call,
    If,
    SelectCase,
    For,
    ForEach,
    Do,
    While,
    With,
    Exit,
    OnError,
    Stop,
};

struct Statement {
    StatementKind kind;
    Position position{};  // first token
};

using Block = std::span<const Statement* const>;

enum class Visibility : std::uint8_t { Unstated, Public, Private };

// One variable of `Dim`, `Public` or `Private`: `a`, `b(3, 4)` with its upper bounds, or `c()`.
struct Declarator {
    Name name{};
    Position position{};
    bool is_array = false;
    std::span<const std::int32_t> bounds{};  // empty for `c()`
};

struct Dim : Statement {
    static constexpr StatementKind kKind = StatementKind::Dim;
    Visibility visibility = Visibility::Unstated;
    std::span<const Declarator> variables{};
};

struct ReDimItem {
    Name name{};
    Position position{};
    std::span<const Expression* const> bounds{};  // at least one
};

struct ReDim : Statement {
    static constexpr StatementKind kKind = StatementKind::ReDim;
    bool preserve = false;
    std::span<const ReDimItem> items{};
};

struct Erase : Statement {
    static constexpr StatementKind kKind = StatementKind::Erase;
    std::span<const Expression* const> targets{};  // Identifier, Member or Apply
};

struct Constant {
    Name name{};
    Position position{};
    LiteralValue value{};
};

struct Const : Statement {
    static constexpr StatementKind kKind = StatementKind::Const;
    Visibility visibility = Visibility::Unstated;
    std::span<const Constant> constants{};
};

// `target = value`; the target is an Identifier, a Member or an Apply.
struct Assign : Statement {
    static constexpr StatementKind kKind = StatementKind::Assign;
    const Expression* target = nullptr;
    const Expression* value = nullptr;
};

// `Set target = value`
struct SetAssign : Statement {
    static constexpr StatementKind kKind = StatementKind::SetAssign;
    const Expression* target = nullptr;
    const Expression* value = nullptr;
};

// `f a, b`, `f (a), b`, `Call f(a, b)`. `f (a)` has the argument Parenthesized(a); `Call f(a)` has
// `a` itself. The callee never is the Apply that holds these arguments.
struct Call : Statement {
    static constexpr StatementKind kKind = StatementKind::Call;
    const Expression* callee = nullptr;
    Arguments arguments{};
};

struct Branch {
    Position position{};  // of If, ElseIf
    const Expression* condition = nullptr;
    Block body{};
};

struct If : Statement {
    static constexpr StatementKind kKind = StatementKind::If;
    std::span<const Branch> branches{};  // If and each ElseIf
    Block otherwise{};
};

struct Case {
    Position position{};
    std::span<const Expression* const> values{};
    Block body{};
};

struct SelectCase : Statement {
    static constexpr StatementKind kKind = StatementKind::SelectCase;
    const Expression* subject = nullptr;
    std::span<const Case> cases{};
    Block otherwise{};
};

struct For : Statement {
    static constexpr StatementKind kKind = StatementKind::For;
    Name variable{};
    const Expression* from = nullptr;
    const Expression* to = nullptr;
    const Expression* step = nullptr;  // null: 1
    Block body{};
    Position end{};  // of Next
};

struct ForEach : Statement {
    static constexpr StatementKind kKind = StatementKind::ForEach;
    Name variable{};
    const Expression* collection = nullptr;
    Block body{};
    Position end{};  // of Next
};

// Where the condition of a loop stands, and which way it turns.
enum class LoopTest : std::uint8_t { Endless, WhileFirst, UntilFirst, WhileLast, UntilLast };

struct Do : Statement {
    static constexpr StatementKind kKind = StatementKind::Do;
    LoopTest test = LoopTest::Endless;
    const Expression* condition = nullptr;  // null if endless
    Block body{};
    Position end{};  // of Loop
};

// `While` ... `Wend`, which `Exit Do` does not leave.
struct While : Statement {
    static constexpr StatementKind kKind = StatementKind::While;
    const Expression* condition = nullptr;
    Block body{};
    Position end{};  // of Wend
};

struct With : Statement {
    static constexpr StatementKind kKind = StatementKind::With;
    const Expression* object = nullptr;
    Block body{};
};

// The parser makes sure that what is left is around the statement.
enum class ExitTarget : std::uint8_t { Do, For, Sub, Function, Property };

struct Exit : Statement {
    static constexpr StatementKind kKind = StatementKind::Exit;
    ExitTarget target = ExitTarget::Do;
};

struct OnError : Statement {
    static constexpr StatementKind kKind = StatementKind::OnError;
    bool resume_next = false;  // else GoTo 0
};

struct Stop : Statement {
    static constexpr StatementKind kKind = StatementKind::Stop;
};

// ---------------------------------------------------------------------------------------------
// Procedures and classes

enum class ProcedureKind : std::uint8_t { Sub, Function, PropertyGet, PropertyLet, PropertySet };

struct Parameter {
    Name name{};
    Position position{};
    bool by_value = false;
    bool is_array = false;  // written `name()`
};

struct Procedure {
    ProcedureKind kind = ProcedureKind::Sub;
    Visibility visibility = Visibility::Unstated;  // unstated is public
    bool is_default = false;
    Name name{};
    Position position{};  // first token, such as Public
    std::span<const Parameter> parameters{};
    Block body{};
    Position end{};  // of End Sub
};

struct Field {
    Visibility visibility = Visibility::Unstated;  // Dim: public
    Declarator variable{};
};

// Fields and procedures in the order of the source. Names are unique; Get, Let and Set of one
// property share a name, and their numbers of parameters fit.
struct Class {
    Name name{};
    Position position{};
    std::span<const Field> fields{};
    std::span<const Procedure* const> procedures{};
};

// Requires: `Node` is the node of `node.kind`.
template <typename Node, typename Base>
[[nodiscard]] const Node& as(const Base& node) noexcept {
    assert(node.kind == Node::kKind);
    return static_cast<const Node&>(node);
}

}  // namespace vbscript::ast
