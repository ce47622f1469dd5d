#include "FieldModel.h"
#include "Handles.h"
#include "settings/CustomizationJson.h"

#include <array>
#include <cstring>
#include <list>
#include <memory>
#include <utility>
#include <vector>

using namespace vanoka;

/// Calls of the C interface in any order with anything in them, on handles that may be null and may have been
/// released after others were made from them. What the keys read as, and what typing does in a field, is what
/// the plain rules make of the settings' document.
namespace {

class Calls {
public:
    explicit Calls(fuzz::Input& input) : input_(input) {
        answer_.make(vanoka_answer_create);
        document_.make(vanoka_answer_create);
        makeSettings();
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
        typingKeys_ = keys_;
        areKeysNew_ = false;
        model_ = fuzz::FieldModel(*keys_);
        text_.clear();
        marked_.clear();
    }

    /// Typing goes on with the settings that it was made from.
    void makeSettings() {
        settings_.make(vanoka_settings_create);
        keys_ = std::make_shared<test::plain::Keys>(SinglishTransliterator::standard());
        keysDocument_.clear();
    }

    /// The settings may have been edited.
    void readKeys() {
        fuzz::expectAnswered(vanoka_settings_document(settings_.get(), document_.get()), document_.get());
        const std::string document(onlyText(document_.get(), VANOKA_TEXT));
        if (document == keysDocument_)
            return;
        *keys_ =
            SinglishTransliterator(CustomizationJson::decode(document).value_or(SinglishCustomization()));
        keysDocument_ = document;
        areKeysNew_ = areKeysNew_ || typingKeys_ == keys_;
    }

    /// The text of an answer that holds one item, of this kind.
    static std::string_view onlyText(const vanoka_answer* answer, std::int32_t kind) {
        fuzz::expect(vanoka_answer_count(answer) == 1, "the answer is one text");
        const vanoka_item& item = *vanoka_answer_items(answer);
        fuzz::expect(item.kind == kind, "of the kind that is asked for");
        return fuzz::textOf(item);
    }

    void makeSomething() {
        const std::string_view list = text();
        const auto from = [list](auto create) {
            return [create, list](auto** handle) { return create(list.data(), list.size(), handle); };
        };
        switch (input_.byte() % 10) {
        case 0:
            return makeSettings();
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
        edit();
        readKeys();
    }

    void edit() {
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
            return transliterate(std::string(key), reply);
        }
    }

    void transliterate(const std::string& text, vanoka_answer* reply) {
        const vanoka_status status =
            vanoka_settings_transliterate(settings_.get(), text.data(), text.size(), reply);
        fuzz::expectAnswered(status, reply);
        fuzz::expect((status == VANOKA_OK) == (reply != nullptr), "every text is read");
        if (status == VANOKA_OK)
            fuzz::expect(onlyText(reply, VANOKA_TEXT) == test::plain::transliterate(*keys_, text),
                         "the plain rules read the same");
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
        const std::string chosen(text());
        vanoka_answer* reply = answer();
        switch (input_.byte() % 4) {
        case 0:
            return end(reply);
        case 1:
            return forget(reply);
        case 2:
            return choose(chosen, reply);
        default:
            return expectComposition(reply);
        }
    }

    void end(vanoka_answer* reply) {
        const vanoka_status status = vanoka_typing_end(typing_.get(), reply);
        if (status == VANOKA_OK)
            model_.end();
        apply(status, reply);
        model_.expectShown(text_, marked_, {});
    }

    void choose(const std::string& chosen, vanoka_answer* reply) {
        const vanoka_status status = vanoka_typing_choose(typing_.get(), chosen.data(), chosen.size(), reply);
        if (status == VANOKA_OK && !chosen.empty())
            model_.isComposing() ? model_.end(chosen) : model_.insert(chosen);
        apply(status, reply);
        model_.expectShown(text_, marked_, {});
    }

    /// The field has put in what is marked.
    void forget(vanoka_answer* reply) {
        const vanoka_status status = vanoka_typing_forget(typing_.get(), reply);
        fuzz::expectAnswered(status, reply);
        if (status != VANOKA_OK)
            return;
        fuzz::expect(onlyText(reply, VANOKA_TEXT) == marked_, "what was marked is told");
        model_.end();
        text_ += std::exchange(marked_, {});
        model_.expectShown(text_, marked_, {});
    }

