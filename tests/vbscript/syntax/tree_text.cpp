#include "vbscript/syntax/tree_text.h"

#include <gtest/gtest.h>

#include <array>
#include <sstream>

namespace vbscript {
namespace {

using ast::as;

constexpr std::array kOperators{"^", "*", "/",  "\\", "mod", "+",   "-",  "&",   "=",   "<>",
                                "<", ">", "<=", ">=", "is",  "and", "or", "xor", "eqv", "imp"};
constexpr std::array kSigns{"neg", "pos", "not"};
constexpr std::array kTests{"do", "do-while", "do-until", "loop-while", "loop-until"};
constexpr std::array kVisibilities{"", "public ", "private "};
constexpr std::array kProcedures{"sub", "function", "get", "let", "set"};
constexpr std::array kExits{"do", "for", "sub", "function", "property"};

struct LiteralText {
    std::string operator()(ast::EmptyLiteral) const { return "empty"; }

    std::string operator()(ast::NullLiteral) const { return "null"; }

    std::string operator()(ast::NothingLiteral) const { return "nothing"; }

    std::string operator()(bool value) const { return value ? "true" : "false"; }

    std::string operator()(std::int16_t value) const { return std::to_string(value); }

    std::string operator()(std::int32_t value) const { return std::to_string(value) + "L"; }

    std::string operator()(double value) const { return number(value) + "D"; }

    std::string operator()(ast::DateLiteral value) const { return "#" + number(value.days); }

    std::string operator()(std::u16string_view value) const { return "'" + narrow(value) + "'"; }

