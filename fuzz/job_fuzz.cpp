// Reads whatever it is given as a job line and translates or composes what it asks for: an answer
// in one line of JSON, whatever the line was.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "automation/json.h"
#include "cli/answer.h"
#include "cli/operation.h"
#include "cli/result_form.h"

namespace {

using zr::cli::Operation;

void answer(zr::cli::Performer& performer, std::string_view line) {
    const zr::cli::Outcome outcome = zr::cli::answer_line(performer, {}, line, false);
    if (!outcome.result && outcome.error_message.empty()) {
        std::abort();  // a failure has its reason
    }
    std::string written;
    zr::automation::JsonWriter json([&written](std::string_view text) { written += text; });
    zr::cli::write_result(json, performer.operation(), outcome,
                          zr::automation::ResponseFields::all());
    written += json.view();
    if (written.find('\n') != std::string::npos) {
        std::abort();
    }
    (void)zr::automation::parse_json(written);  // throws where it is none
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view line(reinterpret_cast<const char*>(data), size);
    // A line never has a line break, and a style sheet would be a file of this machine.
    if (line.find('\n') != std::string_view::npos || line.find("XSLT") != std::string_view::npos ||
        line.find("\\u") != std::string_view::npos) {
        return 0;
    }
    static zr::cli::Performer translating(Operation::kTranslate);
    static zr::cli::Performer composing(Operation::kCompose);
    answer(translating, line);
    answer(composing, line);
    return 0;
}
