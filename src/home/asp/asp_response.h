#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "automation/members.h"
#include "home/asp/asp_cookie.h"
#include "host/http.h"

namespace home {

// `Response`, the answer as a script makes it. The whole page is kept until it is made, so that an
// error can still take its place. Shared by the page and the values that hold it.
class AspResponse final : public automation::TableObject {
  public:
    // `blocks` are the texts that `WriteBlock` writes by their number.
    explicit AspResponse(std::vector<std::string> blocks) : blocks_(std::move(blocks)) {}

    // What the script has made.
    [[nodiscard]] host::HttpResponse answer() const;

    [[nodiscard]] std::string type_name() const override { return "Response"; }

    [[nodiscard]] std::span<const automation::Member> members() const override;

    // --- body

    // Nothing for Null. Throws: RunTimeError 7 for a page above 16 MB.
    void Write(const automation::Value& value);
    void WriteBlock(std::int32_t number);

    void Clear() { body_.clear(); }

    void Flush() {}

    // Throws: AspEnd.
    void End();

    // Ends the page with status 302. Throws: AspEnd; RunTimeError 5 for an address that would end
    // the header.
    void Redirect(const std::string& url);

    // --- headers; all throw RunTimeError 5 for a text that has no place in a header

    // "404 Not Found"
    [[nodiscard]] std::string status() const;
    void set_status(const std::string& text);

    [[nodiscard]] std::string content_type() const { return content_type_; }

    void set_content_type(const std::string& type);

    [[nodiscard]] std::string charset() const { return charset_; }

    void set_charset(const std::string& charset);

    // Minutes for which a client may keep the page; 0 and less: not at all.
    [[nodiscard]] automation::Value expires() const;

    void set_expires(std::int32_t minutes) { expires_ = minutes; }

    [[nodiscard]] automation::Value expires_absolute() const;

    void set_expires_absolute(automation::Date moment) { expires_absolute_ = moment; }

    [[nodiscard]] std::string cache_control() const { return cache_control_; }

    void set_cache_control(const std::string& text);

    void AddHeader(const std::string& name, const std::string& value);

    [[nodiscard]] std::shared_ptr<automation::Object> cookie(const std::string& name);
    void set_cookie(const std::string& name, const std::string& value);

    // Pages are always buffered.
    [[nodiscard]] bool buffer() const { return true; }

    void set_buffer(bool /*buffered*/) {}

    [[nodiscard]] bool is_client_connected() const { return true; }

  protected:
    [[nodiscard]] std::string_view default_member() const override { return "Write"; }

  private:
    void append(std::string_view text);
    [[nodiscard]] AspCookie& cookie_of(const std::string& name);

    std::vector<std::string> blocks_;
    std::string body_;
    std::int32_t status_ = 200;
    std::string reason_ = "OK";
    std::string content_type_ = "text/html";
    std::string charset_ = "windows-1252";
    std::string cache_control_ = "private";
    std::optional<std::int32_t> expires_;
    std::optional<automation::Date> expires_absolute_;
    std::vector<host::HttpHeader> headers_;
    std::vector<std::shared_ptr<AspCookie>> cookies_;
};

}  // namespace home
