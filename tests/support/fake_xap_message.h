#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "automation/code_page.h"
#include "host/xap_message.h"

namespace support {

// A message as a test writes it down: FakeXapMessage("a.b.c", "tts.speak", "zyn.zynVelora.hall")
// .block("tts.speak", {"say=Hello"}). Its target covers an address that is the same, or all for
// "*".
class FakeXapMessage final : public host::XapMessage {
  public:
    FakeXapMessage(std::string source, std::string message_class, std::string target = "")
        : source_(std::move(source)),
          class_(std::move(message_class)),
          target_(std::move(target)) {}

    FakeXapMessage& block(std::string name, std::vector<std::string> lines) {
        blocks_.emplace_back(std::move(name), std::move(lines));
        return *this;
    }

    [[nodiscard]] std::string MsgSource() const override { return source_; }

    [[nodiscard]] std::string MsgClass() const override { return class_; }

    [[nodiscard]] std::string MsgTarget() const override { return target_; }

    [[nodiscard]] std::vector<std::string> MsgSection() const override {
        std::vector<std::string> names;
        for (const auto& [name, lines] : blocks_) {
            names.push_back(name);
        }
        return names;
    }

    [[nodiscard]] std::vector<std::string> msgCollection(std::size_t block) const override {
        return blocks_.at(block).second;
    }

    [[nodiscard]] bool CompareClass(std::string_view message_class) const override {
        return automation::equals_ignoring_case(class_, message_class);
    }

    [[nodiscard]] bool CompareTarget(std::string_view address) const override {
        return target_ == "*" || automation::equals_ignoring_case(target_, address);
    }

    [[nodiscard]] std::string GetItem(std::string_view section,
                                      std::string_view key) const override {
        for (const auto& [name, lines] : blocks_) {
            for (const std::string& line : lines) {
                if (automation::equals_ignoring_case(name, section) &&
                    automation::equals_ignoring_case(line.substr(0, line.find('=')), key)) {
                    return line.substr(line.find('=') + 1);
                }
            }
        }
        return std::string(host::kXapUnknown);
    }

  private:
    std::string source_;
    std::string class_;
    std::string target_;
    std::vector<std::pair<std::string, std::vector<std::string>>> blocks_;
};

}  // namespace support
