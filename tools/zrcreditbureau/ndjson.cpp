#include "zrcreditbureau/ndjson.h"

#include <unistd.h>

#include <exception>
#include <string>

#include "platform/error.h"
#include "zrcreditbureau/failure.h"

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
    } catch (const std::exception& error) {
        outcome.error_message = error_text(error);
    }
    return outcome;
}

void run_ndjson(Performer& performer, const Job& base, Output& output) {
    LineReader lines(STDIN_FILENO, [&] {
        output.flush();
        return true;
    });
    automation::JsonWriter json([&output](std::string_view text) { output.write(text); });
    std::string_view line;
    for (bool first = true; lines.next(line); first = false) {
        if (first && line.starts_with(kByteOrderMark)) {
            line.remove_prefix(kByteOrderMark.size());
        }
        const Outcome outcome = answer(performer, base, line, lines.too_long());
        write_result(json, performer.operation(), outcome);
        output.write(json.view());
        output.write("\n");
        json.clear();
    }
}

}  // namespace zr::cli
