#include "WordSchema.h"

#include "Sqlite.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

namespace vanoka::WordSchema {

namespace {

using sqlite::execute;
using Kind = WordChange::Kind;

/// Each makes the next version of the one before it.
constexpr std::array<const char*, version> migrations = {
    // "used" orders the words by their last use, and tells nobody a time.
    "CREATE TABLE clock (tick INTEGER NOT NULL);"
    "INSERT INTO clock VALUES (0);"
    "CREATE TABLE sinhala (word TEXT PRIMARY KEY, count INTEGER NOT NULL, used INTEGER NOT NULL) WITHOUT "
    "ROWID;"
    "CREATE TABLE english (word TEXT PRIMARY KEY, kept INTEGER NOT NULL, typed INTEGER NOT NULL,"
    " used INTEGER NOT NULL) WITHOUT ROWID;"
    "CREATE TABLE forgotten (word TEXT PRIMARY KEY) WITHOUT ROWID;"
    "PRAGMA user_version = 1;",
};

/// The first that goes wrong is the result of all.
template <class... Steps>
int inOrder(Steps... steps) {
    int result = SQLITE_OK;
    static_cast<void>(((result = steps(), result == SQLITE_OK) && ...));
    return result;
}

int tick(sqlite3* database) {
    return execute(database, "UPDATE clock SET tick = tick + 1");
}

/// A table that has grown too large loses its least used words, the longest unused ones first: never the one
/// that is being learnt, and a twentieth more than it must, or else no new word had room to come to be used.
int makeRoom(sqlite3* database, const char* count, const char* removeLeastUsed) {
    std::int64_t words = 0;
    const int result = sqlite::readNumber(database, count, words);
    if (result != SQLITE_OK || words <= LearntWords::most)
        return result;
    return execute(database, removeLeastUsed, words - LearntWords::most + LearntWords::most / 20);
}

int makeRoomForSinhala(sqlite3* database) {
    return makeRoom(
        database, "SELECT count(*) FROM sinhala",
        "DELETE FROM sinhala WHERE word IN"
        " (SELECT word FROM sinhala WHERE used < (SELECT tick FROM clock) ORDER BY count, used LIMIT ?1)");
}

int makeRoomForEnglish(sqlite3* database) {
    return makeRoom(database, "SELECT count(*) FROM english",
                    "DELETE FROM english WHERE word IN"
                    " (SELECT word FROM english WHERE used < (SELECT tick FROM clock) ORDER BY kept + typed, "
                    "used LIMIT ?1)");
}

int countSinhala(sqlite3* database, const std::string& word) {
    if (word.empty())
        return SQLITE_OK;
    const int result = execute(database,
                               "UPDATE sinhala SET count = min(count + 1, ?2),"
                               " used = (SELECT tick FROM clock) WHERE word = ?1",
                               word, LearntWords::largestCount);
    if (result != SQLITE_OK || sqlite3_changes(database) > 0)
        return result;
    return inOrder(
        [&] {
            return execute(database,
                           "INSERT INTO sinhala SELECT ?1, 1, tick FROM clock"
                           " WHERE NOT EXISTS (SELECT 1 FROM forgotten WHERE word = ?1)",
                           word);
        },
        [&] { return makeRoomForSinhala(database); });
}

int countEnglish(sqlite3* database, const std::string& word, LearntWord::Use use) {
    if (word.empty())
        return SQLITE_OK;
    const int kept = use == LearntWord::Use::kept ? 1 : 0;
    const int result = execute(database,
                               "UPDATE english SET kept = min(kept + ?2, ?4), typed = min(typed + ?3, ?4),"
                               " used = (SELECT tick FROM clock) WHERE word = ?1",
                               word, kept, 1 - kept, LearntWords::largestCount);
    if (result != SQLITE_OK || sqlite3_changes(database) > 0)
        return result;
    return inOrder(
        [&] {
            return execute(database,
                           "INSERT INTO english SELECT ?1, ?2, ?3, tick FROM clock"
                           " WHERE NOT EXISTS (SELECT 1 FROM forgotten WHERE word = ?1)",
                           word, kept, 1 - kept);
        },
        [&] { return makeRoomForEnglish(database); });
}

int learn(sqlite3* database, const LearntWord& word) {
    return inOrder([&] { return tick(database); }, [&] { return countSinhala(database, word.sinhala); },
                   [&] { return countEnglish(database, word.english, word.use); });
}

int unlearn(sqlite3* database, const LearntWord& word) {
    const int kept = word.use == LearntWord::Use::kept ? 1 : 0;
    return inOrder(
        [&] {
            return execute(database, "UPDATE sinhala SET count = count - 1 WHERE word = ?1", word.sinhala);
        },
        [&] { return execute(database, "DELETE FROM sinhala WHERE word = ?1 AND count <= 0", word.sinhala); },
        [&] {
            return execute(database,
                           "UPDATE english SET kept = max(kept - ?2, 0), typed = max(typed - ?3, 0)"
                           " WHERE word = ?1",
                           word.english, kept, 1 - kept);
        },
        [&] {
            return execute(database, "DELETE FROM english WHERE word = ?1 AND kept <= 0 AND typed <= 0",
                           word.english);
        });
}

int forget(sqlite3* database, const std::string& word) {
    if (word.empty())
        return SQLITE_OK;
    return inOrder([&] { return execute(database, "DELETE FROM sinhala WHERE word = ?1", word); },
                   [&] { return execute(database, "DELETE FROM english WHERE word = ?1", word); },
                   [&] { return execute(database, "INSERT OR IGNORE INTO forgotten VALUES (?1)", word); });
}

int mergeSinhala(sqlite3* database, const std::string& word, std::int64_t count) {
    return execute(database,
                   "INSERT INTO sinhala SELECT ?1, ?2, tick FROM clock"
                   " WHERE NOT EXISTS (SELECT 1 FROM forgotten WHERE word = ?1)"
                   " ON CONFLICT (word) DO UPDATE SET count = max(count, excluded.count)",
                   word, count);
}

int mergeEnglish(sqlite3* database, const std::string& word, const PersonalWords::EnglishUse& use) {
    return execute(database,
                   "INSERT INTO english SELECT ?1, ?2, ?3, tick FROM clock"
                   " WHERE NOT EXISTS (SELECT 1 FROM forgotten WHERE word = ?1)"
                   " ON CONFLICT (word) DO UPDATE SET kept = max(kept, excluded.kept),"
                   " typed = max(typed, excluded.typed)",
                   word, use.kept, use.typedInSinhala);
}

/// A count as it may be, whatever others have written.
std::int64_t held(std::int64_t count) {
    return std::clamp<std::int64_t>(count, 0, LearntWords::largestCount);
}

/// Calls `take` for every row.
template <class Take>
int forEachRow(sqlite3* database, std::string_view query, Take take) {
    sqlite::Statement statement(database, query);
    int result = statement.step();
    for (; result == SQLITE_ROW; result = statement.step())
        take(statement);
    return result == SQLITE_DONE ? SQLITE_OK : result;
}

/// The statements that have made all that there is.
int readStatements(sqlite3* database, std::string& statements) {
    return forEachRow(database, "SELECT coalesce(sql, name) FROM sqlite_schema ORDER BY name",
                      [&](const auto& row) { statements += row.text(0) + ';'; });
}

} // namespace

int migrate(sqlite3* database, int from) {
    int result = SQLITE_OK;
    for (const char* const migration : std::span(migrations).subspan(static_cast<std::size_t>(from)))
        if (result == SQLITE_OK)
            result = sqlite::run(database, migration);
    return result;
}

/// What is made in memory is what there has to be.
int check(sqlite3* database) {
    sqlite::Database plain;
    std::string expected, found;
    return inOrder([&] { return sqlite::open(":memory:", plain); }, [&] { return migrate(plain.get(), 0); },
                   [&] { return readStatements(plain.get(), expected); },
                   [&] { return readStatements(database, found); },
                   [&] { return found == expected ? SQLITE_OK : SQLITE_CORRUPT; });
}

int apply(sqlite3* database, const WordChange& change) {
    switch (change.kind) {
    case Kind::learn:
        return learn(database, change.word);
    case Kind::unlearn:
        return unlearn(database, change.word);
    case Kind::forget:
        break;
    }
    return inOrder([&] { return forget(database, change.word.sinhala); },
                   [&] { return forget(database, change.word.english); });
}

int merge(sqlite3* database, const WordTally& other) {
    int result = tick(database);
    const auto each = [&](const auto& rows, auto step) {
        for (const auto& row : rows)
            if (result == SQLITE_OK)
                result = step(row);
    };
    each(other.forgotten, [&](const std::string& word) { return forget(database, word); });
    each(other.sinhala, [&](const auto& row) { return mergeSinhala(database, row.first, row.second); });
    each(other.english, [&](const auto& row) { return mergeEnglish(database, row.first, row.second); });
    return inOrder([&] { return result; }, [&] { return tick(database); },
                   [&] { return makeRoomForSinhala(database); },
                   [&] { return makeRoomForEnglish(database); });
}

int remember(sqlite3* database, const LearntWord& word) {
    return inOrder(
        [&] {
            return execute(database, "DELETE FROM forgotten WHERE word = ?1 OR word = ?2", word.sinhala,
                           word.english);
        },
        [&] { return learn(database, word); });
}

/// Rows come in the order of the words, so that each has its place at the end.
int read(sqlite3* database, WordTally& tally) {
    return inOrder(
        [&] {
            return forEachRow(
                database, "SELECT word, count FROM sinhala ORDER BY word", [&](const auto& row) {
                    tally.sinhala.emplace_hint(tally.sinhala.end(), row.text(0), held(row.number(1)));
                });
        },
        [&] {
            return forEachRow(database, "SELECT word, kept, typed FROM english ORDER BY word",
                              [&](const auto& row) {
                                  tally.english.emplace_hint(
                                      tally.english.end(), row.text(0),
                                      PersonalWords::EnglishUse{held(row.number(1)), held(row.number(2))});
                              });
        },
        [&] {
            return forEachRow(database, "SELECT word FROM forgotten ORDER BY word", [&](const auto& row) {
                tally.forgotten.emplace_hint(tally.forgotten.end(), row.text(0));
            });
        });
}

int erase(sqlite3* database) {
    return sqlite::run(database, "DELETE FROM sinhala; DELETE FROM english; DELETE FROM forgotten;"
                                 "UPDATE clock SET tick = 0;");
}

} // namespace vanoka::WordSchema
