#include "WordDatabase.h"

#include "AtomicFile.h"
#include "FolderLock.h"
#include "Folders.h"
#include "LastError.h"
#include "Owner.h"
#include "WordSchema.h"

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace vanoka {

namespace {

namespace fs = std::filesystem;

using Clock = std::chrono::steady_clock;
using Fault = WordDatabase::Fault;
using FaultKind = Fault::Kind;

constexpr std::chrono::milliseconds pause{
    5}; // between two attempts; another's transaction takes less than one
constexpr std::chrono::seconds patienceToSetAside{1};

constexpr std::string_view damagedMark = ".damaged-";
// What SQLite keeps beside a database, in the order in which it goes with it: a journal that stayed alone
// would be taken for the next database's.
constexpr std::array<std::string_view, 3> besides = {"-journal", "-wal", "-shm"};

constexpr const char* settings = "PRAGMA journal_mode = WAL;"
                                 "PRAGMA secure_delete = ON;"; // what is forgotten is overwritten

/// A kill loses nothing in any case; forcing every word to the disk that somebody types would wear it out.
const char* forcing(WordDatabase::Outlasts outlasts) {
    return outlasts == WordDatabase::Outlasts::kills ? "PRAGMA synchronous = NORMAL"
                                                     : "PRAGMA synchronous = FULL";
}

/// Makes an empty file without opening it: closing one that SQLite has open would drop SQLite's locks. No
/// error where there is one.
std::error_code makeFile(const fs::path& path) {
    if (::mknod(path.c_str(), S_IFREG | S_IRUSR | S_IWUSR, 0) == 0 || errno == EEXIST)
        return {};
    const std::error_code error = lastError();
    std::error_code ignored;
    return fs::exists(path, ignored) ? std::error_code() : error;
}

/// What its owner may not do either stays so.
void keepFromOthers(const fs::path& path) {
    constexpr mode_t others = S_IRWXG | S_IRWXO;
    struct stat status = {};
    if (::lstat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) && (status.st_mode & others) != 0)
        ::chmod(path.c_str(), status.st_mode & S_IRWXU);
}

/// The path of what is kept beside a database.
fs::path besideOf(const fs::path& path, std::string_view beside) {
    return path.string().append(beside);
}

/// New files beside it get the mode of the database; those that a killed program has left keep theirs.
void keepAllFromOthers(const fs::path& path) {
    keepFromOthers(path);
    for (const std::string_view beside : besides)
        keepFromOthers(besideOf(path, beside));
}

bool isOfAnother(const fs::path& path) {
    struct stat status = {};
    return ::lstat(path.c_str(), &status) == 0 && !isTrustedOwner(status.st_uid);
}

/// What another user has put there, the file, a link to another or a journal, is read by that user, or brings
/// what that user likes into the words.
bool isAnyOfAnother(const fs::path& path) {
    return isOfAnother(path) || std::ranges::any_of(besides, [&](std::string_view beside) {
               return isOfAnother(besideOf(path, beside));
           });
}

bool holdsBytes(const fs::path& path) {
    struct stat status = {};
    return ::lstat(path.c_str(), &status) == 0 && status.st_size > 0;
}

fs::path freeNameBeside(const fs::path& path) {
    const std::string start = path.string().append(damagedMark);
    std::error_code ignored;
    for (int number = 1;; ++number)
        if (fs::path name = start + std::to_string(number); !fs::exists(fs::symlink_status(name, ignored)))
            return name;
}

/// Removes a database that nobody has open.
std::error_code removeAll(const fs::path& path) {
    std::error_code error;
    for (const std::string_view beside : besides)
        if (!error)
            fs::remove(besideOf(path, beside), error);
    if (!error)
        fs::remove(path, error);
    return error;
}

bool isBeside(const std::string& name) {
    return std::ranges::any_of(besides, [&](std::string_view beside) { return name.ends_with(beside); });
}

Fault later() {
    return {FaultKind::later,
            "a later version of Vanoka or another program has made it; it is left as it is"};
}

int checkStructure(sqlite3* database) {
    sqlite::Statement check(database, "PRAGMA quick_check(1)");
    if (const int result = check.step(); result != SQLITE_ROW)
        return result;
    return check.text(0) == "ok" ? SQLITE_OK : SQLITE_CORRUPT;
}

/// Reads every row.
int checkRows(sqlite3* database) {
    for (const char* const table :
         {"SELECT tick FROM clock", "SELECT word, count, used FROM sinhala",
          "SELECT word, kept, typed, used FROM english", "SELECT word FROM forgotten"})
        if (const int result = sqlite::Statement(database, table).finish(); result != SQLITE_OK)
            return result == SQLITE_ERROR ? SQLITE_CORRUPT : result;
    return SQLITE_OK;
}

/// A file whose tables are not what its version says is as good as a torn one, and one with views or triggers
/// is worse: they could keep words from being stored, or read without an end. A disk that fails to read looks
/// like damage to the check of the structure, and no good file is to be set aside for it: rows tell the one
/// from the other, and a second look tells what has passed.
int checkTables(sqlite3* database) {
    if (const int tables = WordSchema::check(database); tables != SQLITE_OK)
        return tables;
    const int structure = checkStructure(database);
    if (structure != SQLITE_OK && structure != SQLITE_CORRUPT)
        return structure;
    const int rows = checkRows(database);
    return rows == SQLITE_OK && structure == SQLITE_CORRUPT ? checkStructure(database) : rows;
}

/// A file that has no tables yet, or no longer says so. A second look tells a disk that failed to read.
int checkWithoutTables(sqlite3* database) {
    const int structure = checkStructure(database);
    return structure == SQLITE_CORRUPT ? checkStructure(database) : structure;
}

/// A number that others change by writing.
int readDataVersion(sqlite3* database, std::int64_t& version) {
    return sqlite::readNumber(database, "PRAGMA data_version", version);
}

int readVersion(sqlite3* database, std::int64_t& version) {
    return sqlite::readNumber(database, "PRAGMA user_version", version);
}

/// Another program may have made the tables meanwhile.
int migrateIfOlder(sqlite3* database) {
    std::int64_t version = 0;
    const int result = readVersion(database, version);
    return result == SQLITE_OK && version < WordSchema::version
               ? WordSchema::migrate(database, static_cast<int>(version))
               : result;
}

int shrink(sqlite3* database) {
    if (const int result = sqlite::run(database, "VACUUM"); result != SQLITE_OK)
        return result;
    std::int64_t isBusy = 0;
    const int result = sqlite::readNumber(database, "PRAGMA wal_checkpoint(TRUNCATE)", isBusy);
    return result == SQLITE_OK && isBusy != 0 ? SQLITE_BUSY : result;
}

/// What SQLite cannot write it opens for reading alone, and then knows no reason any more.
std::string whyItCannotBeWritten(const fs::path& file) {
    for (const fs::path& path : {file, file.parent_path()})
        if (::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0)
            return lastError().message();
    return "it cannot be opened for writing";
}

} // namespace

