// Results in a file, one a line, found by their names.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "automation/json.h"
#include "cli/files.h"

namespace zr::cli {

/// The result that a line is. Throws MisuseError where it is none.
automation::JsonValue parse_result(std::string_view line, const std::string& path,
                                   std::uint64_t number);

/// What a result is matched by: the file that heads it, or its line. Throws as `parse_result`.
std::string name_of(std::string_view line, const std::string& path, std::uint64_t number);

/// Throws MisuseError where the line just read was.
void refuse_too_long(const LineReader& lines, const std::string& path);

/// Where the results of a file are, by their names. What is no file (a pipe) is kept in one without
/// a name: results are read at any place.
class ResultIndex {
  public:
    /// Throws MisuseError.
    explicit ResultIndex(const std::string& path);

    /// The first result with this name that was not taken yet; false when there is none.
    bool take(const std::string& name, std::string& line);

    /// The line of the result taken last.
    std::uint64_t number_of_last() const { return last_; }

    /// The names of those that nobody took, in the order of the file.
    std::vector<std::string> left() const;

  private:
    struct Place {
        std::size_t hash;
        std::uint64_t number;  ///< 1-based
        std::uint64_t offset;
        std::uint32_t size;
    };

    void read(const Place& place, std::string& line) const;

    std::string path_;
    Descriptor file_;
    std::vector<Place> places_;
    std::vector<bool> seen_;
    std::uint64_t last_ = 0;
};

}  // namespace zr::cli
