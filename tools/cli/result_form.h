// What a result holds, and its two forms for programs: JSON and rows of comma-separated values.
#pragma once

#include <string>
#include <string_view>

#include "automation/json_form.h"
#include "cli/operation.h"

namespace zr::cli {

/// The fields that "summary", "lines" or names joined by commas ask for; all for "". Throws
/// MisuseError.
automation::ResponseFields parse_fields(const std::string& text);

/// Writes the outcome as the JSON result of a job, headed by the name of the reply's file when
/// there is one.
void write_result(automation::JsonWriter& json, Operation operation, const Outcome& outcome,
                  const automation::ResponseFields& fields, std::string_view file = {});

/// Outcomes as rows by RFC 4180: one of the summary fields each or, where the report lines are
/// asked for, one for each line. The first column tells the source.
class CsvForm {
  public:
    /// `source` heads the first column: "File" or "Line".
    CsvForm(automation::ResponseFields fields, std::string_view source);

    /// The names of the columns.
    std::string header() const;
    /// The rows of an outcome.
    void append(std::string& rows, const Outcome& outcome, std::string_view source) const;

  private:
    automation::ResponseFields fields_;
    std::string source_;
};

}  // namespace zr::cli
