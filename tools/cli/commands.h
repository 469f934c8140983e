// The commands of the program.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "automation/json_form.h"
#include "cli/batch.h"
#include "cli/job.h"
#include "cli/operation.h"

namespace zr::cli {

enum class Format { kText, kJson, kHtml, kCsv, kSqlite, kReply };

/// A form of the outcome and the file that it goes to.
struct Document {
    Format format;
    std::string path;  ///< "" for standard output
};

/// Sets of commands; each is one of its own.
enum CommandSet : std::uint32_t {
    kNoCommand = 0,
    kCatalogue = 1U << 0,
    kCompose = 1U << 1,
    kEnquire = 1U << 2,
    kList = 1U << 3,
    kVerify = 1U << 4,
    kLayout = 1U << 5,
    kTranslate = 1U << 6,
    kCompletion = 1U << 7,
    kManual = 1U << 8,
    kSchema = 1U << 9,
    kCheck = 1U << 10,
    kDiff = 1U << 11,
    kDoctor = 1U << 12,
};
constexpr CommandSet operator|(CommandSet one, CommandSet other) {
    return CommandSet(std::uint32_t{one} | std::uint32_t{other});
}

struct Invocation;

struct Command {
    CommandSet id;
    std::string_view name;
    std::string_view summary;
    std::string_view example;
    /// None for the commands that only show what is known.
    std::optional<Operation> operation;
    int (*run)(const Invocation& invocation);
};

std::span<const Command> commands();

/// What the command line, the files that it names and the environment ask for.
struct Invocation {
    const Command* command = nullptr;
    Job job;
    bool ndjson = false;
    bool many = false;  ///< as `batch` says
    Batch batch;
    Format format = Format::kText;
    std::string output_path;
    std::string check_path;        ///< where the check of what is translated goes; "" for none
    std::string known_path;        ///< findings to pass over
    bool explain = false;          ///< where everything comes from is wanted too
    bool totals_only = false;      ///< of a comparison
    std::string subject;           ///< what is to be printed, of commands that print one of several
    std::vector<Document> beside;  ///< other forms in files of their own
    automation::ResponseFields fields = automation::ResponseFields::all();
    std::vector<std::string> inputs;  ///< files that are read
};

/// Runs a command; the exit status. Throws MisuseError, OutputError and automation::JsonError.
int run_command(const Invocation& invocation);

}  // namespace zr::cli
