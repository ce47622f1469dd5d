#include "SqliteWordStore.h"

#include <utility>

namespace vanoka {

namespace {

namespace fs = std::filesystem;

using Clock = std::chrono::steady_clock;
using Kind = WordChange::Kind;

/// So long the thread is deaf while another program keeps the database locked.
constexpr std::chrono::milliseconds longestDeafness{100};

} // namespace

SqliteWordStore::SqliteWordStore(fs::path path, IsEnglish isEnglish)
    : isEnglish_(std::move(isEnglish)),
      path_(std::move(path)),
      watch_(path_.parent_path()),
      database_(path_, longestDeafness),
      thread_([this] { run(); }) {}

SqliteWordStore::~SqliteWordStore() {
    {
        const std::scoped_lock lock(mutex_);
        isEnding_ = true;
        end_ = Clock::now() + longestFarewell;
    }
    wake_.notify_one();
    thread_.join();
}

std::shared_ptr<const PersonalWords> SqliteWordStore::words() const {
    const bool hasChanged = !path_.empty() && watch_.hasChanged();
    const std::scoped_lock lock(mutex_);
    if (hasChanged) {
        ++asked_;
        wake_.notify_one();
    }
    return words_;
}

void SqliteWordStore::learn(const CommittedWord& word) {
    tell({Kind::learn, word});
}

void SqliteWordStore::unlearn(const CommittedWord& word) {
    tell({Kind::unlearn, word});
}

void SqliteWordStore::forget(std::string_view word) {
    tell({Kind::forget, {.keys = {}, .text = std::string(word)}});
}

void SqliteWordStore::tell(Told told) {
    {
        const std::scoped_lock lock(mutex_);
        told_.push_back(std::move(told));
        ++asked_;
    }
    wake_.notify_one();
}

bool SqliteWordStore::flush(std::chrono::milliseconds patience) {
    std::unique_lock lock(mutex_);
    const std::uint64_t asked = asked_;
    const auto isAnswered = [&] { return answered_ >= asked && !isRetrying_; };
    return answer_.wait_for(lock, patience, isAnswered) && isWritten_;
}

SqliteWordStore::Condition SqliteWordStore::condition() const {
    const std::scoped_lock lock(mutex_);
    return condition_;
}

void SqliteWordStore::run() {
    std::unique_lock lock(mutex_);
    for (;;) {
        wake_.wait(lock, [&] { return isEnding_ || isRetrying_ || answered_ != asked_; });
        const std::deque<Told> told = std::exchange(told_, {});
        const std::uint64_t asked = asked_;
        lock.unlock();
        const Fault fault = work(told);
        lock.lock();
        answered_ = asked;
        isWritten_ = waiting_.empty();
        isRetrying_ = !isWritten_ && fault.kind == Fault::Kind::busy;
        condition_ = {.place = path_, .problem = fault.reason, .setAside = database_.setAside()};
        answer_.notify_all();
        if (isEnding_ && answered_ == asked_ && (!isRetrying_ || Clock::now() >= end_))
            return;
    }
}

/// One round of what the thread does, and why it could not do all of it.
WordDatabase::Fault SqliteWordStore::work(const std::deque<Told>& told) {
    for (const Told& each : told)
        queue(each);
    const std::size_t before = waiting_.size();
    Fault fault = write();
    if (!told.empty() || waiting_.size() != before || database_.hasChanged())
        if (Fault unread = publish(); !fault)
            fault = std::move(unread);
    return fault;
}

void SqliteWordStore::queue(const Told& told) {
    WordChange change = changeOf(told);
    if (change.word.sinhala.empty() && change.word.english.empty())
        return;
    waiting_.push_back(std::move(change));
    if (waiting_.size() <= longestQueue)
        return;
    waiting_.pop_front();
    shown_ -= shown_ > 0 ? 1 : 0;
}

WordChange SqliteWordStore::changeOf(const Told& told) const {
    if (told.kind == Kind::forget)
        return {told.kind, LearntWords::formOf(told.word.text)};
    WordChange change = {told.kind, LearntWords::learntFrom(told.word)};
    const bool isAsked = isEnglish_ && change.word.use == LearntWord::Use::typedInSinhala;
    if (isAsked && !change.word.english.empty() && !isEnglish_(change.word.english))
        change.word.english.clear();
    return change;
}

/// Until something goes wrong.
WordDatabase::Fault SqliteWordStore::write() {
    while (!waiting_.empty()) {
        if (Fault fault = database_.apply(waiting_.front()))
            return fault;
        waiting_.pop_front();
        shown_ -= shown_ > 0 ? 1 : 0;
    }
    return {};
}

/// Makes a snapshot of what is stored and of what waits. While nothing can be read, the last one counts.
WordDatabase::Fault SqliteWordStore::publish() {
    WordTally tally;
    Fault fault = database_.read(tally);
    if (fault && shown_ == waiting_.size())
        return fault;
    if (fault)
        tally = WordTally(*words_); // which only this thread changes
    for (std::size_t next = fault ? shown_ : 0; next < waiting_.size(); ++next)
        vanoka::apply(waiting_[next], tally);
    shown_ = waiting_.size();
    auto words = std::make_shared<const PersonalWords>(withReading(std::move(tally).words()));
    const std::scoped_lock lock(mutex_);
    words_.swap(words); // so that the old one is freed outside
    return fault;
}

} // namespace vanoka
