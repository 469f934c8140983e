// A response as a report to read.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "zrcreditbureau/response.h"

namespace zr::cli {

/// The report's headline, the response's message, report lines and candidates: groups and
/// sub-groups as headings, those of open records marked, values aligned behind their labels.
/// `nothing` stands for a response that has none of them.
std::string report_text(const Response& response, std::string_view nothing);

/// Lines of a label and a value, which may itself have several lines, aligned.
class AlignedLines {
  public:
    explicit AlignedLines(std::size_t indent) : indent_(indent) {}
    void add(std::string_view label, std::string_view value);
    /// Appends the lines added and forgets them.
    void append_to(std::string& target);

  private:
    struct Line {
        std::string label;
        std::string value;
    };
    std::size_t indent_;
    std::vector<Line> lines_;
};

/// Text that does nothing to a terminal: line breaks as line feeds, other control characters as
/// "?".
std::string printable(std::string_view text);

/// An error message as standard error shows it: printable, and without the line of the reply that
/// is wrong, which may tell of a person and belongs in no log. Results have it whole.
std::string printable_error(std::string_view message);

}  // namespace zr::cli
