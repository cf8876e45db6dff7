#include "webserver/failed_request.h"

#include "core/instance.h"
#include "webserver/tcp_server.h"

namespace webserver {

void FailedRequest::report(std::string_view where, const automation::RunTimeError& error) {
    instance_.log.report(where, error);
    if (instance_.platform().protection.stalled_queue_restarts && server_.has_socket(index_)) {
        server_.socket_Close(index_);
    }
}

}  // namespace webserver
