// What the checks of replies found, gathered over all of them.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "automation/json.h"
#include "checks/reply_check.h"

namespace zr::cli {

/// Findings by kind, path and what is wrong, with how many replies have them and how often.
class CheckTable {
  public:
    /// Passes over the findings of an earlier check's JSON document. Throws MisuseError.
    void set_known(const std::string& path);

    /// Adds those of a reply.
    void add(const std::vector<Finding>& findings, std::string_view source);
    /// Likewise those that could not be translated.
    void add_failed(std::uint64_t replies) { failed_ += replies; }

    /// Whether there is anything to tell.
    bool empty() const { return rows_.empty(); }

    /// The findings, those of most replies first, as tables to read.
    std::string text() const;
    void write(automation::JsonWriter& json) const;

  private:
    using Key = std::tuple<Finding::Kind, std::string, std::string>;
    struct Row {
        std::uint64_t replies = 0;
        std::uint64_t times = 0;
        std::string source;  ///< the first reply that has it
        std::size_t line = 0;
        std::string example;
    };
    static std::string place_of(const Row& row);
    std::vector<const std::pair<const Key, Row>*> rows_of(Finding::Kind kind) const;

    std::map<Key, Row> rows_;
    std::set<Key> known_;
    std::uint64_t replies_ = 0;
    std::uint64_t failed_ = 0;
    std::uint64_t passed_over_ = 0;  ///< findings that are known
};

}  // namespace zr::cli
