#include <algorithm>
#include <chrono>
#include <string>

#include "callerid/modem_reader.h"
#include "core/instance.h"
#include "fuzz/expect.h"
#include "support/fake_platform.h"
#include "support/memory_host.h"

// What a modem may send: after it the reader goes on. Lines give the same calls however they are
// cut; records may differ, since a line's end that has come counts before a record's.
namespace {

class Reader final : private callerid::CallListener {
  public:
    Reader() {
        instance_.attach(host_, &host_);
        instance_.settings.CIDNamePrefix = "NAME =";
        instance_.settings.CIDNumberPrefix = "NMBR =";
    }

    void receive(std::string_view bytes) {
        reader_.ProcessCommData(bytes, static_cast<std::int16_t>(callerid::CommEvent::Received));
    }

    // The calls up to now, of a line that has fallen silent.
    [[nodiscard]] std::string calls() {
        machine_.pump.run_for(std::chrono::seconds(1));
        return calls_;
    }

  private:
    void ProcessModemInput() override {
        calls_ += call_.CIDName + "|" + call_.CIDNumber + "\n";
        timer5_->set_enabled(false);
        call_ = {};
    }

    support::FakeMachine machine_;
    support::MemoryHost host_;
    core::Instance instance_{machine_.platform()};
    callerid::CallState call_;
    callerid::EchoWindow echo_;
    std::unique_ptr<host::Timer> timer5_ =
        machine_.pump.make_timer([this] { reader_.Timer5_Timer(); });
    callerid::ModemReader reader_{
        {instance_, call_, echo_, *this, [this] { return timer5_.get(); }}};
    std::string calls_;
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input = fuzz::as_text(data, size);
    Reader whole;
    whole.receive(input);
    Reader pieces;
    for (std::string_view rest = input; !rest.empty();) {
        const std::size_t length = 1 + static_cast<unsigned char>(rest.front()) % 7U;
        pieces.receive(rest.substr(0, length));
        rest.remove_prefix(std::min(length, rest.size()));
    }
    const std::string calls = whole.calls();
    const bool has_records = input.find("###DATE") != std::string_view::npos;
    if (size < callerid::ModemReader::kMostBuffered && !has_records) {
        fuzz::expect(pieces.calls() == calls, "a cut changes no call");
    }
    if (size + 40 < callerid::ModemReader::kMostBuffered) {
        whole.receive("\r\n");  // ends what was under way, and with a pause it is a call
        (void)whole.calls();
        whole.receive("NMBR = 5551234\r\nNAME = LAST\r\n");
        fuzz::expect(whole.calls().ends_with("LAST|555-1234\n"), "the next call is read");
    }
    return 0;
}
