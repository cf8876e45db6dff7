#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "automation/convert.h"
#include "automation/run_time_error.h"
#include "host/files.h"
#include "host/image_resize.h"

namespace support {

// A resizing component that writes a given copy and remembers what it was told. Owned by the
// fixture; the files outlive it.
class FakeImageResizer final : public host::ImageResizer {
  public:
    explicit FakeImageResizer(host::Files& files) : files_(files) {}

    // The machine has no such component.
    void remove() { is_missing_ = true; }

    // The call that is written so in `calls` fails; all work again for "".
    void fail_at(std::string_view call) { failing_call_ = call; }

    // What `SaveToFile` writes.
    void set_copy(std::string_view bytes) { copy_ = bytes; }

    // "load path", "width 500", "resize", "save path".
    [[nodiscard]] const std::vector<std::string>& calls() const noexcept { return calls_; }

    [[nodiscard]] std::unique_ptr<host::ImageResize> create() override {
        if (is_missing_) {
            throw automation::RunTimeError(automation::ErrorNumber::ActiveXCannotCreateObject);
        }
        return std::make_unique<Object>(*this);
    }

  private:
    class Object final : public host::ImageResize {
      public:
        explicit Object(FakeImageResizer& owner) : owner_(owner) {}

        void LoadFromFile(std::string_view path) override {
            owner_.record("load " + std::string(path));
        }

        void set_Width(double pixels) override {
            owner_.record("width " + automation::text_of(pixels));
        }

        void DoResize() override { owner_.record("resize"); }

        void SaveToFile(std::string_view path) override {
            owner_.record("save " + std::string(path));
            owner_.files_.write(path, owner_.copy_);
        }

      private:
        FakeImageResizer& owner_;
    };

    void record(const std::string& call) {
        calls_.push_back(call);
        if (call == failing_call_) {
            throw automation::RunTimeError(automation::ErrorNumber::DeviceIoError);
        }
    }

    host::Files& files_;
    bool is_missing_ = false;
    std::string failing_call_;
    std::string copy_;
    std::vector<std::string> calls_;
};

}  // namespace support
