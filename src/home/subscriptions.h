#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace home {

// A place in a list of callbacks. Destroying it takes the callback off the list, also in the
// middle of a call to it. May outlive the list.
class [[nodiscard]] Subscription {
  public:
    Subscription() = default;

    explicit Subscription(std::function<void()> cancel) : cancel_(std::move(cancel)) {}

    Subscription(Subscription&& other) noexcept : cancel_(std::exchange(other.cancel_, nullptr)) {}

    Subscription& operator=(Subscription&& other) noexcept {
        std::swap(cancel_, other.cancel_);
        return *this;
    }

    ~Subscription() {
        if (cancel_) {
            cancel_();
        }
    }

  private:
    std::function<void()> cancel_;
};

// Callbacks in the order of their subscription. Owned by whoever calls them.
template <typename... Arguments>
class Subscriptions {
  public:
    using Callback = std::function<void(Arguments...)>;

    [[nodiscard]] Subscription add(Callback callback) {
        const std::uint64_t key = next_key_++;
        entries_->emplace(key, std::make_shared<Callback>(std::move(callback)));
        return Subscription([list = std::weak_ptr<Entries>(entries_), key] {
            if (const auto entries = list.lock()) {
                entries->erase(key);
            }
        });
    }

    // Calls those that are on the list now and still are when their turn comes. May pump if a
    // callback does.
    void call(Arguments... arguments) const {
        const std::shared_ptr<Entries> entries = entries_;
        std::vector<std::uint64_t> keys;
        for (const auto& [key, callback] : *entries) {
            keys.push_back(key);
        }
        for (const std::uint64_t key : keys) {
            const auto found = entries->find(key);
            if (found == entries->end()) {
                continue;
            }
            const std::shared_ptr<Callback> callback = found->second;
            (*callback)(arguments...);
        }
    }

  private:
    using Entries = std::map<std::uint64_t, std::shared_ptr<Callback>>;

    std::shared_ptr<Entries> entries_ = std::make_shared<Entries>();
    std::uint64_t next_key_ = 0;
};

}  // namespace home
