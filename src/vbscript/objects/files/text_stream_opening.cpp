#include "vbscript/objects/files/disk_objects.h"
#include "vbscript/objects/files/file_channel.h"
#include "vbscript/objects/files/text_stream.h"

namespace vbscript {
namespace {

[[nodiscard]] FileMode mode_of(std::int32_t number) {
    constexpr std::int32_t kForReading = 1;
    constexpr std::int32_t kForWriting = 2;
    constexpr std::int32_t kForAppending = 8;
    switch (number) {
        case kForReading:
            return FileMode::Read;
        case kForWriting:
            return FileMode::Write;
        case kForAppending:
            return FileMode::Append;
        default:
            throw ScriptError(ErrorNumber::InvalidProcedureCall);
    }
}

[[nodiscard]] TextFormat format_of(std::int32_t number) {
    constexpr std::int32_t kUnicode = -1;
    constexpr std::int32_t kSystemDefault = -2;
    constexpr std::int32_t kCodePage = 0;
    switch (number) {
        case kUnicode:
            return TextFormat::Unicode;
        case kSystemDefault:
        case kCodePage:
            return TextFormat::CodePage;
        default:
            throw ScriptError(ErrorNumber::InvalidProcedureCall);
    }
}

[[nodiscard]] Value stream_of(const Disk::Path& file, FileMode mode, TextFormat format) {
    return Value(Ref<Object>(make<TextStream>(std::make_unique<FileChannel>(file, mode, format))));
}

}  // namespace

Value open_text_stream(const Disk::Path& file, Arguments& arguments, std::size_t mode_index,
                       std::size_t format_index) {
    return stream_of(file, mode_of(arguments.number_or(mode_index, 1)),
                     format_of(arguments.number_or(format_index, 0)));
}

Value create_text_stream(const Disk::Path& file, Arguments& arguments, std::size_t index) {
    const auto status = status_of(file);
    if (status && status->is_folder) {
        throw ScriptError(ErrorNumber::PermissionDenied);
    }
    if (status && !arguments.truth_or(index, true)) {
        throw ScriptError(ErrorNumber::FileAlreadyExists);
    }
    const bool unicode = arguments.truth_or(index + 1, false);
    return stream_of(file, FileMode::Write, unicode ? TextFormat::Unicode : TextFormat::CodePage);
}

}  // namespace vbscript
