#include "platform/gumbo/html_text.h"

#include <gumbo.h>

#include <algorithm>
#include <array>
#include <memory>
#include <span>

#include "automation/code_page.h"

namespace platform {
namespace {

constexpr std::array kHidden{
    GUMBO_TAG_HEAD,   GUMBO_TAG_SCRIPT,   GUMBO_TAG_STYLE,  GUMBO_TAG_NOSCRIPT,
    GUMBO_TAG_IFRAME, GUMBO_TAG_TEMPLATE, GUMBO_TAG_OBJECT, GUMBO_TAG_TITLE,
};

constexpr std::array kBlocks{
    GUMBO_TAG_ADDRESS, GUMBO_TAG_ARTICLE, GUMBO_TAG_ASIDE, GUMBO_TAG_BLOCKQUOTE, GUMBO_TAG_CENTER,
    GUMBO_TAG_DD,      GUMBO_TAG_DIV,     GUMBO_TAG_DL,    GUMBO_TAG_DT,         GUMBO_TAG_FIELDSET,
    GUMBO_TAG_FOOTER,  GUMBO_TAG_FORM,    GUMBO_TAG_H1,    GUMBO_TAG_H2,         GUMBO_TAG_H3,
    GUMBO_TAG_H4,      GUMBO_TAG_H5,      GUMBO_TAG_H6,    GUMBO_TAG_HEADER,     GUMBO_TAG_HR,
    GUMBO_TAG_LI,      GUMBO_TAG_MAIN,    GUMBO_TAG_NAV,   GUMBO_TAG_OL,         GUMBO_TAG_P,
    GUMBO_TAG_PRE,     GUMBO_TAG_SECTION, GUMBO_TAG_TABLE, GUMBO_TAG_TR,         GUMBO_TAG_UL,
};

template <std::size_t size>
bool is_one_of(const std::array<GumboTag, size>& tags, GumboTag tag) {
    return std::ranges::find(tags, tag) != tags.end();
}

// Puts pieces of text together: blanks and line ends are held back until text follows them, so that
// none stand at the beginning and the end of a line or of the whole.
class TextBuilder {
  public:
    void add_collapsed(std::string_view text) {
        for (const char character : text) {
            if (std::string_view(" \t\r\n\f").find(character) != std::string_view::npos) {
                want_blank();
            } else {
                add(character);
            }
        }
    }

    void add_as_it_stands(std::string_view text) {
        for (const char character : text) {
            if (character == '\n') {
                break_line();
            } else {
                add(character);
            }
        }
    }

    void want_blank() { blank_ = true; }

    // A block begins or ends: no second line end behind a first.
    void want_line() { lines_ = std::max(lines_, 1); }

    void break_line() { ++lines_; }

    [[nodiscard]] std::string take() { return std::move(text_); }

  private:
    void add(char character) {
        if (!text_.empty()) {
            for (int line = 0; line < lines_; ++line) {
                text_ += "\r\n";
            }
            if (lines_ == 0 && blank_) {
                text_ += ' ';
            }
        }
        lines_ = 0;
        blank_ = false;
        text_ += character;
    }

    std::string text_;
    int lines_ = 0;
    bool blank_ = false;
};

enum class WhiteSpace : std::uint8_t { Collapse, Keep };

void render(const GumboNode& node, WhiteSpace white_space, TextBuilder& text);

void render_element(const GumboElement& element, WhiteSpace white_space, TextBuilder& text) {
    if (is_one_of(kHidden, element.tag)) {
        return;
    }
    if (element.tag == GUMBO_TAG_BR) {
        text.break_line();
        return;
    }
    const bool is_cell = element.tag == GUMBO_TAG_TD || element.tag == GUMBO_TAG_TH;
    const bool is_block = is_one_of(kBlocks, element.tag);
    if (is_block) {
        text.want_line();
    }
    if (is_cell) {
        text.want_blank();
    }
    const WhiteSpace inner = element.tag == GUMBO_TAG_PRE ? WhiteSpace::Keep : white_space;
    for (const auto* child : std::span(element.children.data, element.children.length)) {
        render(*static_cast<const GumboNode*>(child), inner, text);
    }
    if (is_block) {
        text.want_line();
    }
}

void render(const GumboNode& node, WhiteSpace white_space, TextBuilder& text) {
    if (node.type == GUMBO_NODE_ELEMENT) {
        render_element(node.v.element, white_space, text);
        return;
    }
    const bool is_text = node.type == GUMBO_NODE_TEXT || node.type == GUMBO_NODE_WHITESPACE ||
                         node.type == GUMBO_NODE_CDATA;
    if (is_text && white_space == WhiteSpace::Keep) {
        text.add_as_it_stands(node.v.text.text);
    } else if (is_text) {
        text.add_collapsed(node.v.text.text);
    }
}

// The body element of the tree, absent in a frame set.
const GumboNode* body_of(const GumboNode& root) {
    const GumboVector& children = root.v.element.children;
    for (const auto* child : std::span(children.data, children.length)) {
        const auto* const node = static_cast<const GumboNode*>(child);
        if (node->type == GUMBO_NODE_ELEMENT && node->v.element.tag == GUMBO_TAG_BODY) {
            return node;
        }
    }
    return nullptr;
}

// RFC 3629: the lead byte tells the length; overlong forms and surrogates have a second byte out of
// its range.
std::size_t utf8_length(std::string_view bytes) {
    const auto at = [&](std::size_t index) {
        return index < bytes.size() ? static_cast<unsigned char>(bytes[index]) : 0U;
    };
    const unsigned lead = at(0);
    if (lead < 0x80) {
        return 1;
    }
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    const unsigned lowest = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    const unsigned highest = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    if (lead < 0xC2 || lead > 0xF4 || at(1) < lowest || at(1) > highest) {
        return 0;
    }
    for (std::size_t index = 2; index < length; ++index) {
        if ((at(index) & 0xC0U) != 0x80U) {
            return 0;
        }
    }
    return length;
}

bool is_utf8(std::string_view bytes) {
    while (!bytes.empty()) {
        const std::size_t length = utf8_length(bytes);
        if (length == 0) {
            return false;
        }
        bytes.remove_prefix(length);
    }
    return true;
}

}  // namespace

std::string body_inner_text(std::string_view html, PageCharset charset) {
    const bool in_utf8 = charset == PageCharset::Utf8 || is_utf8(html);
    const std::string_view part = html.substr(0, kLongestPageForText);
    const std::string source = in_utf8 ? std::string(part) : automation::code_page_to_utf8(part);

    const auto destroy = [](GumboOutput* tree) {
        gumbo_destroy_output(&kGumboDefaultOptions, tree);
    };
    const std::unique_ptr<GumboOutput, decltype(destroy)> tree(
        gumbo_parse_with_options(&kGumboDefaultOptions, source.data(), source.size()), destroy);
    const GumboNode* const body = tree ? body_of(*tree->root) : nullptr;
    if (body == nullptr) {
        return "";
    }
    TextBuilder text;
    render(*body, WhiteSpace::Collapse, text);
    return automation::utf8_to_code_page(text.take());
}

}  // namespace platform
