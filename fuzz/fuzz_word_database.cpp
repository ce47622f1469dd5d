#include "Fuzz.h"
#include "Sqlite.h"
#include "TemporaryFolder.h"
#include "WordDatabase.h"

#include <filesystem>
#include <fstream>
#include <iterator>

using namespace vanoka;
namespace fs = std::filesystem;

/// A store of words into which somebody has written other bytes, or that is cut off, or whose tables are not
/// ours, with a log of a program that was killed or without: it is read, set aside or left alone, and the
/// next word is learnt all the same where it may be.
namespace {

using FaultKind = WordDatabase::Fault::Kind;

const fs::path& folder() {
    static const test::TemporaryFolder made;
    return made.path();
}

LearntWord wordOf(const std::string& text) {
    return LearntWords::learntFrom({"amma", text});
}

const std::string word = "\u0D85\u0DB8\u0DCA\u0DB8\u0DCF";

std::string bytesOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// What lies on the disk: a database, and the log beside it.
struct Store {
    std::string bytes, log;
};

Store storeAt(const fs::path& path) {
    return {bytesOf(path), bytesOf(path.string() + "-wal")};
}

/// As this program writes it, with a few words in it; and as a kill leaves it that came before the end.
struct WholeStore {
    Store ended, killed;

    WholeStore() {
        const fs::path path = folder() / "whole.sqlite";
        {
            WordDatabase database(path, {});
            for (const std::string& each : {word, word + word})
                fuzz::expect(!database.apply({WordChange::Kind::learn, wordOf(each)}), "a word is stored");
            fuzz::expect(!database.apply({WordChange::Kind::forget, LearntWords::formOf("kade")}),
                         "a word is forgotten");
            killed = storeAt(path);
        }
        ended = storeAt(path);
    }
};

const WholeStore& whole() {
    static const WholeStore made;
    return made;
}

constexpr const char* endlessView =
    "DROP TABLE clock; CREATE VIEW clock AS"
    " WITH RECURSIVE n (tick) AS (SELECT 1 UNION ALL SELECT tick FROM n) SELECT tick FROM n";

/// What others may have done to the tables: what swallows words, gives them without an end, or is not ours.
constexpr const char* statements[] = {
    "CREATE TRIGGER swallow BEFORE INSERT ON sinhala BEGIN SELECT RAISE(IGNORE); END",
    "CREATE TRIGGER undo AFTER UPDATE ON clock BEGIN DELETE FROM sinhala; END",
    endlessView,
    "DROP TABLE sinhala; CREATE TABLE sinhala (word TEXT, count, used UNIQUE ON CONFLICT IGNORE)",
    "CREATE TABLE more (a, b)",
    "CREATE INDEX counts ON sinhala (count)",
    "DROP TABLE forgotten",
    "INSERT INTO clock VALUES (7), ('x'), (zeroblob(3))",
    "DELETE FROM clock",
    "UPDATE sinhala SET count = 'many', used = -1",
    "INSERT OR REPLACE INTO sinhala VALUES (x'00FF', -9223372036854775808, 1e300)",
    "UPDATE english SET kept = 9223372036854775807",
    "PRAGMA user_version = 2",
    "PRAGMA user_version = -1",
    "PRAGMA user_version = 0",
    "PRAGMA journal_mode = DELETE",
};

/// The store after statements that the input chooses. Others' programs may refuse some of them.
Store changed(fuzz::Input& input) {
    const fs::path path = folder() / "changed.sqlite";
    std::ofstream(path, std::ios::binary) << whole().ended.bytes;
    Store store;
    {
        sqlite::Database database;
        fuzz::expect(sqlite::open(path, database) == SQLITE_OK, "a whole file is opened");
        for (int count = 1 + input.byte() % 3; count > 0; --count)
            sqlite::run(database.get(), statements[input.byte() % std::size(statements)]);
        store = storeAt(path);
    }
    return input.byte() % 2 ? store : storeAt(path);
}

Store chosen(std::uint8_t how, fuzz::Input& input) {
    if ((how & 0x80U) != 0)
        return changed(input);
    return (how & 0x40U) != 0 ? whole().killed : whole().ended;
}

/// Overwrites runs of bytes, each at a place that the input gives: in the first page, where the format is
/// told, more often than elsewhere.
std::string damaged(std::string bytes, std::uint8_t how, fuzz::Input& input) {
    if (how % 8 == 7)
        bytes.resize(bytes.size() * input.byte() / 256);
    for (int run = 1 + how % 4; run > 0 && !bytes.empty(); --run) {
        const std::size_t page = input.byte() % 2 ? 0 : input.byte() % 16U;
        const std::size_t place = page * 4096 + input.byte() * std::size_t{16} + input.byte() % 16U;
        const std::string other = input.text(8);
        for (std::size_t each = 0; each < other.size() && place + each < bytes.size(); ++each)
            bytes[place + each] = other[each];
    }
    return bytes;
}

void write(const fs::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
    fuzz::expect(fs::file_size(path) == bytes.size(), "the damaged file is there");
}

void expectAsFound(const fs::path& path, const Store& found) {
    const Store now = storeAt(path);
    fuzz::expect(now.bytes == found.bytes, "what is set aside or left alone is as it was found");
    fuzz::expect(found.log.empty() || now.log == found.log, "and so is its log");
}

void expectOutcome(const fs::path& path, const Store& found) {
    WordDatabase database(path, {});
    WordTally tally;
    const auto read = database.read(tally);
    fuzz::expect(read.kind != FaultKind::damaged, "a damaged file is set aside");
    if (!database.setAside().empty())
        expectAsFound(database.setAside(), found);
    fuzz::expect(!read || !read.reason.empty(), "a fault has a reason");
    if (read.kind == FaultKind::later) {
        expectAsFound(path, found);
        return;
    }
    for (const auto& [each, count] : tally.sinhala)
        fuzz::expect(count >= 0 && count <= LearntWords::largestCount, "a count is held to its range");
    if (!read && !database.apply({WordChange::Kind::learn, wordOf(word)}) &&
        !tally.forgotten.contains(word)) {
        WordTally after;
        fuzz::expect(!database.read(after) && after.sinhala.contains(word), "a word that was taken is there");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const fs::path inner = folder() / "store", path = inner / "words.sqlite";
    fs::create_directory(inner);
    const std::uint8_t how = input.byte();
    Store store = chosen(how, input);
    const bool isLogDamaged = !store.log.empty() && (how & 0x20U) != 0;
    std::string& other = isLogDamaged ? store.log : store.bytes;
    other = damaged(other, how, input);
    write(path, store.bytes);
    if (!store.log.empty())
        write(path.string() + "-wal", store.log);
    expectOutcome(path, store);
    fs::remove_all(inner);
    return 0;
}
