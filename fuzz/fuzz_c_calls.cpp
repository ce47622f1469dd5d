#include "Fuzz.h"
#include "Handles.h"
#include "vanoka.h"

#include <array>
#include <cstring>
#include <list>
#include <vector>

using namespace vanoka;

/// Calls of the C interface in any order with anything in them, on handles that may be null and may have been
/// released after others were made from them.
namespace {

class Calls {
public:
    explicit Calls(fuzz::Input& input) : input_(input) {
        answer_.make(vanoka_answer_create);
        settings_.make(vanoka_settings_create);
        makeTyping();
    }

    void one() {
        switch (input_.byte() % 10) {
        case 0:
            return makeSomething();
        case 1:
            return editSettings();
        case 2:
            return askSettings();
        case 3:
            return askLists();
        case 4:
            return swipe();
        case 5:
            return endTyping();
        default:
            return press();
        }
    }

private:
    /// A new text, or one of the present answer.
    std::string_view text() {
        const std::size_t count = vanoka_answer_count(answer_.get());
        const std::uint8_t choice = input_.byte();
        if (choice % 8 == 0 && count > 0) {
            const vanoka_item& item = vanoka_answer_items(answer_.get())[choice % count];
            return {item.text, item.size};
        }
        texts_.push_back(input_.text(choice % 16 == 1 ? 255 : 7));
        return texts_.back();
    }

    vanoka_answer* answer() { return input_.byte() % 32 == 31 ? nullptr : answer_.get(); }

    void makeTyping() {
        typing_.make([this](auto** handle) { return vanoka_typing_create(settings_.get(), handle); });
    }

    void makeSomething() {
        const std::string_view list = text();
        const auto from = [list](auto create) {
            return [create, list](auto** handle) { return create(list.data(), list.size(), handle); };
        };
        switch (input_.byte() % 10) {
        case 0:
            return settings_.make(vanoka_settings_create);
        case 1:
            return makeTyping();
        case 2:
            return words_.make(from(vanoka_words_create));
        case 3:
            return english_.make(from(vanoka_english_create));
        case 4:
            return emoji_.make(from(vanoka_emoji_create));
        case 5:
            return counts_.make(from(vanoka_counts_create));
        case 6:
            return makeDecoder(list, text());
        case 7:
            return personal_.make([&](auto** handle) {
                return vanoka_personal_create(words_.get(), list.data(), list.size(), list.data(),
                                              list.size(), handle);
            });
        case 8:
            return candidates_.make([&](auto** handle) {
                return vanoka_candidates_create(words_.get(), english_.get(), emoji_.get(), list.data(),
                                                list.size(), handle);
            });
        default:
            return makeLayout(list);
        }
    }

    void makeDecoder(std::string_view first, std::string_view second) {
        const std::array lists = {first.data(), second.data()};
        const std::array sizes = {first.size(), second.size()};
        const auto weights = static_cast<vanoka_weights>(input_.byte() % 3);
        decoder_.make([&](auto** handle) {
            return vanoka_decoder_create_weighing(lists.data(), sizes.data(), 2, weights, handle);
        });
    }

    void makeLayout(std::string_view labels) {
        const std::vector<double> centers = numbers(2 * labels.size());
        layout_.make([&](auto** handle) {
            return vanoka_layout_create(labels.data(), labels.size(), centers.data(), labels.size(), handle);
        });
    }

    double number() {
        const std::uint8_t kind = input_.byte();
        if (kind % 32 != 31)
            return kind % 32;
        std::array<std::uint8_t, sizeof(double)> bytes{};
        for (std::uint8_t& each : bytes)
            each = input_.byte();
        double any = 0;
        std::memcpy(&any, bytes.data(), sizeof any);
        return any;
    }

    std::vector<double> numbers(std::size_t count) {
        std::vector<double> all(count);
        for (double& each : all)
            each = number();
        return all;
    }

    void editSettings() {
        const std::string_view key = text(), letter = text();
        switch (input_.byte() % 5) {
        case 0:
            vanoka_settings_load(settings_.get(), key.data(), key.size());
            return;
        case 1:
            vanoka_settings_remove(settings_.get(), key.data(), key.size());
            return;
        case 2:
            vanoka_settings_set_built_in(settings_.get(), key.data(), key.size(), input_.byte() % 2);
            return;
        case 3:
            vanoka_settings_reset(settings_.get());
            return;
        default:
            vanoka_answer* reply = answer();
            fuzz::expectAnswered(vanoka_settings_add(settings_.get(), key.data(), key.size(), letter.data(),
                                                     letter.size(), reply),
                                 reply);
        }
    }

