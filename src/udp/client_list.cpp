#include "udp/client_list.h"

#include "automation/convert.h"
#include "host/settings.h"

namespace udp {

namespace {

constexpr std::string_view kClients = "Clients";
constexpr std::string_view kClientMax = "ClientMax";
constexpr std::string_view kGone = "-";

std::string gone(std::string_view address) {
    return std::string(kGone).append(address);
}

}  // namespace

std::int32_t ClientList::ClientMax() const {
    return automation::checked_int32(
        automation::numeric_prefix(store_.GetSetting(kStoreTitle, kClients, kClientMax, "0")));
}

std::string ClientList::entry(std::int32_t number) const {
    return store_.GetSetting(kStoreTitle, kClients, std::to_string(number), "");
}

void ClientList::set_entry(std::int32_t number, std::string_view text) {
    store_.SaveSetting(kStoreTitle, kClients, std::to_string(number), text);
}

void ClientList::set_client_max(std::int32_t number) {
    store_.SaveSetting(kStoreTitle, kClients, kClientMax, std::to_string(number));
}

void ClientList::clear() {
    const std::int32_t count = ClientMax();
    for (std::int32_t number = 1; number <= count; ++number) {
        set_entry(number, "");
    }
    if (count > 0) {
        set_client_max(0);
    }
}

void ClientList::subscribe(const std::string& address) {
    const std::int32_t count = ClientMax();
    bool is_known = false;
    for (std::int32_t number = 1; number <= count; ++number) {
        const std::string text = entry(number);
        if (text == gone(address)) {
            set_entry(number, address);
        }
        is_known = is_known || text == address || text == gone(address);
    }
    if (!is_known) {
        set_client_max(count + 1);
        set_entry(count + 1, address);
    }
}

void ClientList::unsubscribe(const std::string& address) {
    const std::int32_t count = ClientMax();
    for (std::int32_t number = 1; number <= count; ++number) {
        if (entry(number) == address) {
            set_entry(number, gone(address));
        }
    }
}

bool ClientList::is_subscribed(std::string_view address) const {
    const std::int32_t count = ClientMax();
    for (std::int32_t number = 1; number <= count; ++number) {
        const std::string text = entry(number);
        if (text == gone(address)) {
            return false;
        }
        if (text == address) {
            return true;
        }
    }
    return false;
}

bool is_served(std::string_view entry) {
    return !entry.starts_with(kGone);
}

}  // namespace udp
