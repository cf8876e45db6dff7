#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host {

// The values of one row as texts, in the order of the statement's columns; "" for NULL.
using DatabaseRow = std::vector<std::string>;

// The host's database of users and menus, with the tables MenuUsers, Menus, MenuPOP and
// MenuPOPPref. Owned by the host, outlives the plug-in. Texts are in code page 1252.
class MenuDatabase {
  public:
    virtual ~MenuDatabase() = default;

    // The product that answers. "SQL Server" tells the time with GetDate(), all others with Now();
    // both know "SELECT Top 1".
    [[nodiscard]] virtual std::string type() const = 0;

    // Runs one statement; no rows for one that gives none. Throws: RunTimeError.
    virtual std::vector<DatabaseRow> run(std::string_view statement) = 0;
};

}  // namespace host
