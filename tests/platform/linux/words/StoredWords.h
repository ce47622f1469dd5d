#pragma once

#include "TemporaryFolder.h"
#include "WordDatabase.h"

#include <chrono>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <sys/stat.h>
#include <sys/types.h>
#include <vector>

namespace vanoka::test {

inline const std::string gama = "\u0D9C\u0DB8", gedara = "\u0D9C\u0DD9\u0DAF\u0DBB",
                         amma = "\u0D85\u0DB8\u0DCA\u0DB8";

/// Nothing here takes as long, on any machine.
inline constexpr std::chrono::seconds longEnough{60};
inline constexpr std::chrono::milliseconds noPatience{0};

/// A word for each number.
inline std::string numbered(std::int64_t number) {
    std::string word = gama;
    for (std::int64_t rest = number; rest >= 0; rest = rest / 20 - 1)
        word += {'\xE0', '\xB6', static_cast<char>(0x9A + rest % 20)};
    return word;
}

inline CommittedWord committed(const std::string& text) {
    return {.keys = "-", .text = text};
}

inline WordChange learning(const std::string& text) {
    return {WordChange::Kind::learn, LearntWords::learntFrom(committed(text))};
}

/// What stands in a file, read anew.
inline WordTally storedIn(const std::filesystem::path& path) {
    WordTally tally;
    const auto fault = WordDatabase(path, longEnough).read(tally);
    EXPECT_FALSE(fault) << fault.reason;
    return tally;
}

inline std::string bytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline mode_t modeOf(const std::filesystem::path& path) {
    struct stat status = {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
    return status.st_mode & 07777U;
}

/// Runs statements on a file, as another program would.
inline void runIn(const std::filesystem::path& path, const std::string& statements) {
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(path.c_str(), &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database, statements.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database);
    sqlite3_close(database);
}

/// Another program that has the file locked, so that nobody else can write.
class Locked {
public:
    explicit Locked(const std::filesystem::path& path, const char* begin = "BEGIN EXCLUSIVE") {
        EXPECT_EQ(sqlite3_open(path.c_str(), &database_), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(database_, begin, nullptr, nullptr, nullptr), SQLITE_OK);
    }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;
    ~Locked() { sqlite3_close(database_); }

private:
    sqlite3* database_ = nullptr;
};

} // namespace vanoka::test
