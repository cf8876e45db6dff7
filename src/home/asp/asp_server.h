#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>

#include "automation/members.h"
#include "home/web/site_files.h"

namespace home {

// `Server`, what a page may ask of the site. Shared by the values that hold it; it works for as
// long as its page runs.
class AspServer final : public automation::TableObject {
  public:
    struct Services {
        std::function<std::shared_ptr<automation::Object>(const std::string& class_name)> create;
        std::function<void(std::int32_t seconds)> set_time_limit;
    };

    // `root` is the site's folder in the logic's spelling, `folder` the place of the page.
    AspServer(std::string root, WebPath folder, Services services)
        : root_(std::move(root)), folder_(std::move(folder)), services_(std::move(services)) {}

    [[nodiscard]] std::string type_name() const override { return "Server"; }

    [[nodiscard]] std::span<const automation::Member> members() const override;

    // The page has come to its end: later calls fail with error 91.
    void detach() noexcept { services_ = {}; }

    // Where a place of the site lies on disk, whether something is there or not.
    // Throws: RunTimeError 5 for one outside of the site.
    [[nodiscard]] std::string MapPath(const std::string& path) const;

    [[nodiscard]] std::string HTMLEncode(const std::string& text) const;
    [[nodiscard]] std::string URLEncode(const std::string& text) const;

    // Throws: RunTimeError 429.
    [[nodiscard]] std::shared_ptr<automation::Object> CreateObject(const std::string& class_name);

    // Seconds that the page may run, at most a minute, since the house stands still meanwhile.
    [[nodiscard]] std::int32_t script_timeout() const noexcept { return seconds_; }

    // Throws: RunTimeError 5 outside of 1 to 60.
    void set_script_timeout(std::int32_t seconds);

    static constexpr std::int32_t kPresetSeconds = 10;
    static constexpr std::int32_t kMostSeconds = 60;

  private:
    std::string root_;
    WebPath folder_;
    Services services_;
    std::int32_t seconds_ = kPresetSeconds;
};

}  // namespace home
