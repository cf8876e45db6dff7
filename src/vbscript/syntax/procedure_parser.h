#pragma once

#include "vbscript/syntax/statement_parser.h"

namespace vbscript::syntax {

// What stands in front of Sub, Function or Property.
struct ProcedurePrefix {
    ast::Visibility visibility = ast::Visibility::Unstated;
    bool is_default = false;
    ast::Position position;
};

// Reads a whole Sub, Function or Property, from that word to its end.
class ProcedureParser {
  public:
    ProcedureParser(TokenStream& tokens, Arena& arena, Surroundings& surroundings,
                    StatementParser& statements)
        : tokens_(tokens), arena_(arena), surroundings_(surroundings), statements_(statements) {}

    // Name and parameters; `scope` takes the procedure's own name. Requires: the current token is
    // the procedure's word.
    [[nodiscard]] ast::Procedure* head(const ProcedurePrefix& prefix, DeclaredNames& scope);

    // Where the name of the last head stands.
    [[nodiscard]] const Token& name_token() const noexcept { return name_; }

    // The statements behind the head, and the procedure's end.
    void body(ast::Procedure& procedure);

  private:
    [[nodiscard]] ast::ProcedureKind kind();
    void name(ast::Procedure& procedure, DeclaredNames& scope);
    [[nodiscard]] std::span<const ast::Parameter> parameters();
    [[nodiscard]] ast::Parameter parameter();
    void close(ast::ProcedureKind kind);

    TokenStream& tokens_;
    Arena& arena_;
    Surroundings& surroundings_;
    StatementParser& statements_;
    Token name_;
    DeclaredNames locals_;
};

}  // namespace vbscript::syntax
