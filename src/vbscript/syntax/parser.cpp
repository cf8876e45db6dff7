#include "vbscript/syntax/parser.h"

#include "vbscript/syntax/class_parser.h"

namespace vbscript {
namespace {

using syntax::DeclaredNames;
using syntax::Keyword;
using syntax::ProcedurePrefix;
using syntax::TokenKind;

// All that parses one text, and what it has found.
class ScriptParser {
  public:
    ScriptParser(std::u16string_view source, ParseOptions options)
        : source_(arena_->text(source)),
          lexer_(source_, *arena_, names_, options.current_year),
          surroundings_{.may_use_me = options.may_use_me},
          expressions_(tokens_, *arena_, nesting_, surroundings_),
          statements_(tokens_, *arena_, nesting_, surroundings_),
          procedures_(tokens_, *arena_, surroundings_, statements_) {
        statements_.set_scope(&globals_);
    }

    Program script() &&;
    Program expression() &&;

  private:
    void options();
    void item();
    void visible_item(Keyword word);
    void procedure(const ProcedurePrefix& prefix);
    void refuse_members();
    Program finish();

    // The parsers hold references to what stands above them.
    std::unique_ptr<Arena> arena_ = std::make_unique<Arena>();
    std::u16string_view source_;
    syntax::Names names_{*arena_};
    syntax::Lexer lexer_;
    syntax::TokenStream tokens_{lexer_, names_};
    syntax::Nesting nesting_;
    syntax::Surroundings surroundings_;
    DeclaredNames globals_;
    syntax::ExpressionParser expressions_;
    syntax::StatementParser statements_;
    syntax::ProcedureParser procedures_;

    Program::Content content_;
    std::vector<const ast::Statement*> body_;
    std::vector<const ast::Procedure*> found_procedures_;
    std::vector<const ast::Class*> found_classes_;
};

Program ScriptParser::script() && {
    options();
    for (tokens_.skip_separators(); !tokens_.is(TokenKind::EndOfSource);
         tokens_.skip_separators()) {
        item();
        statements_.end_statement();
    }
    return finish();
}

Program ScriptParser::expression() && {
    tokens_.skip_separators();
    content_.expression = expressions_.expression();
    tokens_.skip_separators();
    if (!tokens_.is(TokenKind::EndOfSource)) {
        tokens_.fail(SyntaxErrorNumber::ExpectedEndOfStatement);
    }
    return finish();
}

// `Option Explicit` stands in front of everything else.
void ScriptParser::options() {
    for (tokens_.skip_separators(); tokens_.take(Keyword::Option); tokens_.skip_separators()) {
        tokens_.expect(Keyword::Explicit, SyntaxErrorNumber::SyntaxError);
        statements_.end_statement();
        content_.option_explicit = true;
    }
}

void ScriptParser::item() {
    refuse_members();
    const Keyword word = tokens_.current().keyword;
    switch (word) {
        case Keyword::Public:
        case Keyword::Private:
            return visible_item(word);
        case Keyword::Sub:
        case Keyword::Function:
            return procedure({.position = tokens_.current().position});
        case Keyword::Class:
            found_classes_.push_back(
                syntax::ClassParser(tokens_, *arena_, surroundings_, statements_, procedures_)
                    .parse(globals_));
            return;
        default:
            body_.push_back(statements_.statement());
    }
}

// `Property Get` and `Default Sub` belong to classes; alone, the words are names.
void ScriptParser::refuse_members() {
    const bool may_start_member = tokens_.is(Keyword::Property) || tokens_.is(Keyword::Default);
    if (!may_start_member) {
        return;
    }
    switch (tokens_.peek().keyword) {
        case Keyword::Function:
        case Keyword::Get:
        case Keyword::Let:
        case Keyword::Property:
        case Keyword::Set:
        case Keyword::Sub:
            tokens_.fail(SyntaxErrorNumber::MustBeInsideClass);
        default:
            return;
    }
}

void ScriptParser::visible_item(Keyword word) {
    const ProcedurePrefix prefix{
        .visibility = word == Keyword::Public ? ast::Visibility::Public : ast::Visibility::Private,
        .position = tokens_.current().position};
    tokens_.advance();
    refuse_members();
    if (tokens_.is(Keyword::Sub) || tokens_.is(Keyword::Function)) {
        procedure(prefix);
    } else if (tokens_.is(Keyword::Const)) {
        body_.push_back(statements_.constants(prefix.visibility, prefix.position));
    } else {
        body_.push_back(statements_.dim(prefix.visibility, prefix.position));
    }
}

void ScriptParser::procedure(const ProcedurePrefix& prefix) {
    ast::Procedure* found = procedures_.head(prefix, globals_);
    procedures_.body(*found);
    found_procedures_.push_back(found);
}

Program ScriptParser::finish() {
    content_.source = source_;
    content_.names = names_.list();
    content_.body = arena_->list(body_);
    content_.procedures = arena_->list(found_procedures_);
    content_.classes = arena_->list(found_classes_);
    return {std::move(arena_), content_};
}

}  // namespace

Program parse(std::u16string_view source, ParseOptions options) {
    return ScriptParser(source, options).script();
}

Program parse_expression(std::u16string_view source, ParseOptions options) {
    return ScriptParser(source, options).expression();
}

}  // namespace vbscript