WordDatabase::WordDatabase(fs::path path, std::chrono::milliseconds patience, Outlasts outlasts)
    : path_(std::move(path)), patience_(patience), outlasts_(outlasts) {}

fs::path WordDatabase::standardPath() {
    const fs::path folder = Folders::ofData();
    return folder.empty() ? fs::path() : folder / "words.sqlite";
}

Fault WordDatabase::open() {
    return perform([](sqlite3*) { return SQLITE_OK; });
}

Fault WordDatabase::apply(const WordChange& change) {
    return perform([&](sqlite3* database) {
        return inTransaction("BEGIN IMMEDIATE", [&] { return WordSchema::apply(database, change); });
    });
}

Fault WordDatabase::remember(const LearntWord& word) {
    return perform([&](sqlite3* database) {
        return inTransaction("BEGIN IMMEDIATE", [&] { return WordSchema::remember(database, word); });
    });
}

Fault WordDatabase::merge(const WordTally& other) {
    return perform([&](sqlite3* database) {
        return inTransaction("BEGIN IMMEDIATE", [&] { return WordSchema::merge(database, other); });
    });
}

Fault WordDatabase::read(WordTally& tally) {
    return perform([&](sqlite3* database) {
        return inTransaction("BEGIN", [&] {
            tally = {};
            seen_ = -1;
            const int result = WordSchema::read(database, tally);
            return result == SQLITE_OK ? readDataVersion(database, seen_) : result;
        });
    });
}

