#pragma once

#include <unordered_map>
#include <utility>
#include <vector>

#include "vbscript/syntax/procedure_parser.h"

namespace vbscript::syntax {

// Reads one class, from "Class" to "End Class", and checks that its members fit together.
class ClassParser {
  public:
    ClassParser(TokenStream& tokens, Arena& arena, Surroundings& surroundings,
                StatementParser& statements, ProcedureParser& procedures)
        : tokens_(tokens),
          arena_(arena),
          surroundings_(surroundings),
          statements_(statements),
          procedures_(procedures) {}

    // `scope` takes the class's name. Requires: the current token is "Class".
    [[nodiscard]] const ast::Class* parse(DeclaredNames& scope);

  private:
    void members();
    void member();
    [[nodiscard]] ProcedurePrefix prefix();
    [[nodiscard]] bool is_at_procedure() const noexcept;
    void procedure(const ProcedurePrefix& prefix);
    void check_default(const Token& token);
    void check_parameters(const ast::Procedure& procedure, const Token& name);
    void fields(ast::Visibility visibility);

    TokenStream& tokens_;
    Arena& arena_;
    Surroundings& surroundings_;
    StatementParser& statements_;
    ProcedureParser& procedures_;
    DeclaredNames names_;
    std::vector<ast::Field> fields_;
    std::vector<const ast::Procedure*> found_;
    std::unordered_map<std::uint32_t, std::size_t> index_counts_;  // of properties, by name's id
    bool has_default_ = false;
};

}  // namespace vbscript::syntax
