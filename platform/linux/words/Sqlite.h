#pragma once

#include <concepts>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <sqlite3.h>
#include <string>
#include <string_view>

/// SQLite's own calls, owned and typed. Results are its result codes.
namespace vanoka::sqlite {

struct CloseDatabase {
    void operator()(sqlite3* database) const noexcept { sqlite3_close_v2(database); }
};
using Database = std::unique_ptr<sqlite3, CloseDatabase>;

/// Opens the file for reading and writing. The database is of use to close it, and to tell why it cannot be
/// opened; only memory that cannot be had leaves none.
int open(const std::filesystem::path& path, Database& database);

/// Whether the last who closes a database copies its write-ahead log into it, and removes the log. It does,
/// if nothing is said.
void copyLogAtTheEnd(sqlite3* database, bool copies);

/// Runs statements that need no values.
int run(sqlite3* database, const char* statements);

/// One statement with values in the places of ?1, ?2 …
class Statement {
public:
    template <class... Values>
    Statement(sqlite3* database, std::string_view text, const Values&... values) {
        result_ =
            sqlite3_prepare_v2(database, text.data(), static_cast<int>(text.size()), &statement_, nullptr);
        int place = 0;
        (bind(++place, values), ...);
    }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    ~Statement() { sqlite3_finalize(statement_); }

    /// The next row: SQLITE_ROW, SQLITE_DONE at the end, or what went wrong.
    int step() { return result_ == SQLITE_OK ? sqlite3_step(statement_) : result_; }
    /// All of it; SQLITE_OK at the end.
    int finish();

    std::int64_t number(int column) const { return sqlite3_column_int64(statement_, column); }
    std::string text(int column) const;

private:
    void bind(int place, std::integral auto value) {
        keep(sqlite3_bind_int64(statement_, place, static_cast<sqlite3_int64>(value)));
    }
    /// Views the text, which must outlive the statement.
    void bind(int place, std::string_view value) {
        keep(sqlite3_bind_text(statement_, place, value.data(), static_cast<int>(value.size()),
                               SQLITE_STATIC));
    }
    void keep(int result) { result_ = result_ == SQLITE_OK ? result : result_; }

    sqlite3_stmt* statement_ = nullptr;
    int result_ = SQLITE_OK;
};

/// Runs one statement with these values.
template <class... Values>
int execute(sqlite3* database, std::string_view text, const Values&... values) {
    return Statement(database, text, values...).finish();
}

/// Reads the number that a statement gives; SQLITE_OK, or why there is none, and then `number` stays.
int readNumber(sqlite3* database, std::string_view text, std::int64_t& number);

} // namespace vanoka::sqlite
