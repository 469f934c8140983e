// What the options of a command say, before the files that they name are read.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "automation/json.h"
#include "cli/commands.h"

namespace zr::cli {

/// The invocation as far as options alone make it, and what is put together from the others.
struct Given : Invocation {
    std::string country;
    bool production = false;
    bool strict = false;
    bool no_guard = false;
    bool verbose = false;
    std::string date_format;
    std::string currency_format;
    std::string currency_format_symbol;
    std::string settings_file;
    std::string request_file;
    std::vector<std::string> reply_files;
    std::string response_date;
    std::string operation;
    std::vector<std::string> product_options;
    std::string format_name;
    std::string field_names;
    std::string input;
    std::string files_from;
    std::vector<std::string> only_new;
    bool resume = false;
    bool quiet = false;
    std::optional<std::string> jobs;
    std::optional<std::string> shard;
    automation::JsonValue request = automation::JsonValue::object();
    automation::JsonValue settings = automation::JsonValue::object();
};

/// Completes the invocation with what the files and the options say; later ones win. Throws
/// MisuseError.
Invocation complete(Given& given);

}  // namespace zr::cli
