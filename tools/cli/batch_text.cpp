#include "cli/batch_text.h"

#include <algorithm>
#include <cstdio>

#include "cli/report_text.h"

namespace zr::cli {
namespace {

std::string doubtful(const Standing& standing) {
    return standing.doubtful == 0
               ? ""
               : ", " + std::to_string(standing.doubtful) + " without a matched file";
}

}  // namespace

std::string one_line(std::string_view message) {
    std::string line;
    bool broken = false;
    for (const char character : printable_error(message)) {
        if (character == '\n') {
            broken = !line.empty();
            continue;
        }
        line += broken ? " " : "";
        line += character;
        broken = false;
    }
    return line;
}

std::string answered(const Standing& standing) {
    return std::to_string(standing.translated + standing.failed) + " answered";
}

std::string left_in(const Batch& batch, const RunTarget& target) {
    if (target.part() == nullptr) {
        return {};
    }
    return asks_bureau(batch.operation) ? "; the results are in " + target.part()->path()
                                        : "; --resume goes on";
}

std::string summary(const Batch& batch, const Standing& standing, double seconds,
                    const RunTarget& target, int signal) {
    std::string text = signal != 0 ? "interrupted: " : "";
    if (batch.results_only) {
        text += answered(standing);
    } else {
        char figures[64];
        (void)std::snprintf(figures, sizeof figures, " in %.2f s (%.0f a second)", seconds,
                            static_cast<double>(standing.translated + standing.failed) / seconds);
        text += std::to_string(standing.translated) +
                (batch.has_results ? " translated, " : " checked, ") +
                std::to_string(standing.failed) + " failed" + doubtful(standing) + figures;
    }
    if (target.part() != nullptr && target.part()->finished() > 0) {
        text += ", after " + std::to_string(target.part()->finished()) + " done before";
    }
    return "zrcreditbureau: " + text + (signal != 0 ? left_in(batch, target) : "") + ".";
}

void remark(Progress& progress, const std::vector<std::string>& remarks) {
    constexpr std::size_t kMost = 20;
    for (std::size_t at = 0; at < std::min(remarks.size(), kMost); ++at) {
        progress.say("zrcreditbureau: " + one_line(remarks[at]));
    }
    if (remarks.size() > kMost) {
        progress.say("zrcreditbureau: and " + std::to_string(remarks.size() - kMost) + " more.");
    }
}

}  // namespace zr::cli
