#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include "vbscript/objects/files/text_channel.h"

namespace vbscript {

// How characters stand in a file.
enum class TextFormat : std::uint8_t {
    CodePage,  // one byte of code page 1252 for each
    Unicode,   // 16 bits, low byte first, behind a mark of two bytes
};

enum class FileMode : std::uint8_t { Read, Write, Append };

// A text file on the disk. Writing makes the file or empties it; appending makes it or goes on at
// its end.
class FileChannel final : public TextChannel {
  public:
    // Throws: ScriptError 53 for a file to read that is not there, 76, 70, 67, 57.
    FileChannel(const std::filesystem::path& file, FileMode mode, TextFormat format);

    [[nodiscard]] bool is_for_reading() const noexcept override { return mode_ == FileMode::Read; }

    bool read_more(std::u16string& buffer) override;
    void write(std::u16string_view text) override;
    void close() override;

  private:
    void append_units(std::u16string& buffer, std::string_view bytes);

    FileMode mode_;
    TextFormat format_;
    std::fstream file_;
    std::string chunk_;
    bool at_start_ = true;
};

}  // namespace vbscript
