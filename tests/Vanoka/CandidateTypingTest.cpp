#include "CandidateTyping.h"

#include "Keys.h"
#include "MemoryWordStore.h"
#include "Randoms.h"

#include <gtest/gtest.h>

namespace vanoka {

namespace {

const SinglishTransliterator& standardKeys() {
    return SinglishTransliterator::standard();
}

const SuggestionLists& homeLists() {
    static const SuggestionLists lists =
        readSuggestionLists({.sinhala = "ගෙදර\t900\nගෙදරට\t400\nමල\t700\nමල්\t800\n",
                             .english = "hello\t3000\n",
                             .emoji = "මල\t🌸 🌼\n",
                             .neverOffered = {}});
    return lists;
}

/// A field that does what it is told, writes the name of a key that is its own, and answers every request.
class LinedField {
public:
    explicit LinedField(bool suggests = true) {
        typing.setSuggesting(suggests);
        typing.setLearning(suggests);
    }

    void type(std::string_view names) {
        for (const KeyEvent& event : test::keys(names))
            press(event);
    }
    void press(const KeyEvent& event) {
        apply(typing.press(event, standardKeys()), test::nameOf(event));
        answer();
    }
    void apply(TypingStep step, const std::string& passed = {}) {
        apply(step.outcome.effect);
        if (!step.outcome.isConsumed)
            text += passed;
        if (step.lesson) {
            teach(store, *step.lesson);
            ++lessons;
        }
    }
    void apply(const TypingEffect& effect) {
        if (effect.kind == TypingEffect::Kind::mark)
            marked = effect.text;
        if (effect.kind == TypingEffect::Kind::insert) {
            text += effect.text;
            marked.clear();
        }
    }
    void answer() {
        if (const auto request = typing.request())
            typing.take(request->generation, candidatesFor(request->word, homeLists(), store.words().get()));
    }
    std::string screen() const { return marked.empty() ? text : text + "[" + marked + "]"; }

