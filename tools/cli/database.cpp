#include "cli/database.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cstring>
#include <filesystem>
#include <map>
#include <memory>
#include <vector>

#include "automation/fields.h"
#include "cli/failure.h"
#include "cli/files.h"
#include "cli/output.h"
#include "cli/sqlite.h"

namespace zr::cli {
namespace {

using automation::JsonValue;
using Kind = JsonValue::Kind;

constexpr std::string_view kMagic = "SQLite format 3";

struct Column {
    std::string_view name;
    const char* type;
};

constexpr Column kResultColumns[] = {{"File", "TEXT"},         {"Result", "INTEGER"},
                                     {"ErrorMessage", "TEXT"}, {"ErrorKind", "TEXT"},
                                     {"ErrorCode", "TEXT"},    {"Warning", "TEXT"}};

bool is_figure(ValueType type) { return type == ValueType::kCount || type == ValueType::kCurrency; }

const char* column_type(ValueType type) {
    return type == ValueType::kCurrency ? "REAL"
           : is_figure(type) || type == ValueType::kInteger || type == ValueType::kBoolean
               ? "INTEGER"
               : "TEXT";
}

/// A table with an insertion that takes the members of JSON objects by their names.
class Table {
  public:
    /// `keys` are the columns before those that are members.
    Table(Database& database, const std::string& name, const std::string& keys, int key_count,
          const std::string& constraint, const std::vector<Column>& columns)
        : insert_(database, create(database, name, keys, key_count, constraint, columns)) {
        for (const Column& column : columns) {
            numbers_.emplace(column.name, ++key_count);
        }
    }

    Statement& row() { return insert_; }
    void bind(const JsonValue& object) {
        for (const auto& [name, value] : object.members()) {
            if (const auto found = numbers_.find(name); found != numbers_.end()) {
                insert_.bind(found->second, value);
            }
        }
    }

  private:
    static std::string create(Database& database, const std::string& name, const std::string& keys,
                              int key_count, const std::string& constraint,
                              const std::vector<Column>& columns) {
        std::string members;
        std::string marks = "?";
        for (std::size_t at = static_cast<std::size_t>(key_count) + columns.size(); at > 1; --at) {
            marks += ",?";
        }
        for (const Column& column : columns) {
            members.append(", ").append(column.name).append(" ").append(column.type);
        }
        database.run("CREATE TABLE " + name + "(" + keys + members + constraint);
        return std::string("INSERT INTO ").append(name).append(" VALUES(").append(marks) + ")";
    }

    Statement insert_;
    std::map<std::string_view, int> numbers_;
};

template <class Record>
std::vector<Column> text_columns(std::span<const Property<Record>> fields) {
    std::vector<Column> columns;
    for (const Property<Record>& field : fields) {
        columns.push_back({field.name, "TEXT"});
    }
    return columns;
}

std::vector<Column> reply_columns(const automation::ResponseFields& fields) {
    std::vector<Column> columns(std::begin(kResultColumns), std::end(kResultColumns));
    for (const Property<Response>* const property : fields.properties) {
        columns.push_back({property->name, column_type(property->type)});
    }
    return columns;
}

/// The tables, filled from one result after another.
class Tables {
  public:
    Tables(Database& database, const automation::ResponseFields& fields)
        : database_(database),
          replies_(database, "replies", "Id INTEGER PRIMARY KEY", 1, ")", reply_columns(fields)),
          figures_(database, "statistics", "Reply INTEGER REFERENCES replies", 1,
                   ", PRIMARY KEY(Reply, Name)) WITHOUT ROWID",
                   {{"Name", "TEXT"}, {"Value", "NUMERIC"}}),
          lines_(database, "lines", kKeys, 2, kEnd,
                 text_columns(automation::response_element_properties())),
          companies_(database, "companies", kKeys, 2, kEnd,
                     text_columns(automation::company_selection_properties())) {
        for (const Property<Response>* const property : fields.properties) {
            if (is_figure(property->type)) {
                figure_names_.insert(property->name);
            }
        }
    }

    void add(const JsonValue& result) {
        ++id_;
        replies_.row().bind(1, id_);
        replies_.bind(result);
        const JsonValue* const response = result.find("Response");
        if (response == nullptr) {
            replies_.row().step();
            return;
        }
        replies_.bind(*response);
        replies_.row().step();
        for (const auto& [name, value] : response->members()) {
            if (name == "ResponseElements") {
                add_items(lines_, value);
            } else if (name == "CompanySelections") {
                add_items(companies_, value);
            } else if (figure_names_.contains(name) &&
                       value.text().find_first_not_of("0.") != std::string::npos) {
                figures_.row().bind(1, id_);
                figures_.row().bind(2, std::string_view(name));
                figures_.row().bind(3, value);
                figures_.row().step();
            }
        }
    }

