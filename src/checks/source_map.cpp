#include "checks/source_map.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <utility>

namespace zr {
namespace {

constexpr std::string_view kWhiteSpace = " \t\r\n";
constexpr std::string_view kNameEnd = " \t\r\n/>=";

std::string with_attribute(std::string path, std::string_view attribute) {
    return attribute.empty() ? path : path.append("/@").append(attribute);
}

}  // namespace

SourceMap::SourceMap(std::string_view xml) : xml_(xml) {
    elements_.push_back({});
    for (std::size_t at = 0; at < xml.size();) {
        const std::size_t markup = std::min(xml.find('<', at), xml.size());
        note_text(xml.substr(at, markup - at));
        at = markup;
        const std::string_view rest = xml.substr(at);
        if (rest.starts_with("<!--")) {
            at = behind("-->", at + 4);
        } else if (rest.starts_with("<![CDATA[")) {
            const std::size_t end = behind("]]>", at);
            note_text(xml.substr(at + 9, end - at - 12));
            at = end;
        } else if (rest.starts_with("<?")) {
            at = behind("?>", at);
        } else if (rest.starts_with("</")) {
            open_ = elements_[open_].parent;
            at = behind(">", at);
        } else if (rest.starts_with("<!")) {
            at = behind(">", at);
        } else if (!rest.empty()) {
            read_tag(at);
        }
    }
}

std::size_t SourceMap::behind(std::string_view end, std::size_t at) const {
    const std::size_t found = xml_.find(end, at);
    return found == std::string_view::npos ? xml_.size() : found + end.size();
}

void SourceMap::note_text(std::string_view text) {
    if (!elements_[open_].has_text &&
        text.find_first_not_of(kWhiteSpace) != std::string_view::npos) {
        elements_[open_].has_text = true;
    }
}

void SourceMap::read_tag(std::size_t& at) {
    const auto word = [&] {
        const std::size_t end = std::min(xml_.find_first_of(kNameEnd, at), xml_.size());
        const std::string_view name = xml_.substr(at, end - at);
        at = end;
        return name;
    };
    ++at;
    elements_[open_].has_children = true;
    elements_.push_back({word(), open_, static_cast<std::uint32_t>(attributes_.size())});
    for (;;) {
        at = xml_.find_first_not_of(kWhiteSpace, at);
        if (at >= xml_.size()) {
            at = xml_.size();
            return;
        }
        if (xml_[at] == '>') {
            open_ = size() - 1;
            ++at;
            return;
        }
        if (xml_[at] == '/') {
            at = behind(">", at);
            return;
        }
        const std::string_view name = word();
        const std::size_t open = std::min(xml_.find_first_of("\"'", at), xml_.size() - 1);
        at = behind(xml_.substr(open, 1), open + 1);
        const std::string_view value = xml_.substr(open + 1, at - open - 2);
        const bool filled = value.find_first_not_of(kWhiteSpace) != std::string_view::npos;
        attributes_.push_back({name, filled});
    }
}

std::span<const SourceMap::Attribute> SourceMap::attributes(std::uint32_t index) const {
    const std::size_t begin = elements_[index].attributes;
    const std::size_t end =
        index + 1 < size() ? elements_[index + 1].attributes : attributes_.size();
    return std::span(attributes_).subspan(begin, end - begin);
}

std::string SourceMap::path(std::uint32_t index, std::string_view attribute) const {
    std::string path;
    for (; index != 0; index = elements_[index].parent) {
        path.insert(0, elements_[index].name).insert(0, "/");
    }
    return with_attribute(std::move(path), attribute);
}

std::string SourceMap::path_with_positions(std::uint32_t index, std::string_view attribute) const {
    if (numbers_.empty()) {
        std::map<std::pair<std::uint32_t, std::string_view>, std::uint32_t> met;
        for (const Element& element : elements_) {
            numbers_.push_back(++met[{element.parent, element.name}]);
        }
    }
    std::string path;
    for (; index != 0; index = elements_[index].parent) {
        path.insert(0, "[" + std::to_string(numbers_[index]) + "]");
        path.insert(0, elements_[index].name).insert(0, "/");
    }
    return with_attribute(std::move(path), attribute);
}

TextPosition SourceMap::position(std::uint32_t index) const {
    if (line_begins_.empty()) {
        for (std::size_t at = 0; at != 0 || line_begins_.empty(); at = xml_.find('\n', at) + 1) {
            line_begins_.push_back(at);
        }
    }
    const auto tag = static_cast<std::size_t>(elements_[index].name.data() - xml_.data()) - 1;
    const auto next = std::ranges::upper_bound(line_begins_, tag);
    return {static_cast<std::size_t>(next - line_begins_.begin()), tag - *std::prev(next) + 1};
}

}  // namespace zr
