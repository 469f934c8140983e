#include "cli/database.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cstring>
#include <map>
#include <memory>
#include <vector>

#include "automation/fields.h"
#include "cli/files.h"
#include "cli/output.h"

namespace zr::cli {
namespace {

using automation::JsonValue;
using Kind = JsonValue::Kind;

constexpr std::string_view kMagic = "SQLite format 3";

class Database {
  public:
    explicit Database(const std::string& path, int flags) : path_(path) {
        sqlite3* database = nullptr;
        const int code = sqlite3_open_v2(path.c_str(), &database, flags, nullptr);
        database_.reset(database);
        require(code == SQLITE_OK);
    }

    void run(const std::string& sql) {
        require(sqlite3_exec(get(), sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK);
    }

    void require(bool done) const {
        if (!done) {
            throw OutputError("Cannot use the database " + path_ + ": " + sqlite3_errmsg(get()) +
                              ".");
        }
    }

    sqlite3* get() const { return database_.get(); }

  private:
    struct Close {
        void operator()(sqlite3* database) const { (void)sqlite3_close(database); }
    };
    std::string path_;
    std::unique_ptr<sqlite3, Close> database_;
};

class Statement {
  public:
    Statement(const Database& database, const std::string& sql) : database_(database) {
        sqlite3_stmt* statement = nullptr;
        const int code = sqlite3_prepare_v2(database.get(), sql.c_str(), -1, &statement, nullptr);
        statement_.reset(statement);
        database.require(code == SQLITE_OK);
    }

    /// Binds a value to a column, counted from 1. Texts must live until the row is done.
    void bind(int column, const JsonValue& value) {
        sqlite3_stmt* const statement = statement_.get();
        const std::string& text = value.text();
        if (value.kind() == Kind::kBoolean) {
            (void)sqlite3_bind_int(statement, column, value.boolean() ? 1 : 0);
        } else if (value.kind() == Kind::kText) {
            (void)sqlite3_bind_text64(statement, column, text.data(), text.size(), SQLITE_STATIC,
                                      SQLITE_UTF8);
        } else if (value.kind() == Kind::kNumber && text.find('.') != std::string::npos) {
            double number = 0;
            (void)std::from_chars(text.data(), text.data() + text.size(), number);
            (void)sqlite3_bind_double(statement, column, number);
        } else if (value.kind() == Kind::kNumber) {
            std::int64_t number = 0;
            (void)std::from_chars(text.data(), text.data() + text.size(), number);
            bind(column, number);
        }
    }
    void bind(int column, std::int64_t number) {
        (void)sqlite3_bind_int64(statement_.get(), column, number);
    }
    void bind(int column, std::string_view text) {
        (void)sqlite3_bind_text64(statement_.get(), column, text.data(), text.size(), SQLITE_STATIC,
                                  SQLITE_UTF8);
    }

    /// Runs the statement as far as its next row; false at the end, when it can be bound anew.
    bool step() {
        const int code = sqlite3_step(statement_.get());
        database_.require(code == SQLITE_ROW || code == SQLITE_DONE);
        if (code == SQLITE_DONE) {
            (void)sqlite3_reset(statement_.get());
            (void)sqlite3_clear_bindings(statement_.get());
        }
        return code == SQLITE_ROW;
    }
    std::string text() const {
        const unsigned char* const value = sqlite3_column_text(statement_.get(), 0);
        return value == nullptr ? "" : reinterpret_cast<const char*>(value);
    }

  private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const { (void)sqlite3_finalize(statement); }
    };
    const Database& database_;
    std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

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

template <class Visit>
void for_each_line(const std::string& path, Visit visit) {
    const Descriptor file(open_file(path));
    LineReader lines(file.get(), [] { return true; });
    for (std::string_view line; lines.next(line);) {
        visit(line);
    }
}

void fill(const std::string& results_path, const std::string& path,
          const automation::ResponseFields& fields) {
    Database database(path, SQLITE_OPEN_READWRITE);
    database.run("PRAGMA journal_mode=OFF;PRAGMA synchronous=OFF;BEGIN");
    Tables tables(database, fields);
    for_each_line(results_path,
                  [&](std::string_view line) { tables.add(automation::parse_json(line)); });
    tables.finish();
}

bool is_database(const std::string& path) {
    const Descriptor file(open_file(path));
    char head[kMagic.size()];
    return ::read(file.get(), head, sizeof head) == static_cast<ssize_t>(sizeof head) &&
           std::string_view(head, sizeof head) == kMagic;
}

}  // namespace

void write_database(const std::string& results_path, const std::string& path,
                    const automation::ResponseFields& fields) {
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
    try {
        fill(results_path, temporary, fields);
    } catch (...) {
        (void)::unlink(temporary.c_str());
        throw;
    }
    (void)::lseek(descriptor, 0, SEEK_END);  // what is before is the database
    output.finish();
}

std::set<std::string> earlier_files(const std::string& path, bool failed_only) {
    std::set<std::string> files;
    if (is_database(path)) {
        const Database database(path, SQLITE_OPEN_READONLY);
        Statement rows(database, std::string("SELECT File FROM replies") +
                                     (failed_only ? " WHERE NOT Result" : ""));
        while (rows.step()) {
            files.insert(rows.text());
        }
        return files;
    }
    for_each_line(path, [&](std::string_view line) {
        if (!line.starts_with('{')) {
            files.insert(std::string(line));
            return;
        }
        const JsonValue result = automation::parse_json(line);
        const JsonValue* const file = result.find("File");
        const JsonValue* const done = result.find("Result");
        if (file != nullptr && done != nullptr && !(failed_only && done->boolean())) {
            files.insert(file->text());
        }
    });
    files.erase("");
    return files;
}

}  // namespace zr::cli