    void expectComposition(vanoka_answer* reply) {
        const vanoka_status status = vanoka_typing_composition(typing_.get(), reply);
        fuzz::expectAnswered(status, reply);
        if (status != VANOKA_OK)
            return;
        fuzz::expect((vanoka_answer_count(reply) == 2) == model_.isComposing(),
                     "a composition is told as keys and what they read as");
        if (model_.isComposing())
            fuzz::expect(fuzz::textOf(vanoka_answer_items(reply)[0]) == model_.composed() &&
                             fuzz::textOf(vanoka_answer_items(reply)[1]) == model_.marked(),
                         "and it is that of the field");
    }

    /// Does what the answer says to the field.
    void apply(vanoka_status status, const vanoka_answer* reply) {
        fuzz::expectAnswered(status, reply);
        fuzz::expect(vanoka_answer_count(reply) <= 1, "a call has one effect");
        if (vanoka_answer_count(reply) == 0)
            return;
        const vanoka_item& item = *vanoka_answer_items(reply);
        const bool isMark = item.kind == VANOKA_MARK;
        fuzz::expect(isMark || item.kind == VANOKA_INSERT, "which marks a text or puts one in");
        marked_ = isMark ? fuzz::textOf(item) : "";
        text_ += isMark ? "" : fuzz::textOf(item);
    }

    void press() {
        static constexpr std::array<std::uint32_t, 5> codes = {VANOKA_SPACE, VANOKA_DELETE, VANOKA_ESCAPE,
                                                               VANOKA_OTHER_KEY, ~0U};
        const std::uint8_t kind = input_.byte();
        const std::uint32_t code = kind < 96 ? codes[kind % codes.size()] : VANOKA_OTHER_KEY;
        std::string characters =
            kind % 4 == 3 ? std::string(text()) : std::string(1, static_cast<char>('A' + input_.byte() % 58));
        if (code == VANOKA_SPACE)
            characters = " ";
        press(code, kind % 32 == 30 ? VANOKA_CONTROL : 0, characters);
    }

    void press(std::uint32_t code, std::uint32_t modifiers, const std::string& characters) {
        // A code that means nothing by itself is a key that is known by its characters.
        const auto known = static_cast<std::uint16_t>(code > VANOKA_OTHER_KEY ? VANOKA_OTHER_KEY : code);
        const KeyEvent event = {.modifierFlags = modifiers, .keyCode = known, .characters = characters};
        std::int32_t consumed = 7;
        vanoka_answer* reply = answer();
        const vanoka_status status = vanoka_typing_press(typing_.get(), code, modifiers, characters.data(),
                                                         characters.size(), &consumed, reply);
        fuzz::expect((status == VANOKA_OK) == (reply != nullptr), "every key is answered");
        fuzz::expect(consumed == 0 || (consumed == 1 && status == VANOKA_OK),
                     "a key is consumed or it is not");
        if (status == VANOKA_OK) {
            if (std::exchange(areKeysNew_, false))
                model_.setKeys(*typingKeys_);
            model_.press(event);
        }
        apply(status, reply);
        if (status == VANOKA_OK && consumed == 0) {
            fuzz::expect(marked_.empty(), "a key that is the field's finds no marked text");
            fuzz::Field::apply(event, text_);
        }
        model_.expectShown(text_, marked_, {});
    }

    fuzz::Input& input_;
    std::list<std::string> texts_; ///< they stay where they are
    fuzz::Slot<vanoka_answer, vanoka_answer_release> answer_, document_;
    fuzz::Slot<vanoka_settings, vanoka_settings_release> settings_;
    fuzz::Slot<vanoka_typing, vanoka_typing_release> typing_;
    std::shared_ptr<test::plain::Keys> keys_, typingKeys_; ///< of the settings, and of those of the typing
    std::string keysDocument_;                             ///< what the settings' keys were read from
    bool areKeysNew_ = false; ///< those of the typing, which reads its next key by them
    fuzz::FieldModel model_{SinglishTransliterator::standard()};
    std::string text_, marked_; ///< of the field
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
