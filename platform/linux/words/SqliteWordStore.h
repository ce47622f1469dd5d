#pragma once

#include "FolderWatch.h"
#include "PersonalWords.h"
#include "WordDatabase.h"

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

namespace vanoka {

/// Learnt words in a database (see `WordDatabase`), which a thread of its own reads and writes: each word as
/// a whole, in the order in which it was told. Then it makes a new snapshot.
///
/// What cannot be written stays in force in this process, and is written before what is told next; while
/// another program keeps the database locked, as soon as that ends. At most `longestQueue` changes wait so;
/// then the oldest one is dropped.
///
/// What other programs write is noticed when the words are asked for, and is in one of the next snapshots.
/// Nothing wakes this process while nobody types.
class SqliteWordStore final : public PersonalWordStore {
public:
    static constexpr std::size_t longestQueue = 10'000;
    /// How long the end of the program waits for what is still to be written.
    static constexpr std::chrono::milliseconds longestFarewell{2000};

    /// Tells the English words among the keys; asked on the store's thread.
    using IsEnglish = std::function<bool(std::string_view word)>;

    /// Words in the file at `path`; an empty path keeps them in this process alone. Keys count as an English
    /// word where `isEnglish` says so, which is never asked for a word that was kept in Latin letters.
    /// Without it all keys count that are made like one.
    explicit SqliteWordStore(std::filesystem::path path = WordDatabase::standardPath(),
                             IsEnglish isEnglish = {});
    SqliteWordStore(const SqliteWordStore&) = delete;
    SqliteWordStore& operator=(const SqliteWordStore&) = delete;
    ~SqliteWordStore() override;

    std::shared_ptr<const PersonalWords> words() const override;
    void learn(const CommittedWord& word) override;
    void unlearn(const CommittedWord& word) override;
    void forget(std::string_view word) override;

    /// Waits until all that was told is written and in the snapshot; false when that cannot be done now, or
    /// takes longer than `patience`.
    bool flush(std::chrono::milliseconds patience);

    struct Condition {
        std::filesystem::path place; ///< where the words are kept; empty where there is no such place
        std::string problem;         ///< why the last attempt failed to read or write; empty when it did not
        std::filesystem::path setAside; ///< where this process has set a damaged file aside
    };
    /// What has become of the file.
    Condition condition() const;

private:
    struct Told {
        WordChange::Kind kind;
        CommittedWord word; ///< its text alone for what is to be forgotten
    };
    using Fault = WordDatabase::Fault;

    void tell(Told told);
    WordChange changeOf(const Told& told) const;
    void run();
    Fault work(const std::deque<Told>& told);
    void queue(const Told& told);
    Fault write();
    Fault publish();

    const IsEnglish isEnglish_;
    const std::filesystem::path path_;
    mutable FolderWatch watch_; ///< of the caller's thread

    // Of the store's thread.
    WordDatabase database_;
    std::deque<WordChange> waiting_; ///< told and not written
    std::size_t shown_ = 0;          ///< how many of them are in the snapshot

    mutable std::mutex mutex_; // of all below; held for moments
    mutable std::condition_variable wake_;
    std::condition_variable answer_;
    std::deque<Told> told_;
    mutable std::uint64_t asked_ = 1; ///< times that something was told, or asked: the first snapshot is
    std::uint64_t answered_ = 0;      ///< of these, how many the thread has dealt with
    bool isRetrying_ = false;         ///< while another program keeps the database locked
    bool isWritten_ = true;           ///< all that was told until `answered_`
    bool isEnding_ = false;
    std::chrono::steady_clock::time_point end_;
    std::shared_ptr<const PersonalWords> words_ = std::make_shared<const PersonalWords>();
    Condition condition_;

    std::thread thread_; // last, as it uses all of the others
};

} // namespace vanoka
