#include <algorithm>

#include "vbscript/syntax/statement_parser.h"

namespace vbscript::syntax {

using ast::Expression;
using ast::Statement;
using ast::StatementKind;

const Statement* StatementParser::if_statement() {
    auto* node = arena_.make<ast::If>(Statement{StatementKind::If, tokens_.current().position});
    std::vector<ast::Branch> branches{if_head()};
    if (goes_on_below()) {
        block_branches(*node, branches);
    } else {
        line_branches(*node, branches);
    }
    node->branches = arena_.list(branches);
    return node;
}

// `If condition Then` or `ElseIf condition Then`
ast::Branch StatementParser::if_head() {
    ast::Branch branch{.position = tokens_.current().position};
    tokens_.advance();
    branch.condition = expressions_.expression();
    tokens_.expect(Keyword::Then, SyntaxErrorNumber::ExpectedThen);
    return branch;
}

// Whether nothing but colons stands between here and the line's end.
bool StatementParser::goes_on_below() {
    while (tokens_.take(TokenKind::Colon)) {
    }
    return tokens_.is_at_end_of_line();
}

void StatementParser::block_branches(ast::If& node, std::vector<ast::Branch>& branches) {
    branches.back().body = block();
    while (tokens_.is(Keyword::ElseIf)) {
        branches.push_back(if_head());
        branches.back().body = block();
    }
    if (tokens_.take(Keyword::Else)) {
        node.otherwise = block();
    }
    close_with_end(Keyword::If, SyntaxErrorNumber::ExpectedIf);
}

// All on one line; `End If` may stand at its end.
void StatementParser::line_branches(ast::If& node, std::vector<ast::Branch>& branches) {
    branches.back().body = rest_of_line();
    while (tokens_.is(Keyword::ElseIf)) {
        branches.push_back(if_head());
        branches.back().body = rest_of_line();
    }
    if (tokens_.take(Keyword::Else)) {
        node.otherwise = rest_of_line();
    }
    if (tokens_.is(Keyword::End) && tokens_.peek().keyword == Keyword::If) {
        tokens_.advance();
        tokens_.advance();
    }
}

const Statement* StatementParser::select_case() {
    auto* node = arena_.make<ast::SelectCase>(
        Statement{StatementKind::SelectCase, tokens_.current().position});
    tokens_.advance();
    tokens_.expect(Keyword::Case, SyntaxErrorNumber::ExpectedCase);
    node->subject = expressions_.expression();
    end_statement();
    tokens_.skip_separators();
    if (!tokens_.is(Keyword::Case) && !tokens_.is(Keyword::End)) {
        tokens_.fail(SyntaxErrorNumber::ExpectedCase);
    }
    std::vector<ast::Case> cases;
    while (tokens_.is(Keyword::Case)) {
        const ast::Position position = tokens_.current().position;
        tokens_.advance();
        if (tokens_.take(Keyword::Else)) {
            node->otherwise = block();
            break;
        }
        const auto values = expressions_.expressions();
        if (tokens_.is(Keyword::To)) {  // no ranges in this language
            end_statement();
        }
        cases.push_back({.position = position, .values = values, .body = block()});
    }
    close_with_end(Keyword::Select, SyntaxErrorNumber::ExpectedSelect);
    node->cases = arena_.list(cases);
    return node;
}

const Statement* StatementParser::for_statement() {
    const ast::Position position = tokens_.current().position;
    tokens_.advance();
    return tokens_.take(Keyword::Each) ? for_each(position) : for_next(position);
}

const Statement* StatementParser::for_each(ast::Position position) {
    auto* node = arena_.make<ast::ForEach>(Statement{StatementKind::ForEach, position});
    node->variable = tokens_.expect_name();
    tokens_.expect(Keyword::In, SyntaxErrorNumber::ExpectedIn);
    node->collection = expressions_.expression();
    end_statement();
    node->body = for_body(node->variable);
    node->end = tokens_.current().position;
    expect_block_end(Keyword::Next, SyntaxErrorNumber::ExpectedNext);
    return node;
}

const Statement* StatementParser::for_next(ast::Position position) {
    auto* node = arena_.make<ast::For>(Statement{StatementKind::For, position});
    const Token token = tokens_.current();
    node->variable = tokens_.expect_name();
    if (tokens_.is(TokenKind::Dot) || tokens_.is(TokenKind::LeftParenthesis) ||
        std::ranges::find(surroundings_.for_variables, node->variable.id) !=
            surroundings_.for_variables.end()) {
        tokens_.fail_at(SyntaxErrorNumber::InvalidForVariable, token);
    }
    tokens_.expect(TokenKind::Equal, SyntaxErrorNumber::ExpectedEqual);
    node->from = expressions_.expression();
    tokens_.expect(Keyword::To, SyntaxErrorNumber::ExpectedTo);
    node->to = expressions_.expression();
    if (tokens_.take(Keyword::Step)) {
        node->step = expressions_.expression();
    }
    end_statement();
    node->body = for_body(node->variable);
    node->end = tokens_.current().position;
    expect_block_end(Keyword::Next, SyntaxErrorNumber::ExpectedNext);
    return node;
}

ast::Block StatementParser::for_body(const ast::Name& variable) {
    surroundings_.for_variables.push_back(variable.id);
    const ast::Block body = block();
    surroundings_.for_variables.pop_back();
    return body;
}

const Statement* StatementParser::do_statement() {
    auto* node = arena_.make<ast::Do>(Statement{StatementKind::Do, tokens_.current().position});
    tokens_.advance();
    if (tokens_.is(Keyword::While) || tokens_.is(Keyword::Until)) {
        node->test =
            tokens_.is(Keyword::While) ? ast::LoopTest::WhileFirst : ast::LoopTest::UntilFirst;
        tokens_.advance();
        node->condition = expressions_.expression();
        end_statement();
    } else if (!tokens_.is_at_end_of_statement()) {
        tokens_.fail(SyntaxErrorNumber::ExpectedWhileUntilOrEnd);
    }
    ++surroundings_.dos;
    node->body = block();
    --surroundings_.dos;
    node->end = tokens_.current().position;
    expect_block_end(Keyword::Loop, SyntaxErrorNumber::ExpectedLoop);
    if (node->test != ast::LoopTest::Endless || tokens_.is_at_end_of_statement() ||
        is_at_block_end()) {
        return node;
    }
    if (!tokens_.is(Keyword::While) && !tokens_.is(Keyword::Until)) {
        tokens_.fail(SyntaxErrorNumber::ExpectedWhileUntilOrEnd);
    }
    node->test = tokens_.is(Keyword::While) ? ast::LoopTest::WhileLast : ast::LoopTest::UntilLast;
    tokens_.advance();
    node->condition = expressions_.expression();
    return node;
}

const Statement* StatementParser::while_statement() {
    auto* node =
        arena_.make<ast::While>(Statement{StatementKind::While, tokens_.current().position});
    tokens_.advance();
    node->condition = expressions_.expression();
    end_statement();
    node->body = block();
    node->end = tokens_.current().position;
    expect_block_end(Keyword::Wend, SyntaxErrorNumber::ExpectedWend);
    return node;
}

const Statement* StatementParser::with_statement() {
    auto* node = arena_.make<ast::With>(Statement{StatementKind::With, tokens_.current().position});
    tokens_.advance();
    node->object = expressions_.expression();
    end_statement();
    ++surroundings_.withs;
    node->body = block();
    --surroundings_.withs;
    close_with_end(Keyword::With, SyntaxErrorNumber::ExpectedWith);
    return node;
}

}  // namespace vbscript::syntax