    static std::string number(double value) {
        std::ostringstream text;
        text.precision(15);
        text << value;
        return text.str();
    }
};

std::string literal_text(const ast::LiteralValue& value) {
    return std::visit(LiteralText{}, value);
}

template <typename Value>
auto index_of(Value value) {
    return static_cast<std::size_t>(value);
}

std::string expression_text(const ast::Expression* expression);

std::string list_text(std::span<const ast::Expression* const> expressions) {
    std::string text;
    for (const ast::Expression* one : expressions) {
        text += " " + expression_text(one);
    }
    return text;
}

std::string expression_text(const ast::Expression* expression) {
    if (expression == nullptr) {
        return "_";
    }
    switch (expression->kind) {
        case ast::ExpressionKind::Literal:
            return literal_text(as<ast::Literal>(*expression).value);
        case ast::ExpressionKind::Identifier:
            return narrow(as<ast::Identifier>(*expression).name.spelled);
        case ast::ExpressionKind::Me:
            return "me";
        case ast::ExpressionKind::WithObject:
            return "with";
        case ast::ExpressionKind::Member: {
            const auto& node = as<ast::Member>(*expression);
            return "(. " + expression_text(node.object) + " " + narrow(node.name.spelled) + ")";
        }
        case ast::ExpressionKind::Apply: {
            const auto& node = as<ast::Apply>(*expression);
            return "(apply " + expression_text(node.callee) + list_text(node.arguments) + ")";
        }
        case ast::ExpressionKind::Parenthesized:
            return "(paren " + expression_text(as<ast::Parenthesized>(*expression).inner) + ")";
        case ast::ExpressionKind::New:
            return "(new " + narrow(as<ast::New>(*expression).class_name.spelled) + ")";
        case ast::ExpressionKind::Unary: {
            const auto& node = as<ast::Unary>(*expression);
            return std::string("(") + kSigns.at(index_of(node.operation)) + " " +
                   expression_text(node.operand) + ")";
        }
        case ast::ExpressionKind::Binary: {
            const auto& node = as<ast::Binary>(*expression);
            return std::string("(") + kOperators.at(index_of(node.operation)) + " " +
                   expression_text(node.left) + " " + expression_text(node.right) + ")";
        }
    }
    return "?";
}

std::string declarator_text(const ast::Declarator& variable) {
    if (!variable.is_array) {
        return narrow(variable.name.spelled);
    }
    std::string text = "(array " + narrow(variable.name.spelled);
    for (const std::int32_t bound : variable.bounds) {
        text += " " + std::to_string(bound);
    }
    return text + ")";
}

std::string statement_text(const ast::Statement& statement);

std::string block_text(ast::Block block) {
    std::string text = "{";
    for (const ast::Statement* statement : block) {
        text += (text.size() > 1 ? " " : "") + statement_text(*statement);
    }
    return text + "}";
}

std::string dim_text(const ast::Dim& node) {
    std::string text = std::string("(dim ") + kVisibilities.at(index_of(node.visibility));
    for (const ast::Declarator& variable : node.variables) {
        text += declarator_text(variable) + (&variable == &node.variables.back() ? "" : " ");
    }
    return text + ")";
}

std::string redim_text(const ast::ReDim& node) {
    std::string text = node.preserve ? "(redim-preserve" : "(redim";
    for (const ast::ReDimItem& item : node.items) {
        text += " (" + narrow(item.name.spelled) + list_text(item.bounds) + ")";
    }
    return text + ")";
}

std::string const_text(const ast::Const& node) {
    std::string text = std::string("(const ") + kVisibilities.at(index_of(node.visibility));
    for (const ast::Constant& constant : node.constants) {
        text += narrow(constant.name.spelled) + " " + literal_text(constant.value) +
                (&constant == &node.constants.back() ? "" : " ");
    }
    return text + ")";
}

std::string if_text(const ast::If& node) {
    std::string text = "(if";
    for (const ast::Branch& branch : node.branches) {
        text += " " + expression_text(branch.condition) + " " + block_text(branch.body);
    }
    return text + (node.otherwise.empty() ? "" : " else " + block_text(node.otherwise)) + ")";
}

std::string select_text(const ast::SelectCase& node) {
    std::string text = "(select " + expression_text(node.subject);
    for (const ast::Case& one : node.cases) {
        text += " (case" + list_text(one.values) + " " + block_text(one.body) + ")";
    }
    return text + (node.otherwise.empty() ? "" : " else " + block_text(node.otherwise)) + ")";
}

std::string for_text(const ast::For& node) {
    return "(for " + narrow(node.variable.spelled) + " " + expression_text(node.from) + " " +
           expression_text(node.to) + " " + expression_text(node.step) + " " +
           block_text(node.body) + ")";
}

std::string do_text(const ast::Do& node) {
    return std::string("(") + kTests.at(index_of(node.test)) +
           (node.condition == nullptr ? "" : " " + expression_text(node.condition)) + " " +
           block_text(node.body) + ")";
}

std::string loop_text(const ast::Statement& statement) {
    switch (statement.kind) {
        case ast::StatementKind::If:
            return if_text(as<ast::If>(statement));
        case ast::StatementKind::SelectCase:
            return select_text(as<ast::SelectCase>(statement));
        case ast::StatementKind::For:
            return for_text(as<ast::For>(statement));
        case ast::StatementKind::ForEach: {
            const auto& node = as<ast::ForEach>(statement);
            return "(each " + narrow(node.variable.spelled) + " " +
                   expression_text(node.collection) + " " + block_text(node.body) + ")";
        }
        case ast::StatementKind::Do:
            return do_text(as<ast::Do>(statement));
        case ast::StatementKind::While: {
            const auto& node = as<ast::While>(statement);
            return "(while " + expression_text(node.condition) + " " + block_text(node.body) + ")";
        }
        case ast::StatementKind::With: {
            const auto& node = as<ast::With>(statement);
            return "(with " + expression_text(node.object) + " " + block_text(node.body) + ")";
        }
        default:
            return "?";
    }
}

std::string statement_text(const ast::Statement& statement) {
    switch (statement.kind) {
        case ast::StatementKind::Dim:
            return dim_text(as<ast::Dim>(statement));
        case ast::StatementKind::ReDim:
            return redim_text(as<ast::ReDim>(statement));
        case ast::StatementKind::Erase:
            return "(erase" + list_text(as<ast::Erase>(statement).targets) + ")";
        case ast::StatementKind::Const:
            return const_text(as<ast::Const>(statement));
        case ast::StatementKind::Assign: {
            const auto& node = as<ast::Assign>(statement);
            return "(= " + expression_text(node.target) + " " + expression_text(node.value) + ")";
        }
        case ast::StatementKind::SetAssign: {
            const auto& node = as<ast::SetAssign>(statement);
            return "(set " + expression_text(node.target) + " " + expression_text(node.value) + ")";
        }
        case ast::StatementKind::Call: {
            const auto& node = as<ast::Call>(statement);
            return "(call " + expression_text(node.callee) + list_text(node.arguments) + ")";
        }
        case ast::StatementKind::Exit:
            return std::string("(exit ") + kExits.at(index_of(as<ast::Exit>(statement).target)) +
                   ")";
        case ast::StatementKind::OnError:
            return as<ast::OnError>(statement).resume_next ? "(resume-next)" : "(goto-0)";
        case ast::StatementKind::Stop:
            return "(stop)";
        default:
            return loop_text(statement);
    }
}

std::string procedure_text(const ast::Procedure& procedure) {
    std::string text = std::string("(") + kVisibilities.at(index_of(procedure.visibility)) +
                       (procedure.is_default ? "default " : "") +
                       kProcedures.at(index_of(procedure.kind)) + " " +
                       narrow(procedure.name.spelled) + " (";
    for (const ast::Parameter& parameter : procedure.parameters) {
        text += std::string(parameter.by_value ? "byval " : "") + narrow(parameter.name.spelled) +
                (parameter.is_array ? "()" : "") +
                (&parameter == &procedure.parameters.back() ? "" : " ");
    }
    return text + ") " + block_text(procedure.body) + ")";
}

std::string class_text(const ast::Class& node) {
    std::string text = "(class " + narrow(node.name.spelled);
    for (const ast::Field& field : node.fields) {
        text += std::string(" (field ") + kVisibilities.at(index_of(field.visibility)) +
                declarator_text(field.variable) + ")";
    }
    for (const ast::Procedure* procedure : node.procedures) {
        text += " " + procedure_text(*procedure);
    }
    return text + ")";
}

template <typename Parse>
std::string text_or_error(const Parse& parse_text) {
    try {
        return parse_text();
    } catch (const SyntaxError& error) {
        return std::to_string(static_cast<std::int32_t>(error.number())) + " " +
               std::to_string(error.line()) + ":" + std::to_string(error.column());
    }
}

}  // namespace

std::string narrow(std::u16string_view text) {
    std::string narrowed;
    for (const char16_t unit : text) {
        narrowed += unit < 0x80 ? static_cast<char>(unit) : '?';
    }
    return narrowed;
}

std::string tree_text(const ast::Expression& expression) {
    return expression_text(&expression);
}

std::string tree_text(const Program& program) {
    std::string text = program.option_explicit() ? "(explicit)" : "";
    const auto append = [&text](const std::string& item) {
        text += (text.empty() ? "" : " ") + item;
    };
    for (const ast::Class* node : program.classes()) {
        append(class_text(*node));
    }
    for (const ast::Procedure* procedure : program.procedures()) {
        append(procedure_text(*procedure));
    }
    for (const ast::Statement* statement : program.body()) {
        append(statement_text(*statement));
    }
    return text;
}

std::string parsed(std::u16string_view source) {
    return text_or_error([source] { return tree_text(parse(source)); });
}

std::string parsed_expression(std::u16string_view source) {
    return text_or_error([source] { return tree_text(*parse_expression(source).expression()); });
}

void expect_scripts(std::span<const TreeCase> cases) {
    for (const TreeCase& row : cases) {
        EXPECT_EQ(parsed(row.source), row.tree) << narrow(row.source);
    }
}

void expect_expressions(std::span<const TreeCase> cases) {
    for (const TreeCase& row : cases) {
        EXPECT_EQ(parsed_expression(row.source), row.tree) << narrow(row.source);
    }
}

}  // namespace vbscript
