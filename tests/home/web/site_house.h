#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "home/embedded_host.h"
#include "home/home_layout.h"
#include "home/temporary_folder.h"
#include "home/web/web_site.h"
#include "host/http.h"
#include "support/fake_platform.h"

namespace home {

// A site with its pages in a folder of the test, on the script engine, for an embedded host.
struct SiteHouse {
    host::HttpResponse get(const std::string& target, std::vector<host::HttpHeader> headers = {}) {
        host::HttpRequest request;
        request.target = target;
        request.headers = std::move(headers);
        return ask(request);
    }

    host::HttpResponse post(const std::string& target, const std::string& body,
                            std::vector<host::HttpHeader> headers = {}) {
        host::HttpRequest request;
        request.method = "POST";
        request.target = target;
        request.body = body;
        request.headers = std::move(headers);
        return ask(request);
    }

    host::HttpResponse ask(host::HttpRequest request) {
        request.remote_address = "127.0.0.1";
        return site.answer(request);
    }

    void write(const std::string& page, const std::string& content) const {
        folder.write("HTML/" + page, content);
    }

    // What a page of this content writes.
    std::string run(const std::string& page) {
        write("page.asp", page);
        return get("/page.asp").body;
    }

    // The last lines of the host's log, "type: message".
    std::vector<std::string> log() {
        std::vector<std::string> lines;
        for (const LogLine& line : hs.log().last(10)) {
            lines.push_back(line.type + ": " + line.message);
        }
        return lines;
    }

    TemporaryFolder folder;
    support::FakeMachine machine;
    EmbeddedHost hs{machine.pump, machine.pump, {.home = laid_out(folder)}};
    WebSite site{folder.path(), machine.script_controls, hs};

  private:
    static std::filesystem::path laid_out(const TemporaryFolder& folder) {
        lay_out_home(folder.path(), folder.path() / "Data", {});
        return folder.path();
    }
};

// "200 text/html; charset=windows-1252 body", for one look at all of it.
inline std::string in_short(const host::HttpResponse& response) {
    return std::to_string(response.status) + " " + response.header("Content-Type").value_or("-") +
           " " + response.body;
}

}  // namespace home