std::error_code WordDatabase::forceNames() const {
    return AtomicFile::forceNamesBeside(file_);
}

Fault WordDatabase::erase() {
    Fault fault = perform([&](sqlite3* database) {
        const int result = inTransaction("BEGIN IMMEDIATE", [&] { return WordSchema::erase(database); });
        return result == SQLITE_OK ? shrink(database) : result;
    });
    if (fault)
        return fault;
    for (const fs::path& damaged : damagedBeside(path_))
        if (const auto error = removeAll(damaged))
            return {FaultKind::other, damaged.string() + ": " + error.message()};
    return {};
}

bool WordDatabase::hasChanged() {
    std::int64_t version = 0;
    return !database_ || isReplaced() || readDataVersion(database_.get(), version) != SQLITE_OK ||
           version != seen_;
}

std::vector<fs::path> WordDatabase::damagedBeside(const fs::path& path) {
    std::vector<fs::path> found;
    const fs::path file = AtomicFile::resolved(path);
    const std::string start = file.filename().string().append(damagedMark);
    std::error_code ignored;
    for (fs::directory_iterator entry(file.parent_path(), ignored), end; entry != end;
         entry.increment(ignored))
        if (const std::string name = entry->path().filename().string();
            name.starts_with(start) && !isBeside(name))
            found.push_back(entry->path());
    std::ranges::sort(found);
    return found;
}

/// Does the work, and waits while others keep it from being done.
Fault WordDatabase::perform(const Work& work) {
    const auto end = Clock::now() + patience_;
    Fault fault = attempt(work);
    while (fault.kind == FaultKind::busy && Clock::now() < end) {
        std::this_thread::sleep_for(pause);
        fault = attempt(work);
    }
    if (fault.kind != FaultKind::busy)
        return fault;
    database_.reset(); // a lock of its own that the system has not taken back would keep it busy for good
    return attempt(work);
}

Fault WordDatabase::attempt(const Work& work) {
    for (;;) {
        Fault fault = openIfNeeded();
        if (!fault)
            fault = faultOf(work(database_.get()));
        if (fault && fault.kind != FaultKind::busy)
            database_.reset();
        if (fault.kind != FaultKind::damaged)
            return fault;
        if (fault = moveAside(); fault)
            return fault;
    }
}

/// SQLite keeps its journals beside the file behind a link, and so there is what goes with the file.
Fault WordDatabase::openIfNeeded() {
    if (path_.empty())
        return {FaultKind::other, "there is no home folder"};
    if (database_ && !isReplaced())
        return {};
    database_.reset();
    file_ = AtomicFile::resolved(path_);
    if (const auto error = AtomicFile::makeFolder(file_.parent_path()))
        return {FaultKind::other, error.message()};
    if (const auto error = makeFile(file_))
        return {FaultKind::other, error.message()};
    if (isAnyOfAnother(file_))
        return {FaultKind::other, "it belongs to another user"};
    opened_ = identityOf(path_); // one that is replaced from here on is opened anew the next time
    if (opened_ == Identity())
        return {errno == ENOENT ? FaultKind::busy : FaultKind::other, lastError().message()};
    keepAllFromOthers(file_);
    const bool hasLog = holdsBytes(besideOf(file_, "-wal"));
    Fault fault = faultOf(sqlite::open(file_, database_));
    if (!fault)
        fault = prepare(hasLog);
    if (fault)
        database_.reset();
    return fault;
}

