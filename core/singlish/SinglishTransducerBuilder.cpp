#include "singlish/SinglishTransducerBuilder.h"

#include "singlish/SinglishScheme.h"

#include <utility>

namespace vanoka {

namespace {

/// A bound that the built-in keys with some dozens of added ones keep well within. Beyond it the tables
/// outgrow the processor's caches and cost more to make than they save.
constexpr std::size_t mostKeys = 512;

constexpr std::string_view asciiLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";

/// What `token` writes after `open`, and the consonant that it leaves open.
std::pair<std::string, OpenConsonant> written(const SinglishToken& token, OpenConsonant open) {
    std::string text;
    Syllables syllables(text, open);
    syllables.write(token);
    return {std::move(text), syllables.open()};
}

bool isJoined(const SinglishToken& token) {
    return written(token, OpenConsonant::none).second > OpenConsonant::other;
}

std::size_t indexOf(char letter) {
    return static_cast<unsigned char>(letter);
}

} // namespace

void SinglishTransducer::Builder::build() {
    if (!findKeys())
        return result_.held_.clear();
    findStates();
    result_.rows_.resize(result_.states_.size() + 1);
    result_.texts_.reserve(result_.rows_.size() * sizeof(Row)); // a byte's text is about as long as its step
    fillPassing(result_.rows_.back());
    for (std::size_t state = 0; state < result_.states_.size(); ++state)
        fillRow(result_.rows_[state], result_.states_[state]);
}

/// False when there are too many.
bool SinglishTransducer::Builder::findKeys() {
    result_.held_.push_back({});
    keys_.push_back({});
    for (std::size_t index = 0; index < keys_.size() && keys_.size() <= mostKeys; ++index)
        findContinuations(index);
    return keys_.size() <= mostKeys;
}

void SinglishTransducer::Builder::findContinuations(std::size_t index) {
    for (const char letter : asciiLetters) {
        SinglishReader::Beginning beginning = keys_[index].beginning;
        const std::string_view character(&letter, 1);
        const SinglishToken* token =
            index == 0 ? reader_.begin(beginning, character) : reader_.goOn(beginning, character);
        const bool isHeld = beginning.isOpen(reader_);
        if (!isHeld && !token)
            continue;
        const std::string keys = result_.held_[index].keys + letter;
        keys_[index].continuations.push_back({letter, token, isHeld ? keys_.size() : 0});
        if (token && isJoined(*token))
            mayJoin_[indexOf(keys.front())] = true;
        if (isHeld) {
            result_.held_.push_back({keys, {}});
            keys_.push_back({.before = index, .beginning = beginning, .token = token});
        }
    }
}

/// Which consonant is open before keys makes no difference unless the first that they write may be ය or ර.
void SinglishTransducer::Builder::findStates() {
    for (std::size_t index = 0; index < keys_.size(); ++index) {
        auto& [keys, states] = result_.held_[index];
        const bool mayJoin = index == 0 || mayJoin_[indexOf(keys.front())];
        for (const OpenConsonant open : everyOpen) {
            if (mayJoin || open <= OpenConsonant::other)
                result_.states_.push_back({index, open});
            states[static_cast<std::size_t>(open)] = static_cast<StateIndex>(result_.states_.size() - 1);
        }
    }
}

void SinglishTransducer::Builder::fillPassing(Row& row) {
    char byte = 0;
    for (Step& each : row)
        each = step(std::string(1, byte++), firstState);
}

void SinglishTransducer::Builder::fillRow(Row& row, const State& state) {
    const Step decided = decided_.emplace_back(decide(state));
    row = result_.rows_[decided.next];
    if (decided.length > 0)
        writeBefore(row, decided);
    for (const auto& [letter, token, index] : keys_[state.held].continuations)
        row[indexOf(letter)] =
            index > 0 ? Step{.next = result_.stateOf(index, state.open)} : stepOf(*token, state.open);
}

SinglishTransducer::Step SinglishTransducer::Builder::decide(const State& state) {
    if (state.held == 0)
        return step(state.open == OpenConsonant::none ? "" : SinglishScheme::virama, passing());
    const Keys& keys = keys_[state.held];
    if (keys.token)
        return stepOf(*keys.token, state.open);
    // The first of the keys are the same as without the last one, which makes no key of them.
    const Step& first = decided_[result_.stateOf(keys.before, state.open)];
    const Step& last = result_.rows_[first.next][indexOf(result_.held_[state.held].keys.back())];
    const auto textOf = [&texts = result_.texts_](const Step& each) {
        return texts.substr(each.text, each.length);
    };
    return step(textOf(first) + textOf(last), last.next);
}

SinglishTransducer::Step SinglishTransducer::Builder::stepOf(const SinglishToken& token, OpenConsonant open) {
    const auto [text, left] = written(token, open);
    return step(text, result_.stateOf(0, left));
}

SinglishTransducer::Step SinglishTransducer::Builder::step(std::string_view text, StateIndex next) {
    const auto start = static_cast<std::uint32_t>(result_.texts_.size());
    result_.texts_ += text;
    return {next, static_cast<std::uint16_t>(text.size()), start};
}

/// Lets every step of `row` write what `first` does before its own text.
void SinglishTransducer::Builder::writeBefore(Row& row, const Step& first) {
    std::string& texts = result_.texts_;
    std::size_t end = texts.size();
    std::size_t length = row.size() * first.length;
    for (const Step& step : row)
        length += step.length;
    texts.resize(end + length + usualStep);
    for (Step& step : row) {
        const auto start = static_cast<std::uint32_t>(end);
        copy(&texts[first.text], first.length, &texts[end]);
        copy(&texts[step.text], step.length, &texts[end + first.length]);
        step = {step.next, static_cast<std::uint16_t>(first.length + step.length), start};
        end += step.length;
    }
    texts.resize(end);
}

} // namespace vanoka
