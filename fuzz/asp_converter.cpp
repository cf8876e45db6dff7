#include "pages/asp_converter.h"

#include "automation/run_time_error.h"
#include "core/velora_log.h"
#include "fuzz/expect.h"
#include "host/log.h"
#include "pages/custom_header_calls.h"
#include "pages/meta_replace.h"

// Any bytes as a page: the conversion to script, the seconds of its header calls, and those of its
// refresh tag.
namespace {

// Counts what would be logged.
class CountingLog final : public host::Log {
  public:
    void Writelog(std::string_view /*type*/, std::string_view /*message*/) override { ++lines; }

    std::size_t lines = 0;
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view page = fuzz::as_text(data, size);
    CountingLog lines;
    core::VeloraLog log;
    log.attach(&lines);
    std::string source(page);
    try {
        source = pages::AspConverter(log, pages::asp_function_name("\\a page.asp")).convert(page);
        fuzz::expect(lines.lines > 0 || source.find("end Function") != std::string::npos,
                     "a converted page is a whole function");
        // At worst each line of one character becomes a statement, and each block comes twice.
        fuzz::expect(source.size() <= 24 * size + 1000, "a conversion grows with its page alone");
    } catch (const automation::RunTimeError& error) {
        fuzz::expect(error.is(automation::ErrorNumber::InvalidProcedureCall),
                     "a page fails for its marks alone");
    }

    const pages::RewrittenCalls calls = pages::rewrite_custom_header_calls(source, "15");
    fuzz::expect(calls.has_calls || calls.source == source, "without calls nothing changes");

    lines.lines = 0;
    const std::string refreshed =
        pages::metaReplace(log, host::Protection::hardened(), source, "15");
    fuzz::expect(refreshed.find("15") != std::string::npos, "the seconds stand in the page");
    // A tag without digits is reported; as designed, the search would find it for ever.
    if (lines.lines == 0) {
        fuzz::expect(pages::metaReplace(log, {}, source, "15") == refreshed,
                     "the protection changes nothing where the search ends");
    }
    return 0;
}
