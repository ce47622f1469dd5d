#include "Sqlite.h"

namespace vanoka::sqlite {

int open(const std::filesystem::path& path, Database& database) {
    sqlite3* opened = nullptr;
    // Each database is used by one thread at a time.
    const int result =
        sqlite3_open_v2(path.c_str(), &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    database.reset(opened);
    return result;
}

void copyLogAtTheEnd(sqlite3* database, bool copies) {
    sqlite3_db_config(database, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, copies ? 0 : 1, nullptr);
}

int run(sqlite3* database, const char* statements) {
    return sqlite3_exec(database, statements, nullptr, nullptr, nullptr);
}

int Statement::finish() {
    int result = step();
    while (result == SQLITE_ROW)
        result = step();
    return result == SQLITE_DONE ? SQLITE_OK : result;
}

std::string Statement::text(int column) const {
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement_, column));
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement_, column));
    return bytes ? std::string(bytes, size) : std::string();
}

int readNumber(sqlite3* database, std::string_view text, std::int64_t& number) {
    Statement statement(database, text);
    const int result = statement.step();
    if (result != SQLITE_ROW)
        return result;
    number = statement.number(0);
    return SQLITE_OK;
}

} // namespace vanoka::sqlite
