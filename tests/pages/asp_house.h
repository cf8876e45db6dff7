#pragma once

#include <array>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "automation/members.h"
#include "core/instance.h"
#include "host/menu_database.h"
#include "pages/convert_asp.h"
#include "pages/headers/host_page.h"
#include "pages/html_includes.h"
#include "pages/page_engine.h"
#include "pages/recording_engine.h"
#include "support/fake_platform.h"
#include "support/memory_host.h"

namespace pages {

// A request of which pages see the server variables alone.
class FakeRequest final : public automation::TableObject {
  public:
    std::map<std::string, std::string, std::less<>> variables;

    [[nodiscard]] automation::Value ServerVariables(const std::string& name) const {
        const auto found = variables.find(name);
        return found == variables.end() ? automation::Value() : automation::Value(found->second);
    }

    [[nodiscard]] std::string type_name() const override { return "Request"; }

    [[nodiscard]] std::span<const automation::Member> members() const override {
        static constexpr auto kMembers = std::to_array<automation::Member>({
            automation::property<&FakeRequest::ServerVariables>("ServerVariables", "name"),
        });
        return kMembers;
    }
};

class FakeResponse final : public automation::TableObject {
  public:
    std::vector<std::string> redirects;

    void Redirect(const std::string& location) { redirects.push_back(location); }

    [[nodiscard]] std::string type_name() const override { return "Response"; }

    [[nodiscard]] std::span<const automation::Member> members() const override {
        static constexpr auto kMembers = std::to_array<automation::Member>({
            automation::method<&FakeResponse::Redirect>("Redirect", "location"),
        });
        return kMembers;
    }
};

// A database that answers statements by their start.
class FakeMenus final : public host::MenuDatabase {
  public:
    std::string product = "SQLite";
    std::map<std::string, std::vector<host::DatabaseRow>, std::less<>> rows;
    std::vector<std::string> statements;

    [[nodiscard]] std::string type() const override { return product; }

    std::vector<host::DatabaseRow> run(std::string_view statement) override {
        statements.emplace_back(statement);
        for (const auto& [start, answer] : rows) {
            if (statement.starts_with(start)) {
                return answer;
            }
        }
        return {};
    }
};

// A house whose pages run on an engine that only takes notes.
struct AspHouse {
    explicit AspHouse(host::Protection protection = {}) {
        machine.protection = protection;
        instance = std::make_unique<core::Instance>(platform());
        instance->attach(host, &host);
        instance->log.attach(&host);
        instance->application_path = "C:\\House";
        page = std::make_unique<HostPage>(*instance, &menus);
        page->set_objects(request, response);
        pages = std::make_unique<PageEngine>(*instance);
        includes = std::make_unique<HTMLIncludes>(*instance, *pages, *page);
        asp = std::make_unique<ConvertASP>(*instance, *pages, *includes);
    }

    [[nodiscard]] host::Platform platform() {
        const host::Platform of = machine.platform();
        return {of.pump,         of.clock,        of.random,         of.files,      of.network,
                of.page_fetcher, of.speech,       of.image_resizer,  of.user_store, of.desktop,
                engines,         of.serial_ports, machine.protection};
    }

    void put_html(const std::string& file, std::string_view text) {
        machine.files.put("C:\\House\\HTML\\" + file, text);
    }

    [[nodiscard]] std::string html(const std::string& file) {
        return machine.files.read("C:\\House\\HTML\\" + file);
    }

    std::string slide(const std::string& file, const std::string& seconds) {
        return asp->ASPSlide(request, response, file, seconds);
    }

    support::FakeMachine machine;
    support::MemoryHost host;
    EngineRecord record;
    RecordingControls engines{record};
    FakeMenus menus;
    std::shared_ptr<FakeRequest> request = std::make_shared<FakeRequest>();
    std::shared_ptr<FakeResponse> response = std::make_shared<FakeResponse>();
    std::unique_ptr<core::Instance> instance;
    std::unique_ptr<HostPage> page;
    std::unique_ptr<PageEngine> pages;
    std::unique_ptr<HTMLIncludes> includes;
    std::unique_ptr<ConvertASP> asp;
};

}  // namespace pages
