// Reading a page as a browser would, as far as tests need it.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zr::page {

inline void replace_all(std::string& text, std::string_view from, std::string_view to) {
    for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
}

/// What stands between the end of `open` and `close` the first time.
inline std::string between(std::string_view text, std::string_view open, std::string_view close) {
    const auto start = text.find(open);
    if (start == std::string_view::npos) return {};
    const auto end = text.find(close, start + open.size());
    return std::string(text.substr(start + open.size(), end - start - open.size()));
}

/// The text without tags and style, entities decoded, with single blanks, between blanks.
inline std::string plain_text(std::string_view html) {
    std::string result = " ";
    const auto body = html.find("<body");
    bool in_tag = false;
    for (const char c : html.substr(body == std::string_view::npos ? 0 : body)) {
        in_tag = c == '<' || (in_tag && c != '>');
        const bool blank = in_tag || c == '>' || c == '\n' || c == '\r' || c == ' ';
        if (!blank || result.back() != ' ') result += blank ? ' ' : c;
    }
    result += ' ';
    for (const auto& [entity, character] :
         {std::pair{"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&amp;", "&"}}) {
        replace_all(result, entity, character);
    }
    return result;
}

/// The elements that are not closed in the order of their opening; "" when all are.
inline std::string unbalanced(std::string_view html) {
    std::vector<std::string> open;
    for (auto at = html.find('<'); at != std::string_view::npos; at = html.find('<', at + 1)) {
        const bool closing = html[at + 1] == '/';
        const auto start = at + 1 + (closing ? 1 : 0);
        const std::string name(html.substr(start, html.find_first_of(" >", start) - start));
        if (name == "meta" || name.starts_with("!")) continue;
        if (!closing) {
            open.push_back(name);
        } else if (open.empty() || open.back() != name) {
            return "</" + name + "> at " + std::to_string(at);
        } else {
            open.pop_back();
        }
    }
    return open.empty() ? "" : "<" + open.back() + ">";
}

struct Heading {
    int level = 0;
    std::string text;
};

inline std::vector<Heading> headings(std::string_view html) {
    std::vector<Heading> result;
    for (auto at = html.find("<h"); at != std::string_view::npos; at = html.find("<h", at + 1)) {
        const int level = html[at + 2] - '0';
        if (level < 1 || level > 6) continue;
        const auto start = html.find('>', at) + 1;
        result.push_back({level, std::string(html.substr(start, html.find("</h", at) - start))});
    }
    return result;
}

}  // namespace zr::page
