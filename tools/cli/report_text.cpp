#include "cli/report_text.h"

#include <algorithm>

#include "automation/fields.h"
#include "cli/names.h"
#include "cli/report_headline.h"
#include "values/text.h"

namespace zr::cli {
namespace {

/// A longer label does not push all values of its block aside.
constexpr std::size_t kWidestLabel = 36;
constexpr std::size_t kIndent = 2;

void append_heading(std::string& target, std::size_t indent, std::string_view heading,
                    std::string_view mark = {}) {
    if (heading.empty()) {
        return;
    }
    target.append(indent, ' ').append(printable(heading)).append(mark) += '\n';
}

/// The report lines, whose runs of one group and one sub-group are blocks under headings.
void append_lines(std::string& target, const Response& response) {
    const ResponseElements& elements = response.ResponseElements();
    const OpenRecords open(response);
    AlignedLines block(2 * kIndent);
    const ResponseElement* last = nullptr;
    for (const ResponseElement& element : elements) {
        const bool new_group = last == nullptr || last->ResponseGroup() != element.ResponseGroup();
        if (new_group || last->ResponseSubGroup() != element.ResponseSubGroup()) {
            block.append_to(target);
            if (new_group) {
                target.append(target.empty() ? 0 : 1, '\n');
                append_heading(target, 0, element.ResponseGroup());
            }
            append_heading(target, kIndent, element.ResponseSubGroup(),
                           open.mark(element.ResponseGroup(), element.ResponseSubGroup()));
        }
        block.add(element.ResponseName(), element.ResponseDescription());
        last = &element;
    }
    block.append_to(target);
}

void append_selections(std::string& target, const CompanySelections& selections) {
    if (selections.Count() == 0) {
        return;
    }
    target.append(target.empty() ? 0 : 1, '\n');
    append_heading(target, 0, "Companies found");
    std::int32_t number = 0;
    for (const CompanySelection& selection : selections) {
        append_heading(target, kIndent, std::to_string(++number));
        AlignedLines block(2 * kIndent);
        for (const auto& field : automation::company_selection_properties()) {
            const Value value = field.read(selection);
            if (!text_of(value).empty()) {
                block.add(label(field.name), text_of(value));
            }
        }
        block.append_to(target);
    }
}

}  // namespace

std::string printable(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    const std::string valid = text::to_valid_utf8(text);
    for (std::size_t position = 0; position < valid.size();) {
        const char32_t code = text::next_code_point(valid, position);
        if (code == U'\r') {
            if (position < valid.size() && valid[position] == '\n') {
                ++position;
            }
            result += '\n';
        } else if (code == U'\n' || code == U'\t') {
            result += static_cast<char>(code);
        } else if (code < 0x20 || (code >= 0x7F && code < 0xA0)) {
            result += '?';
        } else {
            text::append_code_point(result, code);
        }
    }
    return result;
}

std::string printable_error(std::string_view message) {
    constexpr std::string_view kSource = "\r\nSource\t: ";
    constexpr std::string_view kPosition = "\r\nPosition\t: ";
    const std::size_t start = message.find(kSource);
    if (start == std::string_view::npos) {
        return printable(message);
    }
    const std::size_t end = message.rfind(kPosition);
    std::string rest(message.substr(0, start));
    if (end != std::string_view::npos && end > start) {
        rest += message.substr(end);
    }
    return printable(rest);
}

void AlignedLines::add(std::string_view label, std::string_view value) {
    lines_.push_back({printable(label), printable(value)});
}

void AlignedLines::append_to(std::string& target) {
    std::size_t width = 0;
    for (const Line& line : lines_) {
        width = std::max(width, std::min(text::length(line.label), kWidestLabel));
    }
    const std::size_t column = indent_ + width + kIndent;
    for (const Line& line : lines_) {
        target.append(indent_, ' ').append(line.label);
        std::size_t at = indent_ + text::length(line.label);
        for (std::string_view rest = line.value; !rest.empty();) {
            const std::string_view part = rest.substr(0, rest.find('\n'));
            // A label too long for its column has its value on a line of its own.
            if (at + kIndent > column) {
                target += '\n';
                at = 0;
            }
            target.append(part.empty() ? 0 : column - at, ' ').append(part);
            at = column;  // whatever follows starts a line
            rest.remove_prefix(std::min(part.size() + 1, rest.size()));
        }
        target += '\n';
    }
    lines_.clear();
}

std::string report_text(const Response& response, std::string_view nothing) {
    std::string text = printable(report_headline(response));
    if (!response.ResponseMessage().empty()) {
        text += printable(response.ResponseMessage()) + "\n";
    }
    append_lines(text, response);
    append_selections(text, response.CompanySelections());
    return text.empty() ? std::string(nothing) : text;
}

}  // namespace zr::cli
