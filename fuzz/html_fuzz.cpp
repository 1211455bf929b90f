// SPDX-License-Identifier: MIT
// Any bytes as a report in HTML: every tag is one of the writer's own and is closed, everything else is
// escaped, and each table has the report's texts.

#include "fuzz/fuzz_report.h"
#include "fuzz/require.h"
#include "reports/export/export_html.h"
#include "values/code_page.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace {

using namespace zorvane;
using fuzz::require;
using fuzz::requireSame;

/// What stands between two marks; the second is passed over.
std::string_view takeTo(std::string_view& rest, std::string_view mark) {
    const std::size_t end = rest.find(mark);
    require(end != std::string_view::npos, "what is begun is ended");
    const std::string_view taken = rest.substr(0, end);
    rest.remove_prefix(end + mark.size());
    return taken;
}

/// Reads a page strictly: no tag but those that the writer knows, no character that would need escaping.
class Html_Reader {
  public:
    explicit Html_Reader(std::string_view page) : rest_(page) {}

    /// The texts of all cells of all tables, in UTF-8.
    std::vector<std::string> cells() && {
        static_cast<void>(takeTo(rest_, "<title>"));
        static_cast<void>(unescaped(takeTo(rest_, "</title>\n<style>")));
        static_cast<void>(takeTo(rest_, "</style>\n</head>\n"));
        while (!rest_.empty()) {
            text_ += unescaped(rest_.substr(0, rest_.find('<')));
            rest_.remove_prefix(std::min(rest_.find('<'), rest_.size()));
            if (!rest_.empty()) takeTag();
        }
        require(open_.empty() && text_ == "\n", "every tag is closed");
        return std::move(cells_);
    }

  private:
    void takeTag() {
        rest_.remove_prefix(1);
        std::string_view inside = takeTo(rest_, ">");
        const bool ends = inside.starts_with('/');
        if (ends) inside.remove_prefix(1);
        const std::string name(inside.substr(0, inside.find(' ')));
        if (ends) {
            require(inside == name && !open_.empty() && open_.back() == name, "tags are closed in order");
            open_.pop_back();
            if (name == "td" || name == "th") cells_.push_back(text_);
        } else {
            begin(name, inside.substr(name.size()));
        }
        text_.clear();
    }

    void begin(const std::string& name, std::string_view attributes) {
        static constexpr std::array names = {"body",  "header", "footer", "p", "span",
                                             "table", "tr",     "th",     "td"};
        require(std::find(names.begin(), names.end(), name) != names.end(), "a tag is the writer's own");
        const bool plain = std::all_of(attributes.begin(), attributes.end(), [](char character) {
            return std::string_view(" =\"#:;-").find(character) != std::string_view::npos ||
                   (character >= 'a' && character <= 'z') || (character >= '0' && character <= '9');
        });
        require(plain && std::count(attributes.begin(), attributes.end(), '"') % 2 == 0,
                "attributes hold nothing of the data");
        open_.push_back(name);
    }

    static std::string unescaped(std::string_view text) {
        static constexpr std::array<std::pair<std::string_view, char>, 4> codes = {
            {{"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}}};
        std::string plain;
        while (!text.empty()) {
            if (text.front() != '&') {
                const auto byte = static_cast<unsigned char>(text.front());
                require(text.front() != '>' && text.front() != '<', "< and > are escaped");
                require(byte >= 0x20 || byte == '\t' || byte == '\n', "no control character is left");
                plain += text.front();
                text.remove_prefix(1);
                continue;
            }
            const auto* const code = std::find_if(
                codes.begin(), codes.end(), [&](const auto& each) { return text.starts_with(each.first); });
            require(code != codes.end(), "& is escaped");
            plain += code->second;
            text.remove_prefix(code->first.size());
        }
        return plain;
    }

    std::string_view rest_;
    std::vector<std::string> open_{"html"};
    std::string text_;
    std::vector<std::string> cells_;
};

/// Control characters have no place in HTML, nor have the bytes that stand for no character.
std::string shown(std::string_view text) {
    std::string utf8;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        const bool none = std::string_view("\x7F\x81\x8D\x8F\x90\x9D").find(character) != std::string::npos ||
                          (byte < 0x20 && character != '\t');
        utf8 += none ? "\xEF\xBF\xBD" : toUtf8(std::string(1, character));
    }
    return utf8;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Report_Content content = fuzz::reportFrom(std::string(data, data + size));
    const std::string page = exportHtml(content);
    const std::vector<std::string> cells = Html_Reader(page).cells();
    std::size_t place = 0;
    for (const Content_Row& row : content.rows) {
        if (row.kind != Content_Kind::Heading && row.kind != Content_Kind::Row) continue;
        for (const Content_Cell& cell : row.cells) {
            require(place < cells.size(), "every text of a table is there");
            requireSame(cells[place++], shown(cell.text), "a cell has its text");
        }
    }
    require(place == cells.size(), "no other texts are there");
    return 0;
}
