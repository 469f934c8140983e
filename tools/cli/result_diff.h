// What changed between two translations of one archive.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/json.h"
#include "cli/output.h"

namespace zr::cli {

/// A field or a line of a reply that is not what it was.
struct Change {
    std::vector<std::string> label;  ///< a field's name, or a line's group, sub-group and name
    std::optional<std::string> before;
    std::optional<std::string> after;

    bool is_line() const { return label.size() > 1; }
};

/// What two results of one reply have different, fields before lines. Lines are the same where
/// group, sub-group and name are; of several, the first is the first.
std::vector<Change> changes_between(const automation::JsonValue& before,
                                    const automation::JsonValue& after);

/// Compares files of results, one a line, and writes what changed by reply, then in total.
class ResultDiff {
  public:
    /// As one JSON object, or to read; `totals_only` leaves the replies out.
    ResultDiff(Output& output, bool as_json, bool totals_only);

    /// Results of files are matched by the file's name, others by their line. Of the newer file a
    /// few bytes a result are held, of the older one nothing. True when anything is different.
    /// Throws MisuseError.
    bool compare(const std::string& before, const std::string& after);

  private:
    struct Total {
        std::uint64_t changed = 0;
        std::uint64_t added = 0;
        std::uint64_t removed = 0;
    };

    void compare_results(const std::string& name, const automation::JsonValue& before,
                         const automation::JsonValue& after);
    void tell(const std::string& name, std::string_view state, const std::vector<Change>& changes);
    void tell_as_text(const std::string& name, std::string_view state,
                      const std::vector<Change>& changes);
    void tell_as_json(const std::string& name, std::string_view state,
                      const std::vector<Change>& changes);
    void write_totals();
    void write_json_totals();

    Output& output_;
    bool as_json_;
    bool totals_only_;
    automation::JsonWriter json_;
    std::map<std::string, Total> totals_;  ///< by label
    std::uint64_t same_ = 0;
    std::uint64_t different_ = 0;
    std::uint64_t only_before_ = 0;
    std::uint64_t only_after_ = 0;
};

}  // namespace zr::cli
