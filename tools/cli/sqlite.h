// SQLite, as far as results need it.
#pragma once

#include <sqlite3.h>

#include <charconv>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "automation/json.h"
#include "cli/failure.h"

namespace zr::cli {

/// An open database.
class Database {
  public:
    /// Throws OutputError.
    explicit Database(const std::string& path, int flags) : path_(path) {
        sqlite3* database = nullptr;
        const int code = sqlite3_open_v2(path.c_str(), &database, flags, nullptr);
        database_.reset(database);
        require(code == SQLITE_OK);
    }

    void run(const std::string& sql) {
        require(sqlite3_exec(get(), sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK);
    }

    /// Throws OutputError with the library's reason unless it is done.
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

/// A statement of a database, which outlives it.
class Statement {
  public:
    Statement(const Database& database, const std::string& sql) : database_(database) {
        sqlite3_stmt* statement = nullptr;
        const int code = sqlite3_prepare_v2(database.get(), sql.c_str(), -1, &statement, nullptr);
        statement_.reset(statement);
        database.require(code == SQLITE_OK);
    }

    /// Binds a value to a column, counted from 1. Texts must live until the row is done.
    void bind(int column, const automation::JsonValue& value) {
        sqlite3_stmt* const statement = statement_.get();
        using Kind = automation::JsonValue::Kind;
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
    /// The first column of the row.
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

}  // namespace zr::cli
