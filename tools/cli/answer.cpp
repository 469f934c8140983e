#include "cli/answer.h"

#include <exception>

#include "cli/failure.h"
#include "cli/files.h"
#include "zrcreditbureau/error.h"

namespace zr::cli {
namespace {

using automation::JsonError;

/// What `perform` answers, or why it throws.
template <class Perform>
Outcome outcome_of(Perform perform) {
    const auto failed = [](std::string message, Failure failure) {
        return Outcome{.error_message = std::move(message), .failure = std::move(failure)};
    };
    try {
        return perform();
    } catch (const MisuseError& error) {
        return failed(error.what(), misuse("file"));
    } catch (const JsonError& error) {
        return failed(error.what(), misuse("job"));
    } catch (const std::exception& error) {
        return failed(error_text(error), current_failure());
    }
}

}  // namespace

Outcome answer_line(Performer& performer, const Job& base, std::string_view line, bool too_long) {
    return outcome_of([&] {
        if (too_long) {
            throw JsonError("The line is longer than 256 MiB.");
        }
        if (line.find_first_not_of(" \t\r") == std::string_view::npos) {
            throw JsonError("The line is empty.");
        }
        Job job = base;
        read_job(automation::parse_json(line), job);
        return performer.perform(job);
    });
}

Outcome answer_file(Performer& performer, const Job& base, const std::string& path) {
    return outcome_of([&] {
        Job job = base;
        job.response_xml = read_text_file(path, job.encoding);
        return performer.perform(job);
    });
}

}  // namespace zr::cli
