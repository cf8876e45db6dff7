#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>

#include "automation/members.h"
#include "home/asp/asp_collection.h"
#include "host/http.h"

namespace home {

// What a page is told about itself beside the request.
struct AspPlace {
    std::string path;             // "/a/b.asp", as the site names it
    std::string path_translated;  // on disk, in the logic's spelling
    std::string root;             // of the site, likewise
};

// `Request`, the client's request as a script sees it. Shared by the values that hold it.
class AspRequest final : public automation::TableObject {
  public:
    AspRequest(const host::HttpRequest& request, const AspPlace& place);

    [[nodiscard]] std::string type_name() const override { return "Request"; }

    [[nodiscard]] std::span<const automation::Member> members() const override;

    // Looks through QueryString, Form, Cookies and ServerVariables, in this order; Empty for a name
    // that is in none.
    [[nodiscard]] automation::Value Item(const std::string& name) const;

    // One value, or the list without a name.
    [[nodiscard]] automation::Value QueryString(const std::optional<automation::Value>& name) const;
    [[nodiscard]] automation::Value Form(const std::optional<automation::Value>& name) const;
    [[nodiscard]] automation::Value Cookies(const std::optional<automation::Value>& name) const;
    [[nodiscard]] automation::Value ServerVariables(
        const std::optional<automation::Value>& name) const;

    [[nodiscard]] std::int32_t TotalBytes() const noexcept { return total_bytes_; }

  protected:
    [[nodiscard]] std::string_view default_member() const override { return "Item"; }

  private:
    std::shared_ptr<AspCollection> query_;
    std::shared_ptr<AspCollection> form_;
    std::shared_ptr<AspCollection> cookies_;
    std::shared_ptr<AspCollection> variables_;
    std::int32_t total_bytes_ = 0;
};

}  // namespace home
