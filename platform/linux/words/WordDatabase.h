#pragma once

#include "Sqlite.h"
#include "WordTally.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <system_error>
#include <vector>

namespace vanoka {

/// The file in which learnt words are kept: an SQLite database, readable by its owner only, with a journal
/// beside it into which everything is written first.
///
/// What a call has written stays when the program is killed at any instant, and is whole whatever happens; a
/// power failure may take back the last seconds, unless it is asked to outlast that, too. Several programs
/// and several of these objects may use one file. Each object belongs to one thread at a time.
///
/// A damaged file is set aside under another name, and a new one begun. One of a later version is left alone.
/// A file that was removed or replaced by another counts as it now is. One of another user, or with a journal
/// of another user, is left alone. Where a symbolic link stands it stays, and what it leads to is meant.
class WordDatabase {
public:
    struct Fault {
        enum class Kind : std::uint8_t {
            none,
            busy,    ///< another program kept it locked all the time
            damaged, ///< never returned: the file is set aside
            later,   ///< a later version of this program, or another one, has made it
            other    ///< a full disk, a folder in its place, a permission
        };

        Kind kind = Kind::none;
        std::string reason; ///< in words, empty for none

        explicit operator bool() const noexcept { return kind != Kind::none; }
    };

    /// What all that is written shall outlast.
    enum class Outlasts : std::uint8_t {
        kills,
        powerFailures ///< each write is forced to the disk, for which somebody waits
    };

    /// How long somebody who waits for the outcome waits for other programs.
    static constexpr std::chrono::milliseconds longestWait{5000};

    /// Opens nothing yet. An empty path stores nothing. A call waits for other programs for `patience`.
    WordDatabase(std::filesystem::path path, std::chrono::milliseconds patience,
                 Outlasts outlasts = Outlasts::kills);

    /// "words.sqlite" in the user's data folder; empty when there is no home folder.
    static std::filesystem::path standardPath();

    /// Opens the file, and makes it and its folder if they are not there.
    Fault open();

    Fault apply(const WordChange& change);
    Fault remember(const LearntWord& word);
    Fault merge(const WordTally& other);
    Fault read(WordTally& tally);

    /// Forces the names of the database's files to the disk, without which a power failure may take all that
    /// was written; an error when that fails.
    std::error_code forceNames() const;

    /// Takes every word out, and out of the file's bytes, too; removes what was set aside.
    Fault erase();

    /// Whether the file is another one than was read last, or has been written by others since.
    bool hasChanged();

    const std::filesystem::path& path() const noexcept { return path_; }
    /// Where this object has set a damaged file aside; empty when it has not.
    const std::filesystem::path& setAside() const noexcept { return setAside_; }

    /// Damaged files that were set aside beside a file, and not removed since.
    static std::vector<std::filesystem::path> damagedBeside(const std::filesystem::path& path);

private:
    struct Identity {
        std::uint64_t device = 0, file = 0;
        friend bool operator==(const Identity&, const Identity&) = default;
    };
    using Work = std::function<int(sqlite3*)>;

    static Identity identityOf(const std::filesystem::path& path);

    Fault perform(const Work& work);
    Fault attempt(const Work& work);
    Fault openIfNeeded();
    Fault prepare(bool hasLog);
    Fault faultOf(int result) const;
    bool isSetAsideByAnother() const;
    bool isReplaced() const;
    std::string lastErrorOf(int result) const;
    template <class Steps>
    int inTransaction(const char* begin, Steps steps);
    Fault moveAside();

    std::filesystem::path path_, file_; ///< and the one behind a link, as it was when it was opened
    std::chrono::milliseconds patience_;
    Outlasts outlasts_;
    sqlite::Database database_;
    Identity opened_;
    std::int64_t seen_ = -1; ///< SQLite's number for what others have written, when it was read
    std::filesystem::path setAside_;
};

} // namespace vanoka
