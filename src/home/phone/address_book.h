#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "host/telephone.h"

namespace home {

// Where a reader tells of an entry that it has passed over: "line 12: ...".
using BookComplaint = std::function<void(const std::string& text)>;

// People of a vCard file, versions 3.0 (RFC 2426) and 4.0 (RFC 6350): N or else FN for the name,
// TEL for the numbers by their TYPE (cell, work, else home), of each kind the first. The extension
// X-SOUND names a sound file. UTF-8 in, code page 1252 out. A card without a name or number is
// passed over, as is one that does not end.
[[nodiscard]] std::vector<host::AddressRecord> read_vcards(std::string_view text,
                                                           const BookComplaint& complain);

// People of a CSV file (RFC 4180) whose first line names the columns: first, last, home, cell,
// work, sound, in any order and case; others are ignored. A line without a number, or with an
// open quote at the end of the file, is passed over.
[[nodiscard]] std::vector<host::AddressRecord> read_csv(std::string_view text,
                                                        const BookComplaint& complain);

}  // namespace home