    void askSettings() {
        const std::string_view key = text(), letter = text();
        const vanoka_settings* settings = settings_.get();
        vanoka_answer* reply = answer();
        switch (input_.byte() % 7) {
        case 0:
            return fuzz::expectAnswered(vanoka_settings_document(settings, reply), reply);
        case 1:
            return fuzz::expectAnswered(vanoka_settings_letters(settings, reply), reply);
        case 2:
            return fuzz::expectAnswered(vanoka_settings_keys(settings, letter.data(), letter.size(), reply),
                                        reply);
        case 3:
            return fuzz::expectAnswered(
                vanoka_settings_check(settings, key.data(), key.size(), letter.data(), letter.size(), reply),
                reply);
        case 4:
            return fuzz::expectAnswered(
                vanoka_settings_editor(settings, letter.data(), letter.size(), key.data(), key.size(), reply),
                reply);
        case 5:
            return fuzz::expectAnswered(vanoka_settings_long_press(settings, key.data(), key.size(), reply),
                                        reply);
        default:
            return fuzz::expectAnswered(
                vanoka_settings_transliterate(settings, key.data(), key.size(), reply), reply);
        }
    }

    void askLists() {
        const std::string_view word = text(), over = text();
        std::int32_t keeps = 0;
        vanoka_answer* reply = answer();
        switch (input_.byte() % 4) {
        case 0:
            return fuzz::expectAnswered(
                vanoka_words_suggest(words_.get(), input_.byte() % 2 ? words_.get() : nullptr, word.data(),
                                     word.size(), input_.byte() - 8, reply),
                reply);
        case 1:
            return fuzz::expectAnswered(vanoka_emoji_match(emoji_.get(), word.data(), word.size(), reply),
                                        reply);
        case 2:
            return fuzz::expectAnswered(vanoka_candidates_find(candidates_.get(), personal_.get(),
                                                               word.data(), word.size(), over.data(),
                                                               over.size(), input_.byte() % 16, reply),
                                        reply);
        default:
            vanoka_english_keeps(english_.get(), word.data(), word.size(), over.data(), over.size(),
                                 words_.get(), input_.byte(), input_.byte(), &keeps);
        }
    }

    void swipe() {
        const std::size_t count = input_.byte() % 16;
        const std::vector<double> points = numbers(2 * count);
        const double width = number();
        vanoka_answer* reply = answer();
        fuzz::expectAnswered(vanoka_decoder_decode(decoder_.get(), layout_.get(), points.data(), count, width,
                                                   input_.byte() - 8, counts_.get(), reply),
                             reply);
    }

    void endTyping() {
        const std::string_view chosen = text();
        vanoka_answer* reply = answer();
        switch (input_.byte() % 4) {
        case 0:
            return fuzz::expectAnswered(vanoka_typing_end(typing_.get(), reply), reply);
        case 1:
            return fuzz::expectAnswered(vanoka_typing_forget(typing_.get(), reply), reply);
        case 2:
            return fuzz::expectAnswered(
                vanoka_typing_choose(typing_.get(), chosen.data(), chosen.size(), reply), reply);
        default:
            return fuzz::expectAnswered(vanoka_typing_composition(typing_.get(), reply), reply);
        }
    }

    void press() {
        static constexpr std::array<std::uint32_t, 5> codes = {VANOKA_SPACE, VANOKA_DELETE, VANOKA_ESCAPE,
                                                               VANOKA_OTHER_KEY, ~0U};
        const std::uint8_t kind = input_.byte();
        const std::string characters =
            kind % 4 == 3 ? std::string(text()) : std::string(1, static_cast<char>('A' + input_.byte() % 58));
        std::int32_t consumed = 7;
        vanoka_answer* reply = answer();
        const vanoka_status status = vanoka_typing_press(
            typing_.get(), kind < 96 ? codes[kind % codes.size()] : VANOKA_OTHER_KEY,
            kind % 32 == 30 ? VANOKA_CONTROL : 0, characters.data(), characters.size(), &consumed, reply);
        fuzz::expectAnswered(status, reply);
        fuzz::expect(consumed == 0 || (consumed == 1 && status == VANOKA_OK),
                     "a key is consumed or it is not");
        fuzz::expect(vanoka_answer_count(reply) <= 1, "a key has one effect");
    }

    fuzz::Input& input_;
    std::list<std::string> texts_; ///< they stay where they are
    fuzz::Slot<vanoka_answer, vanoka_answer_release> answer_;
    fuzz::Slot<vanoka_settings, vanoka_settings_release> settings_;
    fuzz::Slot<vanoka_typing, vanoka_typing_release> typing_;
    fuzz::Slot<vanoka_words, vanoka_words_release> words_;
    fuzz::Slot<vanoka_english, vanoka_english_release> english_;
    fuzz::Slot<vanoka_emoji, vanoka_emoji_release> emoji_;
    fuzz::Slot<vanoka_personal, vanoka_personal_release> personal_;
    fuzz::Slot<vanoka_candidates, vanoka_candidates_release> candidates_;
    fuzz::Slot<vanoka_layout, vanoka_layout_release> layout_;
    fuzz::Slot<vanoka_counts, vanoka_counts_release> counts_;
    fuzz::Slot<vanoka_decoder, vanoka_decoder_release> decoder_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    Calls calls(input);
    while (!input.isEmpty())
        calls.one();
    return 0;
}
