#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace host {
class UserStore;
}

namespace udp {

// The client programs that have subscribed, in the per-user store under numbers from 1. An entry is
// a client's address, the same behind "-" for one that has unsubscribed, or "" for a cleared one.
// It is read anew at each call, so that a change of the store takes effect at once. Part of the
// link.
class ClientList {
  public:
    explicit ClientList(host::UserStore& store) : store_(store) {}

    // The highest number in use.
    [[nodiscard]] std::int32_t ClientMax() const;

    [[nodiscard]] std::string entry(std::int32_t number) const;

    void clear();

    // Both do nothing for a client that is so already. A client that comes back gets its entry
    // again.
    void subscribe(const std::string& address);
    void unsubscribe(const std::string& address);

    // By the first entry that names it, with or without "-".
    [[nodiscard]] bool is_subscribed(std::string_view address) const;

  private:
    void set_entry(std::int32_t number, std::string_view text);
    void set_client_max(std::int32_t number);

    host::UserStore& store_;
};

// Whether a message goes to an entry: not to a client that has unsubscribed, but to a cleared one.
[[nodiscard]] bool is_served(std::string_view entry);

// What the per-user store has under "Options", where the link keeps its ports and its debug flag.
inline constexpr std::string_view kStoreTitle = "zynVelora";
inline constexpr std::string_view kStoreOptions = "Options";

}  // namespace udp
