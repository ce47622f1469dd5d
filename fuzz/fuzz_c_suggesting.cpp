#include "FieldModel.h"
#include "Handles.h"
#include "settings/CustomizationJson.h"

#include <array>
#include <list>

using namespace vanoka;

/// A keyboard over the C interface that suggests and learns: keys, candidates that come late, never or from
/// elsewhere, and ends of the composition in any order. A model says what the field must hold; what is taught
/// goes into a document and out of it again.
namespace {

using fuzz::expectAnswered;
using fuzz::Slot;
using fuzz::textOf;

class Keyboard {
public:
    /// `document` says which keys the user has; one that says nothing means the built-in ones.
    explicit Keyboard(const std::string& document)
        : model_(
              SinglishTransliterator(CustomizationJson::decode(document).value_or(SinglishCustomization()))) {
        for (auto* answer : {&answer_, &found_})
            answer->make(vanoka_answer_create);
        settings_.make(vanoka_settings_create);
        vanoka_settings_load(settings_.get(), document.data(), document.size());
        suggesting_.make([this](auto** made) { return vanoka_suggesting_create(settings_.get(), made); });
        learnt_.make(vanoka_learnt_create);
        makeLists();
    }

    void one(fuzz::Input& input) {
        switch (input.byte() % 16) {
        case 0:
            return end();
        case 1:
            return forget();
        case 2:
            return choose(input.byte() % 10);
        case 3:
            return forgetRow(input.byte() % 10);
        case 4:
            return switchOver(input.byte());
        case 5:
            return takeOthers(input);
        case 6:
            return passNothing(input.byte());
        case 7:
        case 8:
            return takeFound();
        default:
            return press(input);
        }
    }

    void expectShown() {
        model_.expectShown(text_, marked_, line());
        expectAnswered(vanoka_suggesting_composition(suggesting_.get(), answer_.get()), answer_.get());
        fuzz::expect((vanoka_answer_count(answer_.get()) == 2) == model_.isComposing(),
                     "a composition is told as keys and what they read as");
    }

    /// What was learnt comes back from its document.
    void expectDocument() {
        const std::string document = learntDocument(learnt_.get());
        Slot<vanoka_learnt, vanoka_learnt_release> other;
        other.make(vanoka_learnt_create);
        expectAnswered(vanoka_learnt_import(other.get(), document.data(), document.size(), answer_.get()),
                       answer_.get());
        fuzz::expect(vanoka_answer_count(answer_.get()) == 0, "a document that was given is taken");
        fuzz::expect(learntDocument(other.get()) == document, "and holds the same");
    }

    /// A document from anywhere is taken whole or refused whole.
    void import(const std::string& document) {
        const std::string before = learntDocument(learnt_.get());
        expectAnswered(vanoka_learnt_import(learnt_.get(), document.data(), document.size(), answer_.get()),
                       answer_.get());
        if (vanoka_answer_count(answer_.get()) == 0)
            return;
        fuzz::expect(vanoka_answer_items(answer_.get())[0].kind == VANOKA_REFUSED, "it says why");
        fuzz::expect(learntDocument(learnt_.get()) == before, "what is refused changes nothing");
    }

private:
    void makeLists() {
        static constexpr std::string_view sinhala =
            "\u0D85\u0DB8\u0DCA\u0DB8\u0DCF\t90\n\u0D9A\u0DA9\u0DDA\t50\n\u0D9A\u0DBB\t30\n";
        static constexpr std::string_view english = "amma\t3\nkade\t40\nok\t900\n";
        Slot<vanoka_words, vanoka_words_release> words;
        Slot<vanoka_english, vanoka_english_release> latin;
        words.make([](auto** made) { return vanoka_words_create(sinhala.data(), sinhala.size(), made); });
        latin.make([](auto** made) { return vanoka_english_create(english.data(), english.size(), made); });
        candidates_.make([&](auto** made) {
            return vanoka_candidates_create(words.get(), latin.get(), nullptr, nullptr, 0, made);
        });
    }

    CandidateLine line() {
        CandidateLine line;
        expectAnswered(vanoka_suggesting_line(suggesting_.get(), answer_.get()), answer_.get());
        for (std::size_t at = 0; at < vanoka_answer_count(answer_.get()); ++at) {
            const vanoka_item& item = vanoka_answer_items(answer_.get())[at];
            if (item.kind == VANOKA_HIGHLIGHTED)
                line.highlighted = line.rows.size() - 1;
            else
                line.rows.push_back({std::string(textOf(item)), {}, item.number != 0});
        }
        return line;
    }

