#pragma once

#include <memory>
#include <memory_resource>
#include <new>
#include <span>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace vbscript {

// The memory of one tree, handed out piece by piece and given back at once. Owned by the Program.
class Arena {
  public:
    template <typename Node, typename... Arguments>
    [[nodiscard]] Node* make(Arguments&&... arguments) {
        static_assert(std::is_trivially_destructible_v<Node>, "nothing in here is destroyed");
        return new (memory_.allocate(sizeof(Node), alignof(Node)))
            Node{std::forward<Arguments>(arguments)...};
    }

    template <typename Item>
    [[nodiscard]] std::span<const Item> list(const std::vector<Item>& items) {
        static_assert(std::is_trivially_destructible_v<Item>);
        if (items.empty()) {
            return {};
        }
        auto* copy =
            static_cast<Item*>(memory_.allocate(sizeof(Item) * items.size(), alignof(Item)));
        std::uninitialized_copy(items.begin(), items.end(), copy);
        return {copy, items.size()};
    }

    [[nodiscard]] std::u16string_view text(std::u16string_view units) {
        if (units.empty()) {
            return {};
        }
        auto* copy = static_cast<char16_t*>(
            memory_.allocate(sizeof(char16_t) * units.size(), alignof(char16_t)));
        std::uninitialized_copy(units.begin(), units.end(), copy);
        return {copy, units.size()};
    }

  private:
    std::pmr::monotonic_buffer_resource memory_{4096};
};

}  // namespace vbscript
