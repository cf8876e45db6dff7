#include "support/fake_platform.h"

#include <utility>

namespace support {

float FixedRandom::next() {
    if (!ordered_.empty()) {
        const float number = ordered_.front();
        ordered_.pop_front();
        return number;
    }
    constexpr int kNumbers = 8100;
    const int place = count_++ % kNumbers;
    return static_cast<float>(1000 + place / 9 * 10 + place % 9 + 1) / 10000.0F;
}

void FakeSpeech::throw_if_broken() const {
    if (error_) {
        throw automation::RunTimeError(*error_);
    }
}

std::vector<std::string> FakeSpeech::GetVoices() {
    throw_if_broken();
    return voices_;
}

void FakeSpeech::Speak(std::string_view text, std::optional<std::size_t> voice,
                       std::string_view path, int format) {
    throw_if_broken();
    if (format != host::kSpeechFormat22kHz16BitMono) {
        throw automation::RunTimeError(automation::ErrorNumber::InvalidProcedureCall);
    }
    spoken_.push_back(std::string(text) + " | " + (voice ? voices_.at(*voice) : "default") + " | " +
                      std::string(path));
    files_.write(path, std::string(wav_size_, 'w'));
}

std::string MemoryUserStore::GetSetting(std::string_view title, std::string_view section,
                                        std::string_view key, std::string_view fallback) {
    const auto found =
        values_.find(std::string(title) + "\n" + std::string(section) + "\n" + std::string(key));
    return found == values_.end() ? std::string(fallback) : found->second;
}

void MemoryUserStore::SaveSetting(std::string_view title, std::string_view section,
                                  std::string_view key, std::string_view value) {
    values_[std::string(title) + "\n" + std::string(section) + "\n" + std::string(key)] = value;
}

class FakeSerialPorts::Port final : public host::SerialPort {
  public:
    Port(FakeSerialPorts& ports, host::SerialPortEvents events)
        : ports_(ports), events_(std::move(events)) {}

    Port(const Port&) = delete;
    Port& operator=(const Port&) = delete;

    ~Port() override { detach(); }

    void open(std::string_view port, std::string_view line) override {
        ports_.calls_.push_back("open " + std::string(port) + " " + std::string(line));
        if (!ports_.is_there_) {
            throw automation::RunTimeError(automation::ErrorNumber::DeviceUnavailable,
                                           "No such device");
        }
        ports_.open_ = this;
    }

    [[nodiscard]] bool is_open() const override { return ports_.open_ == this; }

    void write(std::string_view bytes) override {
        if (!is_open()) {
            throw automation::RunTimeError(automation::ErrorNumber::DeviceIoError);
        }
        ports_.calls_.push_back("write " + std::string(bytes));
    }

    void close() noexcept override {
        ports_.calls_.emplace_back("close");
        detach();
    }

    [[nodiscard]] const host::SerialPortEvents& events() const { return events_; }

  private:
    void detach() noexcept {
        if (is_open()) {
            ports_.open_ = nullptr;
        }
    }

    FakeSerialPorts& ports_;
    host::SerialPortEvents events_;
};

std::unique_ptr<host::SerialPort> FakeSerialPorts::make_serial_port(host::SerialPortEvents events) {
    return std::make_unique<Port>(*this, std::move(events));
}

void FakeSerialPorts::unplug() {
    is_there_ = false;
    if (open_ != nullptr) {
        std::exchange(open_, nullptr)->events().on_lost("Input/output error");
    }
}

void FakeSerialPorts::receive(std::string_view bytes) {
    if (open_ != nullptr) {
        open_->events().on_bytes(bytes);
    }
}

vbscript::ClassRegistry standard_classes() {
    vbscript::ClassRegistry classes;
    vbscript::add_standard_classes(classes);
    return classes;
}

}  // namespace support
