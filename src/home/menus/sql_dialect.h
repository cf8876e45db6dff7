#pragma once

#include <string>
#include <string_view>

#include "automation/date.h"

namespace home {

// A statement of the menu database in the words of SQLite. Pages write it in those of the desktop
// databases that hosts use; outside of texts and names in quotes
//
//     SELECT [DISTINCT] TOP n ...       becomes  SELECT ... LIMIT n, at the end of that SELECT
//     Now(), GetDate(), Date(), Time()  become   the house's time, as a text that sorts
//     #11/24/2026 4:03 PM#              becomes  such a text
//     a & b                             becomes  a || b
//     Len Mid UCase LCase IsNull Nz     become   functions of the same kind
//     DELETE * FROM                     becomes  DELETE FROM
//
// Throws: RunTimeError 5 for "TOP n PERCENT", a date that is none, and a text without an end.
[[nodiscard]] std::string in_sqlite_words(std::string_view statement, automation::DateTime now);

}  // namespace home