    /// Does what the answer says to the field and to what is learnt.
    void apply() {
        const vanoka_item* items = vanoka_answer_items(answer_.get());
        const std::size_t count = vanoka_answer_count(answer_.get());
        for (std::size_t at = 0; at < count; ++at) {
            const std::string_view text = textOf(items[at]);
            switch (items[at].kind) {
            case VANOKA_INSERT:
                fuzz::expect(at == 0 && !text.empty(), "an insertion comes first and is some text");
                text_ += text;
                marked_.clear();
                break;
            case VANOKA_MARK:
                fuzz::expect(at == 0, "a mark comes first");
                marked_ = text;
                break;
            case VANOKA_FORGET:
                vanoka_learnt_forget(learnt_.get(), text.data(), text.size());
                break;
            default:
                fuzz::expect(++at < count && items[at].kind == VANOKA_KEYS, "a lesson has its keys");
                teach(items[at - 1].kind, textOf(items[at]), text);
            }
        }
    }

    void teach(std::int32_t kind, std::string_view keys, std::string_view text) {
        fuzz::expect(kind == VANOKA_LEARN || kind == VANOKA_UNLEARN, "a lesson is learnt or taken back");
        const auto tell = kind == VANOKA_LEARN ? vanoka_learnt_learn : vanoka_learnt_unlearn;
        fuzz::expect(tell(learnt_.get(), keys.data(), keys.size(), text.data(), text.size()) == VANOKA_OK,
                     "what is taught can be told");
    }

    std::string learntDocument(const vanoka_learnt* learnt) {
        expectAnswered(vanoka_learnt_document(learnt, answer_.get()), answer_.get());
        fuzz::expect(vanoka_answer_count(answer_.get()) == 1, "a document is one text");
        return std::string(textOf(vanoka_answer_items(answer_.get())[0]));
    }

    static KeyEvent key(fuzz::Input& input) {
        static constexpr std::array<std::string_view, 12> special = {
            "\t", "\x19", "\uF700", "\uF701", "\uF728", "\r", ".", "1", "\u0D9A", "", "\x01", "\xFF"};
        static constexpr std::array<std::uint16_t, 3> codes = {VANOKA_SPACE, VANOKA_DELETE, VANOKA_ESCAPE};
        const std::uint8_t choice = input.byte(), modifier = input.byte();
        KeyEvent event;
        if (modifier % 8 == 7)
            event.modifierFlags = modifier % 16 == 7 ? VANOKA_SHIFT : VANOKA_CONTROL;
        if (choice < 128)
            event.characters = std::string(1, static_cast<char>('A' + choice % 58));
        else if (choice < 192)
            event.characters = std::string(special[choice % special.size()]);
        else {
            event.keyCode = codes[choice % codes.size()];
            event.characters = event.keyCode == VANOKA_SPACE ? " " : "\x7F";
        }
        return event;
    }

    void press(fuzz::Input& input) {
        const KeyEvent event = key(input);
        const auto modifiers = static_cast<std::uint32_t>(event.modifierFlags);
        const std::string& characters = *event.characters;
        std::int32_t needs = 7, consumed = 7;
        vanoka_suggesting_needs(suggesting_.get(), event.keyCode, modifiers, characters.data(),
                                characters.size(), &needs);
        fuzz::expect(needs == 0 || needs == 1, "it is needed or it is not");
        if (needs == 1 && input.byte() % 4 != 0)
            takeFound();
        model_.press(event, line());
        expectAnswered(vanoka_suggesting_press(suggesting_.get(), event.keyCode, modifiers, characters.data(),
                                               characters.size(), &consumed, answer_.get()),
                       answer_.get());
        apply();
        fuzz::expect(consumed == 0 || consumed == 1, "a key is consumed or it is not");
        if (consumed == 0) {
            fuzz::expect(marked_.empty(), "a key that is the field's finds no marked text");
            fuzz::Field::apply(event, text_);
        }
    }

    void end() {
        model_.end(line());
        expectAnswered(vanoka_suggesting_end(suggesting_.get(), answer_.get()), answer_.get());
        apply();
    }

    /// The field has put in what is marked.
    void forget() {
        model_.end(line());
        expectAnswered(vanoka_suggesting_forget(suggesting_.get(), answer_.get()), answer_.get());
        fuzz::expect(textOf(vanoka_answer_items(answer_.get())[0]) == marked_, "what was marked is told");
        text_ += std::exchange(marked_, {});
    }

    void choose(std::size_t row) {
        const CandidateLine shown = line();
        if (row < shown.rows.size())
            model_.end(shown.rows[row].text);
        expectAnswered(vanoka_suggesting_choose(suggesting_.get(), row, answer_.get()), answer_.get());
        apply();
    }

    void forgetRow(std::size_t row) {
        expectAnswered(vanoka_suggesting_forget_row(suggesting_.get(), row, answer_.get()), answer_.get());
        apply();
    }

