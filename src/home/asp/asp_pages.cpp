#include "home/asp/asp_pages.h"

#include <chrono>
#include <memory>

#include "automation/convert.h"
#include "automation/run_time_error.h"
#include "automation/strings.h"
#include "home/asp/asp_failure.h"
#include "home/asp/asp_request.h"
#include "home/asp/asp_response.h"
#include "home/asp/asp_server.h"
#include "home/asp/asp_source.h"
#include "home/web/plain_page.h"
#include "host/host_interface.h"
#include "host/script_control.h"

namespace home {
namespace {

constexpr std::string_view kLogType = "Web server";

AspFailure failure_in(const AspSource& source, const host::ScriptFailure& script) {
    const AspSource::Place& place = source.place_of(script.Line);
    AspFailure failure;
    failure.file = source.files.at(place.file);
    failure.line = place.line;
    failure.number = script.Number;
    failure.description = script.Description;
    if (!script.Text.starts_with("Response.WriteBlock ")) {
        failure.text = automation::trim(script.Text);
    }
    return failure;
}

std::shared_ptr<AspServer> make_server(const std::string& root, const WebPath& page,
                                       host::ScriptControl& control) {
    return std::make_shared<AspServer>(
        root, WebPath(page.begin(), page.end() - 1),
        AspServer::Services{
            .create =
                [&control](const std::string& name) {
                    const std::string quoted = automation::replace_all(name, "\"", "\"\"");
                    return automation::to_object(control.Eval("CreateObject(\"" + quoted + "\")"));
                },
            .set_time_limit =
                [&control](std::int32_t seconds) {
                    control.set_Timeout(std::chrono::seconds(seconds));
                }});
}

// Takes the engine out of the object's hands however the page ends.
class Attached {
  public:
    explicit Attached(std::shared_ptr<AspServer> server) : server_(std::move(server)) {}

    Attached(const Attached&) = delete;
    Attached& operator=(const Attached&) = delete;

    ~Attached() { server_->detach(); }

  private:
    std::shared_ptr<AspServer> server_;
};

void run_code(host::ScriptControl& control, const AspSource& source) {
    try {
        control.AddCode(source.code);
    } catch (const AspEnd&) {
        // The page has said all that it wanted to say.
    } catch (const automation::RunTimeError&) {
        throw failure_in(source, control.Error());
    }
}

}  // namespace

std::string AspPages::root() const {
    return hs_.GetAppPath() + "\\HTML";
}

host::HttpResponse AspPages::run_script(const host::HttpRequest& request, const WebPath& page) {
    const AspSource source = read_asp(files_, page);
    const AspPlace place{.path = text_of(page),
                         .path_translated = root() + "\\" + automation::join(page, "\\"),
                         .root = root()};
    const auto response = std::make_shared<AspResponse>(source.blocks);
    const std::unique_ptr<host::ScriptControl> control = controls_.create();
    const auto server = make_server(root(), page, *control);
    const Attached attached(server);
    control->set_AllowUI(false);
    control->set_Timeout(std::chrono::seconds(AspServer::kPresetSeconds));
    control->AddObject("Request", std::make_shared<AspRequest>(request, place), false);
    control->AddObject("Response", response, false);
    control->AddObject("Server", server, false);
    control->AddObject("hs", hs_.object(), false);
    run_code(*control, source);
    return response->answer();
}

host::HttpResponse AspPages::run(const host::HttpRequest& request, const WebPath& page) {
    try {
        return run_script(request, page);
    } catch (const AspFailure& failure) {
        hs_.Writelog(kLogType, failure.message());
        return plain_page(500, "The page could not be made", failure.message());
    } catch (const automation::RunTimeError& error) {
        AspFailure failure;
        failure.file = text_of(page);
        failure.number = error.number();
        failure.description = error.description();
        hs_.Writelog(kLogType, failure.message());
        return plain_page(500, "The page could not be made", failure.message());
    }
}

}  // namespace home
