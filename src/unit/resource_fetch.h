#pragma once

#include <boost/asio/awaitable.hpp>
#include <boost/asio/ip/address.hpp>
#include <string>

namespace unit {

// What a web server gave. `problem` is empty after a whole answer of any status; else it says why
// there is none, and the other members hold what had arrived.
struct FetchedResource {
    std::string status_line;
    int status = 0;
    std::string body;
    std::string problem;
};

// Who fetches: the address that connections leave from, and the name for the User-Agent field.
struct FetchIdentity {
    boost::asio::ip::address local_address;
    std::string unit_name;
};

// Gets an "http://" address with one HTTP/1.0 request (RFC 1945); follows nothing. Bodies of up to
// 64 MB, ten seconds to connect, 30 s between two packets.
// Throws: nothing but the operation_aborted of a task that is ended.
[[nodiscard]] boost::asio::awaitable<FetchedResource> fetch_resource(std::string url,
                                                                     FetchIdentity identity);

}  // namespace unit
