#pragma once

#include "vbscript/syntax/ast.h"

namespace vbscript {

// Calls `visit` with every statement of a block and of the blocks inside of it.
template <typename Visit>
void for_each_statement(ast::Block block, const Visit& visit) {
    using ast::StatementKind;
    for (const ast::Statement* node : block) {
        visit(*node);
        switch (node->kind) {
            case StatementKind::If: {
                const auto& branching = ast::as<ast::If>(*node);
                for (const ast::Branch& branch : branching.branches) {
                    for_each_statement(branch.body, visit);
                }
                for_each_statement(branching.otherwise, visit);
                break;
            }
            case StatementKind::SelectCase: {
                const auto& selection = ast::as<ast::SelectCase>(*node);
                for (const ast::Case& branch : selection.cases) {
                    for_each_statement(branch.body, visit);
                }
                for_each_statement(selection.otherwise, visit);
                break;
            }
            case StatementKind::For:
                for_each_statement(ast::as<ast::For>(*node).body, visit);
                break;
            case StatementKind::ForEach:
                for_each_statement(ast::as<ast::ForEach>(*node).body, visit);
                break;
            case StatementKind::Do:
                for_each_statement(ast::as<ast::Do>(*node).body, visit);
                break;
            case StatementKind::While:
                for_each_statement(ast::as<ast::While>(*node).body, visit);
                break;
            case StatementKind::With:
                for_each_statement(ast::as<ast::With>(*node).body, visit);
                break;
            default:
                break;
        }
    }
}

}  // namespace vbscript
