#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "host/files.h"

namespace platform {

// An open file: the name that the logic used for its errors, what it stands for, the descriptor,
// which is closed with the object.
class OpenFile {
  public:
    // `flags` as of open(2); a new file gets the permissions that the umask leaves. Throws:
    // RunTimeError as `host::Files` says.
    OpenFile(std::string_view path, int flags);
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile();

    // Writes all of `bytes` at the file's position. Throws: RunTimeError 61 or 57.
    void write(std::string_view bytes);

    // At most `count` bytes from `offset`; fewer only at the end. Throws: RunTimeError 57.
    [[nodiscard]] std::string read(std::int64_t offset, std::size_t count) const;

    // Size in bytes as of now. Throws: RunTimeError 57.
    [[nodiscard]] std::int64_t size() const;

    // Takes what is in the file away, as far as that goes.
    void empty() noexcept;

  private:
    std::string path_;
    std::filesystem::path on_disk_;
    int descriptor_;
};

class DiskTextStream final : public host::TextStream {
  public:
    enum class Start : std::uint8_t { Append, Empty };

    DiskTextStream(std::string_view path, Start start);
    void Write(std::string_view text) override;
    void WriteLine(std::string_view line) override;

  private:
    OpenFile file_;
};

class DiskByteStream final : public host::ByteStream {
  public:
    explicit DiskByteStream(std::string_view path);
    [[nodiscard]] std::string read(std::size_t count) override;
    [[nodiscard]] bool at_end() override;

  private:
    OpenFile file_;
    std::int64_t offset_ = 0;
};

}  // namespace platform
