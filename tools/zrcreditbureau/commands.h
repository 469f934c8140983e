// The commands of the program.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "automation/json_form.h"
#include "zrcreditbureau/batch.h"
#include "zrcreditbureau/job.h"
#include "zrcreditbureau/operation.h"

namespace zr::cli {

enum class Format { kText, kJson, kHtml, kCsv, kReply };

/// A form of the outcome and the file that it goes to.
struct Document {
    Format format;
    std::string path;  ///< "" for standard output
};

struct Command {
    std::string_view name;
    std::string_view summary;
    std::string_view example;
    /// None for the commands that only show what the component knows.
    std::optional<Operation> operation;
    /// Which request properties are options: all of them, or only those that name the service.
    enum class Fields { kNone, kService, kServiceAndProduct, kAll } fields;
    Format format;  ///< unless another is asked for
    bool html;      ///< whether html is among the formats
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
    std::vector<Document> beside;  ///< other forms in files of their own
    automation::ResponseFields fields = automation::ResponseFields::all();
    std::vector<std::string> inputs;  ///< files that are read
};

/// Runs a command; the exit status. Throws MisuseError, OutputError and automation::JsonError.
int run_command(const Invocation& invocation);

}  // namespace zr::cli
