#include "cli/ndjson.h"

#include <exception>
#include <string>

#include "zrcreditbureau/error.h"

namespace zr::cli {
namespace {

Outcome perform_line(Performer& performer, Job job, std::string_view line) {
    if (line.find_first_not_of(" \t\r") == std::string_view::npos) {
        throw automation::JsonError("The line is empty.");
    }
    read_job(automation::parse_json(line), job);
    return performer.perform(job);
}

}  // namespace

Outcome answer(Performer& performer, const Job& base, std::string_view line, bool too_long) {
    Outcome outcome;
    try {
        if (too_long) {
            throw automation::JsonError("The line is longer than 256 MiB.");
        }
        return perform_line(performer, base, line);
    } catch (const automation::JsonError& error) {
        outcome.error_message = error.what();
        outcome.failure = misuse("job");
    } catch (const std::exception& error) {
        outcome.error_message = error_text(error);
        outcome.failure = current_failure();
    }
    return outcome;
}

}  // namespace zr::cli
