#include "vbscript/syntax/class_parser.h"

namespace vbscript::syntax {

const ast::Class* ClassParser::parse(DeclaredNames& scope) {
    auto* node = arena_.make<ast::Class>();
    node->position = tokens_.current().position;
    tokens_.advance();
    const Token token = tokens_.current();
    node->name = tokens_.expect_name();
    scope.declare(node->name, DeclaredNames::What::Class, tokens_, token);
    statements_.end_statement();
    const bool could_use_me = std::exchange(surroundings_.may_use_me, true);
    members();
    surroundings_.may_use_me = could_use_me;
    statements_.close_with_end(Keyword::Class, SyntaxErrorNumber::ExpectedClass);
    node->fields = arena_.list(fields_);
    node->procedures = arena_.list(found_);
    return node;
}

void ClassParser::members() {
    for (tokens_.skip_separators(); !tokens_.is(Keyword::End); tokens_.skip_separators()) {
        member();
        statements_.end_statement();
    }
}

void ClassParser::member() {
    if (tokens_.is(Keyword::Dim)) {
        tokens_.advance();
        fields(ast::Visibility::Unstated);
        return;
    }
    const ProcedurePrefix found = prefix();
    if (is_at_procedure()) {
        procedure(found);
    } else if (found.is_default) {
        tokens_.fail(SyntaxErrorNumber::DefaultOnOther);
    } else if (found.visibility != ast::Visibility::Unstated) {
        fields(found.visibility);
    } else {
        tokens_.fail(SyntaxErrorNumber::ExpectedEnd);
    }
}

// Public or Private, then Default unless that is a field's name.
ProcedurePrefix ClassParser::prefix() {
    ProcedurePrefix found{.position = tokens_.current().position};
    if (tokens_.take(Keyword::Public)) {
        found.visibility = ast::Visibility::Public;
    } else if (tokens_.take(Keyword::Private)) {
        found.visibility = ast::Visibility::Private;
    }
    if (tokens_.is(Keyword::Default) && tokens_.peek().kind == TokenKind::Word) {
        if (found.visibility != ast::Visibility::Public) {
            tokens_.fail(SyntaxErrorNumber::DefaultNeedsPublic);
        }
        found.is_default = true;
        tokens_.advance();
    }
    return found;
}

// `Property` is a word only in front of another.
bool ClassParser::is_at_procedure() const noexcept {
    return tokens_.is(Keyword::Sub) || tokens_.is(Keyword::Function) ||
           tokens_.is(Keyword::Property);
}

void ClassParser::procedure(const ProcedurePrefix& prefix) {
    const Token word = tokens_.current();
    if (word.keyword == Keyword::Property && tokens_.peek().kind != TokenKind::Word) {
        if (prefix.visibility == ast::Visibility::Unstated) {
            tokens_.advance();
            tokens_.fail(SyntaxErrorNumber::ExpectedPropertyKind);
        }
        return fields(prefix.visibility);
    }
    if (prefix.is_default) {
        check_default(word);
    }
    ast::Procedure* found = procedures_.head(prefix, names_);
    check_parameters(*found, procedures_.name_token());
    procedures_.body(*found);
    found_.push_back(found);
}

void ClassParser::check_default(const Token& token) {
    if (token.keyword == Keyword::Property && tokens_.peek().keyword != Keyword::Get) {
        tokens_.fail(SyntaxErrorNumber::DefaultNeedsGet);
    }
    if (has_default_) {
        tokens_.fail_at(SyntaxErrorNumber::SeveralDefaults, token);
    }
    has_default_ = true;
}

// Let and Set have the value behind the indexes that Get has.
void ClassParser::check_parameters(const ast::Procedure& procedure, const Token& name) {
    const std::size_t count = procedure.parameters.size();
    if (procedure.kind == ast::ProcedureKind::Sub) {
        const bool is_event = procedure.name.folded == u"class_initialize" ||
                              procedure.name.folded == u"class_terminate";
        if (is_event && count != 0) {
            tokens_.fail_at(SyntaxErrorNumber::ClassEventHasArguments, name);
        }
        return;
    }
    if (procedure.kind == ast::ProcedureKind::Function) {
        return;
    }
    const bool has_value = procedure.kind != ast::ProcedureKind::PropertyGet;
    if (has_value && count == 0) {
        tokens_.fail_at(SyntaxErrorNumber::PropertyNeedsArgument, name);
    }
    const std::size_t indexes = has_value ? count - 1 : count;
    const auto known = index_counts_.try_emplace(procedure.name.id, indexes).first;
    if (known->second != indexes) {
        tokens_.fail_at(SyntaxErrorNumber::InconsistentPropertyArguments, name);
    }
}

void ClassParser::fields(ast::Visibility visibility) {
    for (const ast::Declarator& variable : statements_.declarators(names_)) {
        fields_.push_back({.visibility = visibility, .variable = variable});
    }
}

}  // namespace vbscript::syntax
