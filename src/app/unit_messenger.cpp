#include "app/unit_messenger.h"

#include "automation/code_page.h"
#include "host/log.h"
#include "unit/tell_unit.h"

namespace app {

using platform::LocalLineExchange;

void UnitMessenger::tell(const std::filesystem::path& state_directory, const std::string& command,
                         const std::string& occasion) {
    Mailbox& mailbox = mailboxes_[state_directory];
    mailbox.state_directory = state_directory;
    if (mailbox.waiting.size() >= kWaitingCommands) {
        report(mailbox, occasion, "too many commands wait for it");
        return;
    }
    mailbox.waiting.push_back({command, occasion});
    if (mailbox.waiting.size() == 1) {
        send_front(mailbox);
    }
}

void UnitMessenger::send_front(Mailbox& mailbox) {
    mailbox.exchange = std::make_unique<LocalLineExchange>(
        pump_, mailbox.state_directory / unit::kControlSocketName, mailbox.waiting.front().command,
        limit_, [this, &mailbox](const LocalLineExchange::Outcome& outcome) {
            end_front(mailbox, outcome);
        });
}

void UnitMessenger::end_front(Mailbox& mailbox, const LocalLineExchange::Outcome& outcome) {
    constexpr std::string_view kRefusal = "error: ";
    const std::string occasion = mailbox.waiting.front().occasion;
    mailbox.waiting.pop_front();
    if (!outcome.failure.empty()) {
        report(mailbox, occasion, outcome.failure);
    } else if (outcome.answer.starts_with(kRefusal)) {
        report(mailbox, occasion, outcome.answer.substr(kRefusal.size()));
    }
    if (!mailbox.waiting.empty()) {
        send_front(mailbox);
    }
}

void UnitMessenger::report(const Mailbox& mailbox, const std::string& occasion,
                           const std::string& reason) {
    const std::string text =
        " did not reach the unit in " + mailbox.state_directory.string() + ": " + reason;
    log_.Writelog("X10", occasion + automation::utf8_to_code_page(text));
}

}  // namespace app
