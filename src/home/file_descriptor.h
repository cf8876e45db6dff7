#pragma once

#include <utility>

namespace home {

// An open file of the system, closed when destroyed. Move-only; empty after a move.
class FileDescriptor {
  public:
    FileDescriptor() noexcept = default;

    explicit FileDescriptor(int number) noexcept : number_(number) {}

    FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}

    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }

    ~FileDescriptor();

    [[nodiscard]] bool is_open() const noexcept { return number_ >= 0; }

    [[nodiscard]] int number() const noexcept { return number_; }

  private:
    int number_ = -1;
};

}  // namespace home