    CandidateTyping typing{standardKeys()};
    test::MemoryWordStore store;
    std::string text, marked;
    int lessons = 0;
};

TEST(CandidateTyping, SaysWhatEachKeyDoesOverALine) {
    struct Told {
        const char *keys, *screen;
    };
    for (const Told& row : std::vector<Told>{
             {"gedr", "[ගෙඩ්\u200Dර්]"},
             {"gedr<down>", "[ගෙදර]"},
             {"gedr<down><down>", "[ගෙදරට]"},
             {"gedr<tab>", "[ගෙදර]"},
             {"gedr<down><down><down>", "[ගෙඩ්\u200Dර්]"}, // round
             {"gedr<up>", "[ගෙදරට]"},
             {"gedr<backtab>", "[ගෙදරට]"},
             {"gedr<S-tab><S-tab>", "[ගෙදර]"}, // the same key, told by its modifier
             {"gedr<space>", "ගෙඩ්\u200Dර් "},
             {"gedr<down><space>", "ගෙදර "},
             {"gedr<down>.", "ගෙදර."},
             {"gedr<down>2", "ගෙදර2"}, // a digit is a digit
             {"gedr<down><return>", "ගෙදර<return>"},
             {"gedr<down><left>", "ගෙදර<left>"},
             {"gedr<down><C-c>", "ගෙදර<C-c>"},
             {"gedr<down><C-delete>", "ගෙදර<C-delete>"},
             {"gedr<left>", "ගෙඩ්\u200Dර්<left>"},
             {"gedr<S-down>", "ගෙඩ්\u200Dර්<S-down>"},
             {"gedr<C-down>", "ගෙඩ්\u200Dර්<C-down>"},
             {"gedr<down><escape>", "[ගෙඩ්\u200Dර්]"},
             {"gedr<down><escape><escape>", "gedr"},
             {"gedr<down><delete>", "[ගෙඩ්\u200Dර්]"},
             {"gedr<down><delete><delete>", "[ගෙඩ්\u200Dර]"},
             {"gedr<down>a", "[ගෙඩ්\u200Dර]"}, // goes on with what was typed
             {"gedr<down>a<space>", "ගෙඩ්\u200Dර "},
             {"gedr<S-forwarddelete>", "ගෙඩ්\u200Dර්<S-forwarddelete>"},
             {"gedr<down><S-forwarddelete>", "[ගෙදර]"}, // of the list: nothing to forget
             {"hello<down><space>", "hello "},
             {"mala<up><space>", "🌼 "},
             {"zz<down>", "zz<down>"}, // no line: the client's
             {"zz<tab>", "zz<tab>"},
             {"<down><tab><backtab>", "<down><tab><backtab>"},
         }) {
        LinedField field;
        field.type(row.keys);
        EXPECT_EQ(field.screen(), row.screen) << row.keys;
    }
}

TEST(CandidateTyping, ShowsALineWhereThereIsAChoice) {
    LinedField field;
    EXPECT_FALSE(field.typing.line().isShown());
    field.type("gedr");
    ASSERT_EQ(field.typing.line().rows.size(), 3U);
    EXPECT_EQ(field.typing.line().highlighted, 0U);
    field.type("<down>");
    EXPECT_EQ(field.typing.line().highlighted, 1U);
    field.type("<space>");
    EXPECT_FALSE(field.typing.line().isShown());
    field.type("zz");
    EXPECT_FALSE(field.typing.line().isShown()) << "of one row";
}

TEST(CandidateTyping, DropsWhatIsOfAnOlderKey) {
    CandidateTyping typing(standardKeys());
    EXPECT_EQ(typing.request(), std::nullopt) << "without suggestions";
    typing.setSuggesting(true);
    EXPECT_EQ(typing.request(), std::nullopt) << "nothing is typed";
    typing.press({.characters = "g"}, standardKeys());
    const auto first = typing.request();
    ASSERT_TRUE(first.has_value());
    EXPECT_EQ(first->word, (TypedWord{"g", "ග්"}));
    typing.press({.characters = "e"}, standardKeys());
    const auto second = typing.request();
    ASSERT_TRUE(second.has_value());
    EXPECT_GT(second->generation, first->generation);
    const std::vector<Candidate> rows = candidatesFor(second->word, homeLists(), nullptr);
    EXPECT_FALSE(typing.take(first->generation, rows));
    EXPECT_FALSE(typing.line().isShown());
    EXPECT_TRUE(typing.take(second->generation, rows));
    EXPECT_TRUE(typing.line().isShown());
    EXPECT_FALSE(typing.take(second->generation, {})) << "twice";
    EXPECT_EQ(typing.request(), std::nullopt);
    typing.press({.characters = "d"}, standardKeys());
    EXPECT_FALSE(typing.line().isShown()) << "the line of an older key is never given out";
}

TEST(CandidateTyping, AsksForTheWordInWhichSuggestionsAreTurnedOn) {
    CandidateTyping typing(standardKeys());
    typing.press({.characters = "g"}, standardKeys());
    EXPECT_EQ(typing.request(), std::nullopt);
    typing.setSuggesting(true);
    const auto request = typing.request();
    ASSERT_TRUE(request.has_value()) << "the very first word, too";
    EXPECT_EQ(request->word, (TypedWord{"g", "ග්"}));
    EXPECT_TRUE(typing.take(request->generation, {}));
}

TEST(CandidateTyping, DropsWhatNobodyHasAskedFor) {
    const std::vector<Candidate> rows = {{"\u0D9A", Candidate::Kind::typed}, {"k", Candidate::Kind::latin}};
    for (const std::string_view keys : {"", "k<escape>", "k<space>", "kk<delete><delete>"}) {
        LinedField field;
        field.type(keys);
        for (std::uint64_t generation = 0; generation < 20; ++generation)
            EXPECT_FALSE(field.typing.take(generation, rows)) << keys;
        EXPECT_FALSE(field.typing.line().isShown()) << "nothing is typed that they could replace";
    }
}

TEST(CandidateTyping, NeedsCandidatesForTheKeysThatMove) {
    CandidateTyping typing(standardKeys());
    typing.setSuggesting(true);
    const auto needs = [&](const char* key) { return typing.needsCandidates(*test::keyNamed(key)); };
    EXPECT_FALSE(needs("<tab>"));
    typing.press({.characters = "g"}, standardKeys());
    EXPECT_TRUE(needs("<tab>") && needs("<down>") && needs("<backtab>"));
    EXPECT_FALSE(needs("a") || needs("<space>") || needs("<left>") || needs("<C-down>"));
    typing.take(typing.request()->generation, {});
    EXPECT_FALSE(needs("<tab>"));
}

TEST(CandidateTyping, TeachesNothingBeforeItIsTold) {
    CandidateTyping typing(standardKeys());
    typing.setSuggesting(true);
    for (const bool isTold : {false, true}) {
        typing.press({.characters = "g"}, standardKeys());
        const auto request = typing.request();
        ASSERT_TRUE(request.has_value());
        typing.take(request->generation, candidatesFor(request->word, homeLists(), nullptr));
        EXPECT_EQ(typing.press({.characters = " "}, standardKeys()).lesson.has_value(), isTold);
        typing.setLearning(true);
    }
}

TEST(CandidateTyping, TakesARowThatIsClicked) {
    LinedField field;
    field.apply(field.typing.choose(1));
    EXPECT_EQ(field.screen(), "") << "no line";
    field.type("gedr");
    field.apply(field.typing.choose(9));
    EXPECT_EQ(field.screen(), "[ගෙඩ්\u200Dර්]") << "no such row";
    field.apply(field.typing.choose(1));
    EXPECT_EQ(field.screen(), "ගෙදර");
    EXPECT_EQ(field.store.countOf("ගෙදර"), 1);
    field.type("gedr");
    field.apply(field.typing.choose(0));
    EXPECT_EQ(field.screen(), "ගෙදරගෙඩ්\u200Dර්");
}

TEST(CandidateTyping, PutsInWhatIsMarkedWhereTheClientIsLost) {
    LinedField field;
    field.type("gedr<down>");
    field.apply(field.typing.end());
    EXPECT_EQ(field.screen(), "ගෙදර");
    EXPECT_FALSE(field.typing.composer().isComposing());
    EXPECT_FALSE(field.typing.line().isShown());
    field.type("gedr<down>");
    EXPECT_EQ(field.typing.forget(), "ගෙදර") << "which others have put in";
    EXPECT_FALSE(field.typing.line().isShown());
    field.marked.clear();
    field.type("gedr");
    EXPECT_EQ(field.typing.forget(), "ගෙඩ්\u200Dර්");
    EXPECT_EQ(field.lessons, 0) << "nobody said that this was meant";
}

TEST(CandidateTyping, LearnsWhatWasMeant) {
    struct Row {
        const char *keys, *learnt;
        int count;
    };
    for (const Row& row : std::vector<Row>{
             {"gedhara<space>", "ගෙදර", 1},
             {"gedhara.", "ගෙදර", 1},
             {"gedhara1", "ගෙදර", 1},
             {"gedhara<return>", "ගෙදර", 1},
             {"gedhara<enter>", "ගෙදර", 1},
             {"gedr<down><space>", "ගෙදර", 1},
             {"gedr<down><return>", "ගෙදර", 1},
             {"gedhara<space>gedhara<space>", "ගෙදර", 2},
             {"gedhara<escape>", "ගෙදර", 0},
             {"gedhara<left>", "ගෙදර", 0},
             {"gedhara<C-c>", "ගෙදර", 0},
             {"gedhara<C-space>", "ගෙදර", 0},
             {"zz<tab>", "zz", 0},
             {"gedhara<space><delete>", "ගෙදර", 0}, // taken back
             {"gedhara<space><C-delete>", "ගෙදර", 0},
             {"gedhara<return><delete>", "ගෙදර", 0},
             {"gedhara<space><left><delete>", "ගෙදර", 1}, // something else
             {"gedhara<space><delete>gedhara<space><delete><delete>", "ගෙදර", 0},
             {"gedhara<space>gedhara<space><delete><delete>", "ගෙදර", 1}, // the last one
         }) {
        LinedField field;
        field.type(row.keys);
        EXPECT_EQ(field.store.countOf(row.learnt), row.count) << row.keys;
    }
}

TEST(CandidateTyping, LearnsHowAnEnglishWordWasMeant) {
    LinedField field;
    field.type("hello<down><space>hello<down>.hello<space>");
    EXPECT_EQ(field.store.useOf("hello"), (PersonalWords::EnglishUse{2, 1}));
}

TEST(CandidateTyping, LearnsNoEmoji) {
    LinedField field;
    field.type("mala<up><space>");
    EXPECT_EQ(field.lessons, 0);
}

TEST(CandidateTyping, LearnsNothingWhereItShallNot) {
    LinedField field;
    field.typing.setLearning(false);
    field.type("gedhara<space>gedr<down><space>");
    EXPECT_EQ(field.lessons, 0);
    field.typing.setLearning(true);
    field.type("gedhara<space>");
    field.typing.setLearning(false);
    field.type("<delete>");
    EXPECT_EQ(field.lessons, 1);
}

TEST(CandidateTyping, TakesBackWhatTheKeyBeforeTaught) {
    LinedField field;
    field.type("gedhara<space><left><delete>");
    EXPECT_EQ(field.lessons, 1) << "another key came between";
    field.type("gedhara<space>");
    field.typing.end();
    field.type("<delete>");
    EXPECT_EQ(field.lessons, 2) << "the client was lost";
    field.type("gedhara<space>");
    field.typing.forget();
    field.type("<delete>");
    EXPECT_EQ(field.lessons, 3) << "the client took the text";
    field.type("gedhara<space>");
    field.typing.setSuggesting(false);
    field.type("<delete>");
    EXPECT_EQ(field.lessons, 5) << "suggestions are off, and learning is not";
    EXPECT_EQ(field.store.countOf("ගෙදර"), 3);
}

TEST(CandidateTyping, FindsWhatWasTakenFirst) {
    LinedField field;
    field.type("gedr<down><down><space>gedr<down>");
    EXPECT_EQ(field.screen(), "ගෙදරට [ගෙදරට]");
}

TEST(CandidateTyping, ForgetsALearntRow) {
    LinedField field;
    field.store.learn({"gedharakata", "ගෙදරකට"});
    field.type("gedr<down>");
    EXPECT_EQ(field.screen(), "[ගෙදරකට]");
    field.type("<S-forwarddelete>");
    EXPECT_EQ(field.screen(), "[ගෙඩ්\u200Dර්]");
    EXPECT_EQ(field.typing.line().rows.size(), 3U) << "gone from the line that is shown, too";
    field.type("<space>zz<space>gedr<up>");
    EXPECT_EQ(field.screen(), "ගෙඩ්\u200Dර් zz [ගෙදරට]");
    EXPECT_TRUE(field.store.words()->forgotten.contains("ගෙදරකට"));
}

TEST(CandidateTyping, ShowsNoLineOfWhatWasTypedAloneOnceTheRestIsForgotten) {
    LinedField field;
    field.store.learn({"babaa", "\u0DB6\u0DB6\u0DCF"});
    field.type("bab<down>");
    ASSERT_EQ(field.screen(), "[\u0DB6\u0DB6\u0DCF]");
    ASSERT_EQ(field.typing.line().rows.size(), 2U);
    field.type("<S-forwarddelete>");
    EXPECT_EQ(field.screen(), "[\u0DB6\u0DB6\u0DCA]");
    EXPECT_FALSE(field.typing.line().isShown());
}

TEST(CandidateTyping, GoesOnWhereSuggestionsAreSwitched) {
    LinedField field;
    field.type("gedr");
    field.typing.setSuggesting(false);
    EXPECT_FALSE(field.typing.line().isShown());
    field.typing.setSuggesting(true);
    field.answer();
    field.type("<down>");
    field.typing.setSuggesting(false);
    field.typing.setLearning(false);
    field.type("<space>");
    EXPECT_EQ(field.screen(), "ගෙදර ") << "what was marked, to the end of the word";
    field.type("gedr<down>");
    EXPECT_EQ(field.screen(), "ගෙදර ගෙඩ්\u200Dර්<down>");
    field.type("gedr");
    field.typing.setSuggesting(true);
    field.answer();
    field.type("<down>");
    EXPECT_TRUE(field.screen().ends_with("[ගෙදර]")) << "in the middle of a word";
    field.typing.setSuggesting(false);
    EXPECT_TRUE(field.typing.line().isShown()) << "for the row that is marked";
    field.type("<escape>");
    EXPECT_FALSE(field.typing.line().isShown()) << "and the line takes no more keys";
}

TEST(CandidateTyping, WithoutSuggestionsIsTyping) {
    const std::vector<std::string> names = test::keyNames();
    test::Randoms randoms(14);
    for (int round = 0; round < 200; ++round) {
        Typing plain(standardKeys());
        CandidateTyping lined(standardKeys());
        for (int i = 0; i < 40; ++i) {
            const KeyEvent event = randoms.oneIn(3) ? *test::keyNamed(randoms.of(names))
                                                    : KeyEvent{.characters = randoms.keys(1)};
            ASSERT_EQ(lined.press(event, standardKeys()),
                      (TypingStep{plain.press(event, standardKeys()), {}}));
            ASSERT_FALSE(lined.line().isShown());
            ASSERT_EQ(lined.request(), std::nullopt);
        }
    }
}

/// Every key, but those that a line has for itself.
TEST(CandidateTyping, UntilTheHighlightMovesPutsInWhatTypingDoes) {
    std::vector<std::string> names = test::keyNames();
    std::erase_if(names, [](const std::string& name) {
        return name == "<up>" || name == "<down>" || name == "<tab>" || name == "<backtab>";
    });
    for (const char* name : {"gedr", "mala", "hello", "<C-a>", "1", "."})
        names.emplace_back(name);
    test::Randoms randoms(15);
    for (int round = 0; round < 300; ++round) {
        LinedField with(true), without(false);
        for (int i = 0; i < 40; ++i) {
            const std::string typed = randoms.oneIn(2) ? randoms.of(names) : randoms.keys(2);
            with.type(typed);
            without.type(typed);
            ASSERT_EQ(with.screen(), without.screen()) << typed;
        }
    }
}

/// Whatever is pressed, what is marked when the word ends is what goes in.
TEST(CandidateTyping, LosesNothingWhateverIsPressed) {
    std::vector<std::string> names = test::keyNames();
    for (const char* name : {"gedr", "mala", "hello", "<down>", "<down>", "<S-forwarddelete>"})
        names.emplace_back(name);
    test::Randoms randoms(16);
    for (int round = 0; round < 300; ++round) {
        LinedField field;
        for (int i = 0; i < 40; ++i) {
            for (const KeyEvent& event : test::keys(randoms.of(names))) {
                const std::string marked = field.marked, before = field.text;
                const std::string raw = field.typing.composer().raw();
                field.press(event);
                const bool isOver =
                    !marked.empty() && field.marked.empty() && event.keyCode != KeyEvent::deleteBackward;
                const std::string& ended = event.keyCode == KeyEvent::escape ? raw : marked;
                ASSERT_TRUE(field.text.starts_with(before + (isOver ? ended : "")));
                ASSERT_EQ(field.marked.empty(), !field.typing.composer().isComposing());
            }
        }
    }
}

} // namespace

} // namespace vanoka
