#include "vbscript/syntax/procedure_parser.h"

namespace vbscript::syntax {
namespace {

using ast::ProcedureKind;

DeclaredNames::What what_is(ProcedureKind kind) {
    switch (kind) {
        case ProcedureKind::PropertyGet:
            return DeclaredNames::What::Get;
        case ProcedureKind::PropertyLet:
            return DeclaredNames::What::Let;
        case ProcedureKind::PropertySet:
            return DeclaredNames::What::Set;
        default:
            return DeclaredNames::What::Procedure;
    }
}

// Whether the procedure's name is the variable that its result is assigned to.
bool has_result(ProcedureKind kind) {
    return kind == ProcedureKind::Function || kind == ProcedureKind::PropertyGet;
}

}  // namespace

ast::Procedure* ProcedureParser::head(const ProcedurePrefix& prefix, DeclaredNames& scope) {
    auto* node = arena_.make<ast::Procedure>();
    node->kind = kind();
    node->visibility = prefix.visibility;
    node->is_default = prefix.is_default;
    node->position = prefix.position;
    name(*node, scope);
    locals_ = {};
    if (has_result(node->kind)) {
        locals_.declare(node->name, DeclaredNames::What::Variable, tokens_, name_);
    }
    const bool has_brackets = tokens_.take(TokenKind::LeftParenthesis);
    if (has_brackets) {
        node->parameters = parameters();
    }
    if (!has_brackets && !tokens_.is(Keyword::End)) {
        statements_.end_statement();
    }
    return node;
}

ProcedureKind ProcedureParser::kind() {
    const Keyword word = tokens_.current().keyword;
    tokens_.advance();
    if (word == Keyword::Sub) {
        return ProcedureKind::Sub;
    }
    if (word == Keyword::Function) {
        return ProcedureKind::Function;
    }
    if (tokens_.take(Keyword::Get)) {
        return ProcedureKind::PropertyGet;
    }
    if (tokens_.take(Keyword::Let)) {
        return ProcedureKind::PropertyLet;
    }
    tokens_.expect(Keyword::Set, SyntaxErrorNumber::ExpectedPropertyKind);
    return ProcedureKind::PropertySet;
}

void ProcedureParser::name(ast::Procedure& procedure, DeclaredNames& scope) {
    name_ = tokens_.current();
    procedure.name = tokens_.expect_name();
    scope.declare(procedure.name, what_is(procedure.kind), tokens_, name_);
}

std::span<const ast::Parameter> ProcedureParser::parameters() {
    std::vector<ast::Parameter> found;
    if (!tokens_.is(TokenKind::RightParenthesis)) {
        do {
            found.push_back(parameter());
        } while (tokens_.take(TokenKind::Comma));
    }
    tokens_.expect(TokenKind::RightParenthesis, SyntaxErrorNumber::ExpectedRightParenthesis);
    return arena_.list(found);
}

ast::Parameter ProcedureParser::parameter() {
    ast::Parameter found;
    found.by_value = tokens_.take(Keyword::ByVal);
    if (!found.by_value) {
        tokens_.take(Keyword::ByRef);
    }
    const Token token = tokens_.current();
    found.position = token.position;
    found.name = tokens_.expect_name();
    locals_.declare(found.name, DeclaredNames::What::Variable, tokens_, token);
    if (tokens_.take(TokenKind::LeftParenthesis)) {
        found.is_array = true;
        tokens_.expect(TokenKind::RightParenthesis, SyntaxErrorNumber::ExpectedRightParenthesis);
    }
    return found;
}

void ProcedureParser::body(ast::Procedure& procedure) {
    Surroundings inside{.may_use_me = surroundings_.may_use_me, .procedure = procedure.kind};
    std::swap(surroundings_, inside);
    DeclaredNames* const outside = statements_.set_scope(&locals_);
    procedure.body = statements_.block();
    procedure.end = tokens_.current().position;
    close(procedure.kind);
    statements_.set_scope(outside);
    std::swap(surroundings_, inside);
}

void ProcedureParser::close(ProcedureKind kind) {
    switch (kind) {
        case ProcedureKind::Sub:
            return statements_.close_with_end(Keyword::Sub, SyntaxErrorNumber::ExpectedSub);
        case ProcedureKind::Function:
            return statements_.close_with_end(Keyword::Function,
                                              SyntaxErrorNumber::ExpectedFunction);
        default:
            return statements_.close_with_end(Keyword::Property,
                                              SyntaxErrorNumber::ExpectedProperty);
    }
}

}  // namespace vbscript::syntax
