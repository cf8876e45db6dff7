#include "app/xap_words.h"

#include <algorithm>
#include <utility>

#include "app/control_client.h"
#include "automation/code_page.h"
#include "host/xap_message.h"

namespace app {
namespace {

using Items = std::vector<std::pair<std::string, std::string>>;

struct Block {
    std::string name;
    Items items;
};

Block& block_named(std::vector<Block>& blocks, const std::string& name) {
    const auto found = std::ranges::find_if(blocks, [&](const Block& block) {
        return automation::equals_ignoring_case(block.name, name);
    });
    return found != blocks.end() ? *found : blocks.emplace_back(Block{name, {}});
}

void take(const std::string& word, std::vector<Block>& blocks) {
    const std::size_t equals = word.find('=');
    if (equals == std::string::npos) {
        (void)block_named(blocks, word);
        return;
    }
    const std::size_t dot = word.rfind('.', equals);
    if (dot == std::string::npos || dot == 0 || dot + 1 == equals) {
        throw CommandFailure("'" + word + "' is no item; wanted BLOCK.KEY=VALUE");
    }
    block_named(blocks, word.substr(0, dot))
        .items.emplace_back(word.substr(dot + 1, equals - dot - 1), word.substr(equals + 1));
}

}  // namespace

XapBody xap_body_of(const std::vector<std::string>& words) {
    std::vector<Block> blocks;
    for (const std::string& word : words) {
        if (word.empty()) {
            throw CommandFailure("an empty word is no item; wanted BLOCK.KEY=VALUE");
        }
        take(automation::utf8_to_code_page(word), blocks);
    }
    if (blocks.empty()) {
        throw CommandFailure("a message has at least one block; wanted BLOCK.KEY=VALUE");
    }
    XapBody body{.section = blocks.front().name, .data = {}};
    for (const auto& [key, value] : blocks.front().items) {
        if (!body.data.empty()) {
            body.data += host::kXapPairEnd;
        }
        body.data.append(key).append(1, host::kXapKeyEnd).append(value);
    }
    for (auto block = blocks.begin() + 1; block != blocks.end(); ++block) {
        body.data += "\n}\n" + block->name + "\n{";
        for (const auto& [key, value] : block->items) {
            body.data.append("\n").append(key).append("=").append(value);
        }
    }
    return body;
}

}  // namespace app
