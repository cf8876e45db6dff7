#include "vbscript/syntax/statement_parser.h"

namespace vbscript::syntax {

using ast::Expression;
using ast::ExpressionKind;
using ast::Statement;
using ast::StatementKind;

const Statement* StatementParser::statement() {
    const Nesting::Level level(nesting_, tokens_);
    const Token& token = tokens_.current();
    if (token.kind == TokenKind::Dot || tokens_.is_at_name() || token.keyword == Keyword::Me) {
        return token.keyword == Keyword::Erase && tokens_.peek().kind == TokenKind::Word
                   ? erase()
                   : call_or_assign();
    }
    return statement_of(token.keyword);
}

const Statement* StatementParser::statement_of(Keyword keyword) {
    switch (keyword) {
        case Keyword::Call:
            return call_by_word();
        case Keyword::Const:
            return constants(ast::Visibility::Unstated, tokens_.current().position);
        case Keyword::Dim:
            return dim(ast::Visibility::Unstated, tokens_.current().position);
        case Keyword::Do:
            return do_statement();
        case Keyword::Exit:
            return exit_statement();
        case Keyword::For:
            return for_statement();
        case Keyword::If:
            return if_statement();
        case Keyword::On:
            return on_error();
        case Keyword::ReDim:
            return redim();
        case Keyword::Select:
            return select_case();
        case Keyword::Set:
            return set_assign();
        case Keyword::Stop:
            return stop();
        case Keyword::While:
            return while_statement();
        case Keyword::With:
            return with_statement();
        case Keyword::Loop:
            tokens_.fail(SyntaxErrorNumber::LoopWithoutDo);
        case Keyword::Next:
            tokens_.fail(SyntaxErrorNumber::UnexpectedNext);
        case Keyword::Class:
        case Keyword::Function:
        case Keyword::Private:
        case Keyword::Public:
        case Keyword::Sub:
            tokens_.fail(SyntaxErrorNumber::SyntaxError);
        default:
            tokens_.fail(SyntaxErrorNumber::ExpectedStatement);
    }
}

ast::Block StatementParser::block() {
    std::vector<const Statement*> found;
    for (tokens_.skip_separators(); !is_at_block_end(); tokens_.skip_separators()) {
        found.push_back(statement());
        if (!is_at_end_of_procedure()) {
            end_statement();
        }
    }
    return arena_.list(found);
}

// `End Sub` needs no line or colon of its own.
bool StatementParser::is_at_end_of_procedure() {
    if (!tokens_.is(Keyword::End)) {
        return false;
    }
    const Keyword word = tokens_.peek().keyword;
    return word == Keyword::Sub || word == Keyword::Function || word == Keyword::Property;
}

// The statements behind Then or Else up to the line's end.
ast::Block StatementParser::rest_of_line() {
    std::vector<const Statement*> found;
    for (;;) {
        while (tokens_.take(TokenKind::Colon)) {
        }
        if (tokens_.is_at_end_of_line() || is_at_block_end()) {
            return arena_.list(found);
        }
        found.push_back(statement());
        if (!tokens_.is(Keyword::Else) && !tokens_.is(Keyword::ElseIf) &&
            !tokens_.is(Keyword::End)) {
            end_statement();
        }
    }
}

bool StatementParser::is_at_block_end() const noexcept {
    switch (tokens_.current().keyword) {
        case Keyword::Case:
        case Keyword::Else:
        case Keyword::ElseIf:
        case Keyword::End:
        case Keyword::Loop:
        case Keyword::Next:
        case Keyword::Wend:
            return true;
        default:
            return tokens_.is(TokenKind::EndOfSource);
    }
}

void StatementParser::end_statement() const {
    if (!tokens_.is_at_end_of_statement()) {
        tokens_.fail(SyntaxErrorNumber::ExpectedEndOfStatement);
    }
}

// A loop's end that closes another block tells more than what is missing.
void StatementParser::expect_block_end(Keyword word, SyntaxErrorNumber otherwise) {
    if (!tokens_.take(word)) {
        if (tokens_.is(Keyword::Next)) {
            tokens_.fail(SyntaxErrorNumber::UnexpectedNext);
        }
        tokens_.fail(tokens_.is(Keyword::Loop) ? SyntaxErrorNumber::LoopWithoutDo : otherwise);
    }
}

void StatementParser::close_with_end(Keyword word, SyntaxErrorNumber otherwise) {
    expect_block_end(Keyword::End, SyntaxErrorNumber::ExpectedEnd);
    tokens_.expect(word, otherwise);
}

// The object itself can be neither called nor replaced.
void StatementParser::refuse_me(const Expression& target, const Token& token) const {
    if (target.kind == ExpressionKind::Me) {
        tokens_.fail_at(SyntaxErrorNumber::InvalidUseOfMe, token);
    }
}

const Statement* StatementParser::call_or_assign() {
    const Token token = tokens_.current();
    const ast::Position position = token.position;
    const Expression* target = expressions_.target(ExpressionParser::Place::StartOfStatement);
    refuse_me(*target, token);
    if (tokens_.take(TokenKind::Equal)) {
        const Expression* value = expressions_.expression();
        return arena_.make<ast::Assign>(Statement{StatementKind::Assign, position}, target, value);
    }
    return call_of(target, position);
}

const Statement* StatementParser::call_of(const Expression* callee, ast::Position position) {
    if (callee->kind == ExpressionKind::Apply) {
        return call_with_brackets(ast::as<ast::Apply>(*callee), position);
    }
    ast::Arguments arguments;
    if (tokens_.is(TokenKind::Comma) || expressions_.is_at_operand()) {
        arguments = expressions_.arguments();
    }
    return arena_.make<ast::Call>(Statement{StatementKind::Call, position}, callee, arguments);
}

// `f (a)` calls with the value of `a`; `f (a) + 1, b` shows that the brackets are a part of the
// first argument.
const Statement* StatementParser::call_with_brackets(const ast::Apply& apply,
                                                     ast::Position position) {
    ast::Arguments arguments = apply.arguments;
    const bool has_more = tokens_.is(TokenKind::Comma) || expressions_.is_at_operator();
    if (arguments.size() > 1) {
        tokens_.fail(SyntaxErrorNumber::ParenthesesOnSubCall);
    }
    if (arguments.size() == 1 && arguments.front() != nullptr) {
        if (has_more) {
            arguments = expressions_.arguments_from(apply);
        } else {
            const std::vector<const Expression*> by_value{
                expressions_.parenthesized(arguments.front(), apply.position)};
            arguments = arena_.list(by_value);
        }
    }
    return arena_.make<ast::Call>(Statement{StatementKind::Call, position}, apply.callee,
                                  arguments);
}

const Statement* StatementParser::call_by_word() {
    const ast::Position position = tokens_.current().position;
    tokens_.advance();
    const Token token = tokens_.current();
    const Expression* target = expressions_.target(ExpressionParser::Place::InExpression);
    refuse_me(*target, token);
    ast::Arguments arguments;
    if (target->kind == ExpressionKind::Apply) {
        const auto& apply = ast::as<ast::Apply>(*target);
        target = apply.callee;
        arguments = apply.arguments;
    }
    return arena_.make<ast::Call>(Statement{StatementKind::Call, position}, target, arguments);
}

const Statement* StatementParser::set_assign() {
    const ast::Position position = tokens_.current().position;
    tokens_.advance();
    const Token token = tokens_.current();
    const Expression* target = expressions_.target(ExpressionParser::Place::InExpression);
    refuse_me(*target, token);
    tokens_.expect(TokenKind::Equal, SyntaxErrorNumber::ExpectedEqual);
    const Expression* value = expressions_.expression();
    return arena_.make<ast::SetAssign>(Statement{StatementKind::SetAssign, position}, target,
                                       value);
}

const Statement* StatementParser::exit_statement() {
    const ast::Position position = tokens_.current().position;
    tokens_.advance();
    const auto procedure = surroundings_.procedure;
    const bool is_property = procedure && *procedure >= ast::ProcedureKind::PropertyGet;
    ast::ExitTarget target{};
    bool is_inside = false;
    switch (tokens_.current().keyword) {
        case Keyword::Do:
            target = ast::ExitTarget::Do;
            is_inside = surroundings_.dos > 0;
            break;
        case Keyword::For:
            target = ast::ExitTarget::For;
            is_inside = !surroundings_.for_variables.empty();
            break;
        case Keyword::Sub:
            target = ast::ExitTarget::Sub;
            is_inside = procedure == ast::ProcedureKind::Sub;
            break;
        case Keyword::Function:
            target = ast::ExitTarget::Function;
            is_inside = procedure == ast::ProcedureKind::Function;
            break;
        case Keyword::Property:
            target = ast::ExitTarget::Property;
            is_inside = is_property;
            break;
        default:
            break;
    }
    if (!is_inside) {
        tokens_.fail(SyntaxErrorNumber::InvalidExit);
    }
    tokens_.advance();
    return arena_.make<ast::Exit>(Statement{StatementKind::Exit, position}, target);
}

// `On Error Resume Next`, `On Error GoTo 0`
const Statement* StatementParser::on_error() {
    const ast::Position position = tokens_.current().position;
    tokens_.advance();
    tokens_.expect(Keyword::Error, SyntaxErrorNumber::SyntaxError);
    const bool resume_next = tokens_.take(Keyword::Resume);
    if (resume_next) {
        tokens_.expect(Keyword::Next, SyntaxErrorNumber::ExpectedNext);
    } else {
        tokens_.expect(Keyword::GoTo, SyntaxErrorNumber::SyntaxError);
        const auto* label = std::get_if<std::int16_t>(&tokens_.current().literal);
        if (!tokens_.is(TokenKind::Literal) || label == nullptr || *label != 0) {
            tokens_.fail(SyntaxErrorNumber::SyntaxError);
        }
        tokens_.advance();
    }
    return arena_.make<ast::OnError>(Statement{StatementKind::OnError, position}, resume_next);
}

const Statement* StatementParser::stop() {
    const ast::Position position = tokens_.current().position;
    tokens_.advance();
    return arena_.make<ast::Stop>(Statement{StatementKind::Stop, position});
}

}  // namespace vbscript::syntax
