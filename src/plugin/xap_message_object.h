#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "automation/object.h"
#include "automation/value.h"
#include "host/xap_message.h"

namespace plugin {

// A message that a script hands in: an object with the members of host::XapMessage, by their
// names. `MsgSection` is an array; `msgCollection` gives an array or a collection with `Count` and
// `Item`, from 1. Made for one call. All members throw what the object throws, and may pump.
class XapMessageObject final : public host::XapMessage {
  public:
    explicit XapMessageObject(std::shared_ptr<automation::Object> object)
        : object_(std::move(object)) {}

    [[nodiscard]] std::string MsgSource() const override { return text("MsgSource"); }

    [[nodiscard]] std::string MsgClass() const override { return text("MsgClass"); }

    [[nodiscard]] std::string MsgTarget() const override { return text("MsgTarget"); }

    [[nodiscard]] std::vector<std::string> MsgSection() const override;
    [[nodiscard]] std::vector<std::string> msgCollection(std::size_t block) const override;
    [[nodiscard]] bool CompareClass(std::string_view message_class) const override;
    [[nodiscard]] bool CompareTarget(std::string_view address) const override;
    [[nodiscard]] std::string GetItem(std::string_view section,
                                      std::string_view key) const override;

  private:
    [[nodiscard]] std::string text(std::string_view member) const;

    std::shared_ptr<automation::Object> object_;
};

}  // namespace plugin
