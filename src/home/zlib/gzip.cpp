#include "home/zlib/gzip.h"

#include <zlib.h>

#include <limits>

#include "automation/run_time_error.h"

namespace home {
namespace {

constexpr int kGzipWindow = 15 + 16;  // the largest window; 16 asks for the gzip format
constexpr int kMemoryLevel = 8;       // the library's own
constexpr int kLevel = 5;             // a page must not hold the pump up

automation::RunTimeError no_memory() {
    return automation::RunTimeError(automation::ErrorNumber::OutOfMemory);
}

}  // namespace

std::string gzip(std::string_view bytes) {
    z_stream stream{};
    if (bytes.size() > std::numeric_limits<uInt>::max() ||
        deflateInit2(&stream, kLevel, Z_DEFLATED, kGzipWindow, kMemoryLevel, Z_DEFAULT_STRATEGY) !=
            Z_OK) {
        throw no_memory();
    }
    std::string packed(deflateBound(&stream, static_cast<uLong>(bytes.size())), '\0');
    // The library does not write to what it reads, though its type says so.
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
    stream.avail_in = static_cast<uInt>(bytes.size());
    stream.next_out = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_out = static_cast<uInt>(packed.size());
    const int result = deflate(&stream, Z_FINISH);
    packed.resize(stream.total_out);
    deflateEnd(&stream);
    if (result != Z_STREAM_END) {
        throw no_memory();
    }
    return packed;
}

}  // namespace home
