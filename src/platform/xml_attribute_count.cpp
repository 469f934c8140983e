#include "platform/xml_attribute_count.h"

#include <algorithm>

namespace zr {

namespace {

constexpr std::size_t kNowhere = std::string_view::npos;
constexpr std::size_t kShortestAttribute = 5;  // ' a=""'

std::size_t past(std::string_view text, std::string_view token, std::size_t from) {
    const std::size_t found = text.find(token, from);
    return found == kNowhere ? text.size() : found + token.size();
}

// What one walk over a tag or a declaration finds.
struct Tag {
    std::size_t end = 0;
    std::size_t equal_signs = 0;  // outside quotes
    bool broken = false;          // "<" inside it: a fault at which parsing ends
};

Tag read_tag(std::string_view text, std::size_t begin, bool is_declaration) {
    Tag tag;
    for (std::size_t at = begin + 1; at < text.size(); ++at) {
        const char c = text[at];
        if (c == '"' || c == '\'') {
            const std::size_t close = text.find(c, at + 1);
            if (close == kNowhere) break;
            tag.broken = !is_declaration && text.substr(at, close - at).find('<') != kNowhere;
            at = close;
        } else if (c == '=') {
            ++tag.equal_signs;
        } else if (c == '>' || c == '<' || (c == '[' && is_declaration)) {
            tag.broken = c == '<' && !is_declaration;
            tag.end = c == '<' ? at : at + 1;
            return tag;
        }
        if (tag.broken) return tag;
    }
    tag.end = text.size();
    return tag;
}

// Tag by tag, past what only looks like one.
bool count_exactly(std::string_view text, std::size_t limit) {
    std::size_t at = 0;
    while ((at = text.find('<', at)) != kNowhere) {
        const std::string_view rest = text.substr(at);
        if (rest.starts_with("<!--")) {
            at = past(text, "-->", at + 4);
        } else if (rest.starts_with("<![CDATA[")) {
            at = past(text, "]]>", at);
        } else if (rest.starts_with("<?")) {
            at = past(text, "?>", at);
        } else {
            const bool is_declaration = rest.starts_with("<!");
            const Tag tag = read_tag(text, at, is_declaration);
            if (!is_declaration && tag.equal_signs > limit) return true;
            if (tag.broken) return false;
            at = tag.end;
        }
    }
    return false;
}

}  // namespace

bool has_too_many_attributes(std::string_view text, std::uint32_t limit) {
    // A tag has no "<" inside it. One with too many attributes therefore shows as a "<" that no
    // other follows within the least space that they take: so it is enough to go from one "<" to
    // the last one within that space, and to look at what lies behind a wider gap.
    const std::size_t stride = kShortestAttribute * (std::size_t{limit} + 1);
    std::size_t at = 0;
    while (text.size() - at > stride) {
        const std::size_t last = text.substr(0, at + stride + 1).rfind('<');
        if (last != kNowhere && last > at) {
            at = last;
            continue;
        }
        const std::size_t next = std::min(text.find('<', at + stride), text.size());
        const std::string_view gap = text.substr(at, next - at);
        if (gap.front() == '<' && std::count(gap.begin(), gap.end(), '=') > limit) {
            return count_exactly(text, limit);
        }
        at = next;
    }
    return false;
}

}  // namespace zr
