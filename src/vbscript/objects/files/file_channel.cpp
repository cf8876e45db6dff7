#include "vbscript/objects/files/file_channel.h"

#include <cerrno>
#include <system_error>

#include "automation/code_page.h"
#include "vbscript/objects/files/disk.h"
#include "vbscript/value/script_error.h"

namespace vbscript {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kChunk = std::size_t{64} * 1024;  // even, so that no unit is cut
constexpr char16_t kByteOrderMark = 0xFEFF;
constexpr unsigned kBitsOfByte = 8;
constexpr unsigned kLowByte = 0xFF;

[[nodiscard]] std::ios::openmode open_mode(FileMode mode) noexcept {
    switch (mode) {
        case FileMode::Read:
            return std::ios::in | std::ios::binary;
        case FileMode::Write:
            return std::ios::out | std::ios::trunc | std::ios::binary;
        case FileMode::Append:
            return std::ios::out | std::ios::app | std::ios::binary;
    }
    return std::ios::in;
}

void append_bytes(std::string& bytes, std::u16string_view units) {
    for (const char16_t unit : units) {
        bytes += static_cast<char>(unit & kLowByte);
        bytes += static_cast<char>(unit >> kBitsOfByte);
    }
}

[[nodiscard]] std::string code_page_bytes(std::u16string_view text) {
    std::string bytes = automation::utf16_to_code_page(text);
    if (automation::code_page_to_utf16(bytes) != text) {
        throw ScriptError(ErrorNumber::InvalidProcedureCall);
    }
    return bytes;
}

}  // namespace

FileChannel::FileChannel(const fs::path& file, FileMode mode, TextFormat format)
    : mode_(mode), format_(format) {
    const auto status = status_of(file);
    if (status && status->is_folder) {
        throw ScriptError(ErrorNumber::PermissionDenied);
    }
    errno = 0;
    file_.open(file, open_mode(mode));
    if (!file_) {
        throw disk_error(std::error_code(errno, std::generic_category()),
                         ErrorNumber::FileNotFound);
    }
    if (format == TextFormat::Unicode && mode != FileMode::Read) {
        const bool is_new = mode == FileMode::Write || !status || status->size == 0;
        if (is_new) {
            write(std::u16string_view(&kByteOrderMark, 1));
        }
    }
}

bool FileChannel::read_more(std::u16string& buffer) {
    chunk_.resize(kChunk);
    file_.read(chunk_.data(), static_cast<std::streamsize>(kChunk));
    if (file_.bad()) {
        throw ScriptError(ErrorNumber::DeviceIoError);
    }
    const auto size = static_cast<std::size_t>(file_.gcount());
    append_units(buffer, std::string_view(chunk_).substr(0, size));
    return size > 0;
}

void FileChannel::append_units(std::u16string& buffer, std::string_view bytes) {
    if (format_ == TextFormat::CodePage) {
        buffer += automation::code_page_to_utf16(bytes);
        return;
    }
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto low = static_cast<unsigned char>(bytes[i]);
        const auto high = static_cast<unsigned char>(bytes[i + 1]);
        const auto unit = static_cast<char16_t>(low | (unsigned{high} << kBitsOfByte));
        const bool is_mark = at_start_ && unit == kByteOrderMark;
        at_start_ = false;
        if (!is_mark) {
            buffer += unit;
        }
    }
}

void FileChannel::write(std::u16string_view text) {
    std::string bytes;
    if (format_ == TextFormat::CodePage) {
        bytes = code_page_bytes(text);
    } else {
        append_bytes(bytes, text);
    }
    file_.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!file_) {
        throw ScriptError(ErrorNumber::DiskFull);
    }
}

void FileChannel::close() {
    file_.close();
    if (!file_ && mode_ != FileMode::Read) {
        throw ScriptError(ErrorNumber::DiskFull);
    }
}

}  // namespace vbscript