    void switchOver(std::uint8_t how) {
        fuzz::expect(vanoka_suggesting_switch(suggesting_.get(), how % 4, how / 4 % 2) == VANOKA_OK,
                     "it is switched");
    }

    /// The number of what candidates are missing for; 0 when none are.
    std::int64_t request() {
        expectAnswered(vanoka_suggesting_request(suggesting_.get(), answer_.get()), answer_.get());
        const bool isThere = vanoka_answer_count(answer_.get()) == 2;
        fuzz::expect(isThere || vanoka_answer_count(answer_.get()) == 0, "a request is keys and a preview");
        return isThere ? vanoka_answer_items(answer_.get())[0].number : 0;
    }

    void takeFound() {
        const std::int64_t newest = request();
        if (newest == 0)
            return;
        const vanoka_item* asked = vanoka_answer_items(answer_.get());
        Slot<vanoka_personal, vanoka_personal_release> personal;
        personal.make([this](auto** made) { return vanoka_learnt_personal(learnt_.get(), made); });
        expectAnswered(vanoka_candidates_find(candidates_.get(), personal.get(), asked[0].text, asked[0].size,
                                              asked[1].text, asked[1].size, 6, found_.get()),
                       found_.get());
        std::int32_t taken = 7;
        fuzz::expect(vanoka_suggesting_take(suggesting_.get(), newest, vanoka_answer_items(found_.get()),
                                            vanoka_answer_count(found_.get()), &taken) == VANOKA_OK &&
                         taken == 1,
                     "what was asked for is taken");
    }

    /// Rows that nobody has found, after what was typed.
    void takeOthers(fuzz::Input& input) {
        const std::int64_t newest = request();
        std::list<std::string> texts;
        std::vector<vanoka_item> rows;
        const auto add = [&](std::string text, std::int32_t kind, std::int64_t number) {
            const std::string& kept = texts.emplace_back(std::move(text));
            rows.push_back({kept.c_str(), static_cast<std::uint32_t>(kept.size()), kind, number});
        };
        if (newest != 0)
            add(std::string(textOf(vanoka_answer_items(answer_.get())[1])), VANOKA_TYPED, 0);
        for (int count = input.byte() % 12; count > 0; --count) {
            std::string text = input.text(6);
            const std::uint8_t kind = input.byte();
            add(std::move(text), 1 + kind % 7, kind / 8 % 2);
        }
        const std::int64_t number = newest + (input.byte() % 4 == 0 ? 1 : 0);
        std::int32_t taken = 7;
        const auto status =
            vanoka_suggesting_take(suggesting_.get(), number, rows.data(), rows.size(), &taken);
        fuzz::expect(status == VANOKA_OK ? taken == (newest != 0 && number == newest ? 1 : 0) : taken == 0,
                     "rows are taken when they are the newest request's");
        if (taken == 1 && line().isShown())
            fuzz::expect(line().rows.size() == rows.size(), "all rows are shown");
    }

    /// A call that cannot be answered changes nothing.
    void passNothing(std::uint8_t which) {
        std::int32_t consumed = 7;
        const std::array statuses = {
            vanoka_suggesting_press(suggesting_.get(), VANOKA_SPACE, 0, " ", 1, &consumed, nullptr),
            vanoka_suggesting_press(suggesting_.get(), VANOKA_SPACE, 0, " ", 1, nullptr, answer_.get()),
            vanoka_suggesting_end(suggesting_.get(), nullptr),
            vanoka_suggesting_choose(suggesting_.get(), which, nullptr),
            vanoka_suggesting_forget_row(nullptr, which, answer_.get()),
            vanoka_suggesting_forget(nullptr, answer_.get()),
            vanoka_learnt_import(nullptr, "", 0, answer_.get())};
        for (const vanoka_status status : statuses)
            fuzz::expect(status == VANOKA_BAD_ARGUMENT, "what cannot be done is told");
    }

    fuzz::FieldModel model_;
    std::string text_, marked_;
    Slot<vanoka_answer, vanoka_answer_release> answer_, found_;
    Slot<vanoka_settings, vanoka_settings_release> settings_;
    Slot<vanoka_suggesting, vanoka_suggesting_release> suggesting_;
    Slot<vanoka_learnt, vanoka_learnt_release> learnt_;
    Slot<vanoka_candidates, vanoka_candidates_release> candidates_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, std::min<std::size_t>(size, 400));
    Keyboard keyboard(CustomizationJson::encode(input.customization()).value_or(""));
    keyboard.import(input.text(80));
    while (!input.isEmpty()) {
        keyboard.one(input);
        keyboard.expectShown();
    }
    keyboard.expectDocument();
    return 0;
}