    void finish() {
        database_.run(
            "CREATE INDEX replies_by_file ON replies(File);"
            "CREATE INDEX statistics_by_name ON statistics(Name, Value);"
            "CREATE INDEX lines_by_label ON lines(ResponseGroup, ResponseName);COMMIT");
    }

  private:
    static constexpr const char* kKeys = "Reply INTEGER REFERENCES replies, Number INTEGER";
    static constexpr const char* kEnd = ", PRIMARY KEY(Reply, Number)) WITHOUT ROWID";

    void add_items(Table& table, const JsonValue& items) {
        std::int64_t number = 0;
        for (const JsonValue& item : items.items()) {
            table.row().bind(1, id_);
            table.row().bind(2, ++number);
            table.bind(item);
            table.row().step();
        }
    }

    Database& database_;
    Table replies_;
    Table figures_;
    Table lines_;
    Table companies_;
    std::set<std::string_view> figure_names_;
    std::int64_t id_ = 0;
};

/// A name that nothing has when this is gone.
struct Removed {
    const std::string& name;
    ~Removed() { (void)::unlink(name.c_str()); }
};

/// False where `goes_on` ended it.
bool fill(const std::string& results_path, const std::string& path,
          const automation::ResponseFields& fields, const GoesOn& goes_on) {
    Database database(path, SQLITE_OPEN_READWRITE);
    database.run("PRAGMA journal_mode=OFF;PRAGMA synchronous=OFF;BEGIN");
    Tables tables(database, fields);
    const Descriptor file(open_file(results_path));
    struct stat status {};
    (void)::fstat(file.get(), &status);
    LineReader lines(file.get());
    std::uint64_t results = 0;
    std::uint64_t bytes = 0;
    for (std::string_view line; lines.next(line);) {
        tables.add(automation::parse_json(line));
        bytes += line.size() + 1;
        if (!goes_on(++results, static_cast<double>(bytes) / static_cast<double>(status.st_size))) {
            return false;
        }
    }
    tables.finish();
    return true;
}

/// A pipe is none, and nothing of it is read.
bool is_database(int file) {
    char head[kMagic.size()];
    return ::pread(file, head, sizeof head, 0) == static_cast<ssize_t>(sizeof head) &&
           std::string_view(head, sizeof head) == kMagic;
}

}  // namespace

bool write_database(const std::string& results_path, const std::string& path,
                    const automation::ResponseFields& fields, const GoesOn& goes_on) {
    const std::string temporary = results_path + ".db";
    (void)::unlink(temporary.c_str());  // of a run that was killed
    const int descriptor =
        ::open(temporary.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, kPrivate);
    if (descriptor < 0) {
        throw OutputError("Cannot write " + temporary + ": " + std::strerror(errno) + ".");
    }
    struct stat before {};
    if (::stat(path.c_str(), &before) == 0) {
        (void)::fchmod(descriptor, before.st_mode & 07777U);
    }
    Output output(path, temporary, descriptor);
    const Removed removed{temporary};
    if (!fill(results_path, temporary, fields, goes_on)) {
        return false;
    }
    (void)::lseek(descriptor, 0, SEEK_END);  // what is before is the database
    output.finish();
    return true;
}

std::vector<std::string> outputs_in(const std::vector<std::string>& names) {
    std::vector<std::string> outputs;
    for (const std::string& name : names) {
        std::error_code error;
        if (!std::filesystem::is_directory(name, error)) {
            outputs.push_back(name);
            continue;
        }
        for (const auto& entry : std::filesystem::directory_iterator(name, error)) {
            const std::string file = entry.path().filename().string();
            if (entry.is_regular_file() && !file.starts_with('.') &&
                file.find(".part") == std::string::npos) {
                outputs.push_back(entry.path().string());
            }
        }
        if (error) {
            throw MisuseError("Cannot read " + name + ": " + error.message() + ".");
        }
    }
    return outputs;
}

std::set<std::string> earlier_files(const std::string& path, bool failed_only) {
    std::set<std::string> files;
    const Descriptor input(open_file(path));
    if (is_database(input.get())) {
        const Database database(path, SQLITE_OPEN_READONLY);
        Statement rows(database, std::string("SELECT File FROM replies") +
                                     (failed_only ? " WHERE NOT Result" : ""));
        while (rows.step()) {
            files.insert(rows.text());
        }
        return files;
    }
    LineReader lines(input.get());
    for (std::string_view line; lines.next(line);) {
        if (files.empty() && line.starts_with("File,")) {
            throw MisuseError(path + " is csv: name an output of json or sqlite.");
        }
        if (!line.starts_with('{')) {
            files.emplace(line.substr(0, line.find('\r')));
            continue;
        }
        const JsonValue result = automation::parse_json(line);
        const JsonValue* const file = result.find("File");
        const JsonValue* const done = result.find("Result");
        if (file != nullptr && done != nullptr && !(failed_only && done->boolean())) {
            files.insert(file->text());
        }
    }
    files.erase("");
    return files;
}

}  // namespace zr::cli