/// Nothing is written into a file that turns out not to be ours, or to be damaged: keeping a write-ahead log
/// is told in it, and what a killed program has left in its log would be copied into it when it is closed.
/// Only a transaction that was not finished, of a file that keeps no such log, is undone by whoever reads
/// first.
Fault WordDatabase::prepare(bool hasLog) {
    sqlite3* const database = database_.get();
    sqlite::copyLogAtTheEnd(database, !hasLog);
    std::int64_t tables = 0, version = 0;
    if (Fault fault = faultOf(sqlite::readNumber(database, "SELECT count(*) FROM sqlite_schema", tables)))
        return fault;
    if (Fault fault = faultOf(readVersion(database, version)))
        return fault;
    if (version < 0 || version > WordSchema::version || (version == 0 && tables != 0))
        return later();
    const bool isOlder = version < WordSchema::version;
    if (Fault fault = faultOf(isOlder ? checkWithoutTables(database) : checkTables(database)))
        return fault;
    sqlite::copyLogAtTheEnd(database, true);
    for (const char* each : {settings, forcing(outlasts_)})
        if (Fault fault = faultOf(sqlite::run(database, each)))
            return fault;
    if (!isOlder)
        return {};
    if (Fault fault = faultOf(inTransaction("BEGIN IMMEDIATE", [&] { return migrateIfOlder(database); })))
        return fault;
    return faultOf(checkTables(database));
}

Fault WordDatabase::faultOf(int result) const {
    switch (result & 0xFF) { // without what makes it more exact
    case SQLITE_OK:
        return {};
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
    case SQLITE_PROTOCOL: // a race for a lock
        return {FaultKind::busy, "another program keeps it locked, or the system gives no locks"};
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return {FaultKind::damaged, "it is damaged"};
    case SQLITE_FULL:
        return {FaultKind::other, std::make_error_code(std::errc::no_space_on_device).message()};
    case SQLITE_READONLY:
    case SQLITE_CANTOPEN:
    case SQLITE_IOERR:
        if (isSetAsideByAnother())
            return {FaultKind::busy, "another program sets it aside"};
        return {FaultKind::other, lastErrorOf(result)};
    default:
        return {FaultKind::other, sqlite3_errstr(result)};
    }
}

/// Or by the user. The files beside it go first, under the lock.
bool WordDatabase::isSetAsideByAnother() const {
    const FolderLock lock(file_.parent_path(), patienceToSetAside);
    return isReplaced();
}

bool WordDatabase::isReplaced() const {
    return identityOf(path_) != opened_;
}

/// Of the system, which says that there is no such file when reading alone was tried of one that writing
/// makes.
std::string WordDatabase::lastErrorOf(int result) const {
    const int error = database_ ? sqlite3_system_errno(database_.get()) : 0;
    const int kind = result & 0xFF;
    if (kind == SQLITE_READONLY || (kind == SQLITE_CANTOPEN && error == ENOENT))
        return whyItCannotBeWritten(file_);
    return error != 0 && error != ENOENT ? std::generic_category().message(error) : sqlite3_errstr(result);
}

template <class Steps>
int WordDatabase::inTransaction(const char* begin, Steps steps) {
    int result = sqlite::run(database_.get(), begin);
    if (result != SQLITE_OK)
        return result;
    result = steps();
    if (result == SQLITE_OK)
        result = sqlite::run(database_.get(), "COMMIT");
    if (result != SQLITE_OK)
        sqlite::run(database_.get(), "ROLLBACK");
    return result;
}

/// Gives the damaged file another name, unless another program has done so.
Fault WordDatabase::moveAside() {
    const FolderLock lock(file_.parent_path(), patienceToSetAside);
    if (lock.outcome() == FolderLock::Outcome::busy)
        return {FaultKind::busy, "it is damaged, and another program keeps its folder locked"};
    if (isReplaced())
        return {};
    const fs::path aside = freeNameBeside(file_);
    for (const std::string_view beside : besides)
        ::rename(besideOf(file_, beside).c_str(), besideOf(aside, beside).c_str());
    if (::rename(file_.c_str(), aside.c_str()) != 0)
        return {FaultKind::other, "it is damaged, and cannot be set aside: " + lastError().message()};
    setAside_ = aside;
    return {};
}

WordDatabase::Identity WordDatabase::identityOf(const fs::path& path) {
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0)
        return {};
    return {status.st_dev, status.st_ino};
}

} // namespace vanoka
