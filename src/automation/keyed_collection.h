#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "automation/code_page.h"

namespace automation {

// Items in the order of their arrival, each under a key. Keys compare without regard to case.
template <typename Item>
class KeyedCollection {
  public:
    // Adds nothing when the key is taken: the first item under a key wins. Returns whether the
    // item was added.
    bool add(std::string_view key, Item item) {
        const bool is_new = rows_.try_emplace(to_lower(key), items_.size()).second;
        if (is_new) {
            items_.push_back(std::move(item));
        }
        return is_new;
    }

    // The item under the key, nullptr when there is none; valid until the next change.
    [[nodiscard]] const Item* find(std::string_view key) const {
        const auto row = rows_.find(to_lower(key));
        return row == rows_.end() ? nullptr : &items_[row->second];
    }

    [[nodiscard]] Item* find(std::string_view key) {
        const auto row = rows_.find(to_lower(key));
        return row == rows_.end() ? nullptr : &items_[row->second];
    }

    void clear() noexcept {
        items_.clear();
        rows_.clear();
    }

    [[nodiscard]] std::size_t size() const noexcept { return items_.size(); }

    [[nodiscard]] auto begin() const noexcept { return items_.begin(); }

    [[nodiscard]] auto end() const noexcept { return items_.end(); }

  private:
    std::vector<Item> items_;
    std::unordered_map<std::string, std::size_t> rows_;  // key in lower case, row of items_
};

}  // namespace automation
