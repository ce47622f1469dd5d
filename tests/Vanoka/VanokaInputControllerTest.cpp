#include "VanokaInputController.h"

#include "Keys.h"
#include "MemoryWordStore.h"
#include "Randoms.h"
#include "Replay.h"
#include "TextField.h"
#include "text/Utf8.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>

namespace vanoka {

namespace {

constexpr const char* ownIdentifier = "org.example.vanoka";

class VanokaInputControllerTest : public testing::Test {
protected:
    bool press(const KeyEvent& event) { return controller.handle(&event, &field); }

    /// Presses keys as a person does: the field gets what is not consumed.
    void type(const std::vector<KeyEvent>& events) {
        for (const KeyEvent& event : events)
            if (!press(event))
                field.apply(event);
    }
    void type(std::string_view text) { type(test::keys(text)); }

    MemoryUserDefaults defaults;
    SinglishSettings settings{defaults};
    VanokaInputController controller{ownIdentifier, settings};
    test::TextField field;
};

TEST_F(VanokaInputControllerTest, ConsumesExactlyWhatTheTableSays) {
    struct Row {
        const char* key;
        bool idle, composing; // consumed
    };
    const std::vector<Row> rows = {
        {"a", true, true},
        {"Z", true, true},
        {"<space>", false, true},
        {"<escape>", false, true},
        {"<delete>", false, true},
        {"1", false, true},
        {".", false, true},
        {"\u00E9", false, true},
        {"\u0D9A", false, true},
        {"<return>", false, false},
        {"<enter>", false, false},
        {"<tab>", false, false},
        {"<left>", false, false},
        {"<end>", false, false},
        {"<pagedown>", false, false},
        {"<forwarddelete>", false, false},
        {"<f1>", false, false},
        {"<dead>", false, false},
        {"<C-c>", false, false},
        {"<A-a>", false, false},
        {"<D-v>", false, false},
        {"<C-space>", false, false},
        {"<D-delete>", false, false},
        {"<A-escape>", false, false},
    };
    for (const Row& row : rows) {
        const KeyEvent event = *test::keyNamed(row.key);
        controller.commitComposition(&field);
        EXPECT_EQ(press(event), row.idle) << row.key << " while idle";
        controller.commitComposition(&field);
        press({.characters = "k"});
        EXPECT_EQ(press(event), row.composing) << row.key << " while composing";
    }
}

TEST_F(VanokaInputControllerTest, TheKeyCodeDecidesBeforeTheCharacters) {
    press({.characters = "k"});
    EXPECT_TRUE(press({.keyCode = KeyEvent::space, .characters = "a"}));
    EXPECT_EQ(field.screen(), "\u0D9A\u0DCA ");
    press({.characters = "k"});
    EXPECT_TRUE(press({.keyCode = KeyEvent::escape, .characters = std::nullopt}));
    EXPECT_EQ(field.screen(), "\u0D9A\u0DCA k");
    press({.characters = "k"});
    EXPECT_TRUE(press({.keyCode = KeyEvent::deleteBackward, .characters = "x"}));
    EXPECT_EQ(field.screen(), "\u0D9A\u0DCA k[\u0D9A]");
    EXPECT_TRUE(press({.keyCode = 0, .characters = " "})) << "a space that is not the Space key is printable";
    EXPECT_EQ(field.screen(), "\u0D9A\u0DCA k\u0D9A ");
}

TEST_F(VanokaInputControllerTest, DeclinesWhatIsNoKeyOfATextClient) {
    const KeyEvent letter{.characters = "a"};
    EXPECT_FALSE(controller.handle(nullptr, &field));
    EXPECT_FALSE(controller.handle(&letter, nullptr));
    EXPECT_FALSE(controller.handle(nullptr, nullptr));
    for (const std::uint64_t type : {0U, 1U, 9U, 11U, 12U})
        EXPECT_FALSE(press({.type = type, .characters = "a"}));
    EXPECT_FALSE(controller.composer().isComposing());
    press(letter);
    controller.handle(nullptr, &field);
    controller.commitComposition(nullptr);
    controller.deactivateServer(nullptr);
    EXPECT_TRUE(controller.composer().isComposing()) << "and leaves the composition alone";
}

TEST_F(VanokaInputControllerTest, TypesPlainLatinIntoItsOwnWindows) {
    press({.characters = "a"});
    test::TextField own(ownIdentifier), nameless(std::nullopt);
    const KeyEvent letter{.characters = "k"};
    const KeyEvent shortcut{.modifierFlags = KeyEvent::command, .characters = "c"};
    EXPECT_FALSE(controller.handle(&letter, &own));
    EXPECT_FALSE(controller.handle(&shortcut, &own));
    EXPECT_EQ(controller.composer().raw(), "a");
    EXPECT_TRUE(controller.handle(&letter, &nameless));

    VanokaInputController namelessController(std::nullopt, settings);
    EXPECT_FALSE(namelessController.handle(&letter, &nameless)) << "both without a name are the same";
    EXPECT_TRUE(namelessController.handle(&letter, &own));
}

TEST_F(VanokaInputControllerTest, ShiftAndCapsLockOnlyChangeTheCharacters) {
    constexpr std::uint64_t capsLock = 1U << 16, shift = 1U << 17, numericPad = 1U << 21, function = 1U << 23;
    EXPECT_TRUE(press({.modifierFlags = shift, .characters = "A"}));
    EXPECT_TRUE(press({.modifierFlags = capsLock | numericPad | function, .characters = "A"}));
    EXPECT_EQ(field.screen(), "[\u0D88]");
}

/// A client that nothing is to be told.
class LeftAlone final : public TextInputClient {
public:
    std::optional<std::string> bundleIdentifier() const override { return "com.example.editor"; }
    void insertText(std::string_view text, TextRange /*replacement*/) override { ADD_FAILURE() << text; }
    void setMarkedText(const MarkedText& text, TextRange /*selection*/, TextRange /*replacement*/) override {
        ADD_FAILURE() << "[" << text.text << "]";
    }
};

TEST_F(VanokaInputControllerTest, ForAKeyThatIsTheClientsItIsToldNothing) {
    LeftAlone client;
    for (const KeyEvent& key : test::keys("1.<space><return><left><delete><escape><C-c>"))
        EXPECT_FALSE(controller.handle(&key, &client));
    controller.commitComposition(&client);
}

TEST_F(VanokaInputControllerTest, SeveralCharactersAtOnceAreNoLetter) {
    EXPECT_FALSE(press({.characters = "ab"})) << "idle: the client's";
    press({.characters = "k"});
    EXPECT_TRUE(press({.characters = "ab"}));
    EXPECT_EQ(field.screen(), "\u0D9A\u0DCAab");
    press({.characters = "k"});
    EXPECT_TRUE(press({.characters = "a\u0301"}));
    EXPECT_EQ(field.screen(), "\u0D9A\u0DCAab\u0D9A\u0DCAa\u0301");
    press({.characters = "k"});
    EXPECT_TRUE(press({.characters = "\u212A"})) << "canonically K, but no ASCII letter";
    EXPECT_EQ(field.screen(), "\u0D9A\u0DCAab\u0D9A\u0DCAa\u0301\u0D9A\u0DCA\u212A");
}

TEST_F(VanokaInputControllerTest, UnprintableCharactersEndTheWordAndPass) {
    using namespace std::string_literals;
    const std::string unprintable[] = {
        "\r",   "\n",     "\t",     "\r\n",   "\x03",   "\x1B",   "\x7F",   "\0"s,
        "a\r",  "\u200D", "\uFEFF", "\u00AD", "\u0085", "\uF700", "\uF8FF", "\U0001F469\u200D\U0001F467",
        "\xFF", "1\xE0"};
    for (const std::string& characters : unprintable) {
        press({.characters = "k"});
        EXPECT_FALSE(press({.characters = characters})) << testing::PrintToString(characters);
        EXPECT_FALSE(controller.composer().isComposing()) << testing::PrintToString(characters);
        EXPECT_TRUE(field.text().ends_with("\u0D9A\u0DCA"));
    }
    for (const char* characters : {"\uF6FF", "\uF900", "\u00A0", "\U0001F600", "\u0301", "\u2028"}) {
        press({.characters = "k"});
        EXPECT_TRUE(press({.characters = characters})) << testing::PrintToString(characters);
    }
}

TEST_F(VanokaInputControllerTest, EachEndOfAWordIsOneInsertion) {
    for (const char* end : {"<space>", "<escape>", ".", "<return>", "<C-c>", "<dead>"}) {
        const std::size_t before = field.insertions();
        type("amma");
        EXPECT_EQ(field.insertions(), before);
        type(end);
        EXPECT_EQ(field.insertions(), before + 1) << end;
    }
    const std::size_t before = field.insertions();
    type("<space>.<escape><return><C-c><dead><delete>");
    controller.commitComposition(&field);
    controller.deactivateServer(&field);
    EXPECT_EQ(field.insertions(), before) << "nothing is composed, so nothing goes in";
}

TEST_F(VanokaInputControllerTest, TheCaretIsCountedInUtf16Units) {
    struct Caret final : TextInputClient {
        std::optional<std::string> bundleIdentifier() const override { return "client"; }
        void insertText(std::string_view, TextRange) override {}
        void setMarkedText(const MarkedText& text, TextRange selection, TextRange replacement) override {
            marked = text;
            caret = selection;
            range = replacement;
        }
        MarkedText marked;
        TextRange caret, range;
    } client;
    for (const KeyEvent& event : test::keys("shrii"))
        controller.handle(&event, &client);
    EXPECT_EQ(client.marked, (MarkedText{"\u0DC1\u0DCA\u200D\u0DBB\u0DD3", MarkedText::Underline::single}));
    EXPECT_EQ(client.caret, (TextRange{5, 0}));
    EXPECT_EQ(client.range, (TextRange{INT64_MAX, INT64_MAX}));
}

TEST_F(VanokaInputControllerTest, AnEmptiedCompositionClearsTheMarkedText) {
    type("a<delete>");
    EXPECT_EQ(field.marked(), "");
    EXPECT_FALSE(controller.composer().isComposing());
    EXPECT_FALSE(press(*test::keyNamed("<delete>")));
}

TEST_F(VanokaInputControllerTest, AClientThatCallsBackCannotCommitTwice) {
    struct CallingBack final : TextInputClient {
        std::optional<std::string> bundleIdentifier() const override { return "client"; }
        void insertText(std::string_view text, TextRange) override {
            inserted += text;
            controller->commitComposition(this);
            controller->deactivateServer(this);
        }
        void setMarkedText(const MarkedText&, TextRange, TextRange) override {}
        VanokaInputController* controller = nullptr;
        std::string inserted;
    } client;
    client.controller = &controller;
    for (const KeyEvent& event : test::keys("ka<space>ka.ka<escape>ka<return>"))
        controller.handle(&event, &client);
    EXPECT_EQ(client.inserted, "\u0D9A \u0D9A.ka\u0D9A");
}

TEST_F(VanokaInputControllerTest, ActivationAdoptsStoredKeysForTheNextKey) {
    type("q");
    defaults.setData(SinglishSettings::storedName,
                     "{\"addedKeys\":[{\"key\":\"q\",\"letter\":\"\u0D9A\"}],\"disabledKeys\":[]}");
    controller.activateServer();
    EXPECT_EQ(field.screen(), "[q]") << "the composition is not touched";
    controller.commitComposition(&field);
    EXPECT_EQ(field.screen(), "q") << "and is read as the last key was";
    type("qa");
    EXPECT_EQ(field.screen(), "q[\u0D9A]");
}

TEST_F(VanokaInputControllerTest, TwoClientsNeverShareAComposition) {
    VanokaInputController other(ownIdentifier, settings);
    test::TextField otherField;
    const KeyEvent k{.characters = "k"}, a{.characters = "a"};
    controller.handle(&k, &field);
    other.handle(&a, &otherField);
    controller.handle(&a, &field);
    other.deactivateServer(&otherField);
    EXPECT_EQ(field.screen(), "[\u0D9A]");
    EXPECT_EQ(otherField.screen(), "\u0D85");
}

TEST_F(VanokaInputControllerTest, AsksForKeyDownEventsOnly) {
    EXPECT_EQ(VanokaInputController::recognizedEvents, 1024U);
    EXPECT_EQ(VanokaInputController::noReplacement, (TextRange{INT64_MAX, INT64_MAX}));
}

TEST_F(VanokaInputControllerTest, HasAMenuOfTwoItems) {
    using Action = VanokaInputController::MenuAction;
    const auto menu = VanokaInputController::menu();
    ASSERT_EQ(menu.size(), 2U);
    EXPECT_EQ(menu[0], (VanokaInputController::MenuItem{"Vanoka Settings\u2026", Action::showSettings, ""}));
    EXPECT_EQ(menu[1], (VanokaInputController::MenuItem{"About Vanoka", Action::showAbout, ""}));
}

TEST_F(VanokaInputControllerTest, AgreesWithTheComposer) {
    test::Randoms randoms(8);
    for (int round = 0; round < 200; ++round) {
        SinglishComposer composer(settings.transliterator());
        for (const KeyEvent& event : test::keys(randoms.keys(8))) {
            press(event);
            composer.insert(*event.characters);
            if (randoms.oneIn(6)) {
                press(*test::keyNamed("<delete>"));
                composer.deleteBackward();
            }
            ASSERT_EQ(field.marked(), composer.preview());
        }
        const std::string before = field.text();
        controller.commitComposition(&field);
        ASSERT_EQ(field.text(), before + composer.commit());
    }
}

TEST_F(VanokaInputControllerTest, NoKeyIsLostWhateverTheOrder) {
    struct Other {
        const char* key;
        const char* inserted; // with the word; nothing for a key that passes
    };
    const std::vector<Other> others = {{"<space>", " "}, {".", "."},    {"1", "1"},    {"<return>", ""},
                                       {"<tab>", ""},    {"<C-c>", ""}, {"<left>", ""}};
    test::Randoms randoms(9);
    for (int round = 0; round < 300; ++round) {
        test::TextField each;
        std::string expected;
        for (int i = 0; i < 10; ++i) {
            const std::string word = randoms.keys(4);
            for (const KeyEvent& event : test::keys(word))
                ASSERT_TRUE(controller.handle(&event, &each));
            const Other& other = randoms.of(others);
            const bool isEscaped = randoms.oneIn(3), isConsumed = isEscaped || *other.inserted != '\0';
            const KeyEvent event = *test::keyNamed(isEscaped ? "<escape>" : other.key);
            ASSERT_EQ(controller.handle(&event, &each), isConsumed && !word.empty()) << other.key;
            if (isEscaped)
                expected += word;
            else if (!word.empty())
                expected += settings.transliterator().transliterate(word) + other.inserted;
            ASSERT_EQ(each.text(), expected);
            ASSERT_EQ(each.marked(), "");
        }
    }
}

TEST_F(VanokaInputControllerTest, AnEmojiWithAJoinerGoesToTheClientByItself) {
    press({.characters = "a"});
    const KeyEvent emoji{.characters = "\U0001F469\u200D\U0001F4BB"};
    EXPECT_FALSE(press(emoji)) << "it holds a format character";
    EXPECT_EQ(field.screen(), "\u0D85");
    field.apply(emoji);
    EXPECT_EQ(field.screen(), "\u0D85\U0001F469\u200D\U0001F4BB");
}

/// A field that asks the controller itself.
class NearField final : public test::ServedField {
public:
    explicit NearField(SinglishSettings& settings, Suggestions* suggestions = nullptr)
        : controller_(ownIdentifier, settings) {
        controller_.setSuggestions(suggestions);
    }

    void press(const KeyEvent& event) override {
        if (!controller_.handle(&event, &field()))
            field().apply(event);
        controller_.updateCandidates();
    }
    void askForComposition() override { controller_.commitComposition(&field()); }
    void leaveAndReturn() override { controller_.deactivateServer(&field()); }
    void chooseCandidate(std::size_t row) override { controller_.chooseCandidate(row, &field()); }

private:
    VanokaInputController controller_;
};

std::string contentsOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::shared_ptr<const SuggestionLists> listsIn(const std::filesystem::path& folder) {
    return std::make_shared<const SuggestionLists>(
        readSuggestionLists({contentsOf(folder / "si.tsv"), contentsOf(folder / "en.tsv"),
                             contentsOf(folder / "emoji.tsv"), contentsOf(folder / "never-offered.txt")}));
}

void replayAll(const std::vector<test::Scenario>& scenarios, const Suggestions& from) {
    ASSERT_FALSE(scenarios.empty());
    for (const test::Scenario& scenario : scenarios) {
        MemoryUserDefaults defaults;
        SinglishSettings settings(defaults);
        test::MemoryWordStore store;
        Suggestions suggestions = from;
        suggestions.store = &store;
        NearField field(settings, &suggestions);
        test::replay(scenario, field, settings);
    }
}

TEST(Scenarios, ShowOnTheScreenWhatTheySay) {
    const std::vector<test::Scenario> scenarios = test::allScenarios();
    ASSERT_FALSE(scenarios.empty());
    for (const test::Scenario& scenario : scenarios) {
        MemoryUserDefaults defaults;
        SinglishSettings settings(defaults);
        NearField field(settings);
        test::replay(scenario, field, settings);
    }
}

TEST(Scenarios, ShowTheSameWithSuggestionsThatAreOff) {
    replayAll(test::allScenarios(), {.areOn = false, .lists = listsIn(VANOKA_TESTS_FOLDER "/../data")});
}

TEST(Scenarios, ShowTheSameWithSuggestionsWhereTheHighlightDoesNotMove) {
    std::vector<test::Scenario> scenarios = test::allScenarios();
    EXPECT_EQ(std::erase_if(scenarios, [](const auto& each) { return each.name == "return-and-tab"; }), 1U)
        << "where Tab moves it";
    replayAll(scenarios, {.areOn = true, .lists = listsIn(VANOKA_TESTS_FOLDER "/../data")});
}

TEST(Scenarios, WithALineOfCandidatesShowWhatTheySay) {
    replayAll(test::suggestionScenarios(), {.areOn = true, .lists = listsIn(test::scenarioLists())});
}

/// A controller with suggestions.
class SuggestingControllerTest : public VanokaInputControllerTest {
protected:
    void SetUp() override {
        suggestions.areOn = true;
        suggestions.lists = listsIn(test::scenarioLists());
        suggestions.store = &store;
        controller.setSuggestions(&suggestions);
    }

    test::MemoryWordStore store;
    Suggestions suggestions;
};

TEST_F(SuggestingControllerTest, AKeyThatMovesTheHighlightFindsTheCandidatesItself) {
    type("gedr<down>");
    ASSERT_EQ(controller.candidates().highlighted, 1U);
    EXPECT_EQ(field.screen(), "[" + controller.candidates().rows[1].text + "]");
}

TEST_F(SuggestingControllerTest, ThePreviewGoesOutBeforeCandidatesAreFound) {
    type("gedr");
    EXPECT_EQ(field.screen(), "[ගෙඩ්\u200Dර්]");
    EXPECT_FALSE(controller.candidates().isShown());
    EXPECT_TRUE(controller.updateCandidates());
    EXPECT_EQ(controller.candidates().rows.size(), 3U);
    EXPECT_FALSE(controller.updateCandidates()) << "nothing new";
    type("<down>");
    EXPECT_TRUE(controller.updateCandidates());
    EXPECT_EQ(controller.candidates().highlighted, 1U);
    type("<space>");
    EXPECT_FALSE(controller.candidates().isShown());
    EXPECT_TRUE(controller.updateCandidates()) << "to be hidden";
    EXPECT_FALSE(controller.updateCandidates());
}

TEST_F(SuggestingControllerTest, KeysThatAreAddedAreReadFromTheNextOneOn) {
    suggestions.lists = std::make_shared<const SuggestionLists>(
        withReading(readSuggestionLists(
                        {.sinhala = "ගමන\t10\nකමන\t5000\n", .english = {}, .emoji = {}, .neverOffered = {}}),
                    TypedWords::Unlisted::none));
    const auto first = [this] {
        type("qaman");
        controller.updateCandidates();
        const std::string word = controller.candidates().rows.at(1).text;
        controller.commitComposition(&field);
        return word;
    };
    EXPECT_EQ(first(), "කමන");
    ASSERT_FALSE(settings.add("q", "ග"));
    EXPECT_EQ(first(), "ගමන");
    settings.reset();
    EXPECT_EQ(first(), "කමන");
}

TEST_F(SuggestingControllerTest, AKeyMeansTheSameWhetherTheyHaveComeOrNot) {
    type("gedr<tab><space>");
    EXPECT_EQ(field.screen(), "ගෙදර ");
}

TEST_F(SuggestingControllerTest, AClickOnTheLineOfAnOlderKeyDoesNothing) {
    type("ged");
    controller.updateCandidates();
    type("r");
    EXPECT_FALSE(controller.chooseCandidate(1, &field));
    EXPECT_FALSE(controller.moveHighlight(1, &field));
    controller.updateCandidates();
    EXPECT_FALSE(controller.chooseCandidate(1, nullptr));
    EXPECT_TRUE(controller.moveHighlight(-1, &field));
    EXPECT_EQ(field.screen(), "[ගෙදරට]");
    EXPECT_TRUE(controller.chooseCandidate(1, &field));
    EXPECT_EQ(field.screen(), "ගෙදර");
    EXPECT_FALSE(controller.chooseCandidate(0, &field));
}

TEST_F(SuggestingControllerTest, TheLineGoesWhereTheFieldProvesPrivateInAWord) {
    type("gedr");
    EXPECT_TRUE(controller.updateCandidates());
    controller.setFieldPrivacy(FieldPrivacy::notSuggested);
    EXPECT_TRUE(controller.updateCandidates());
    EXPECT_FALSE(controller.candidates().isShown());
}

TEST_F(SuggestingControllerTest, LearnsInOpenFieldsAlone) {
    type("gedhara<space>");
    EXPECT_EQ(store.countOf("ගෙදර"), 1);
    controller.setFieldPrivacy(FieldPrivacy::notLearnt);
    type("gedr<down><space>");
    EXPECT_EQ(field.screen(), "ගෙදර ගෙදර ") << "suggested all the same";
    controller.setFieldPrivacy(FieldPrivacy::notSuggested);
    type("gedr<down><return>gedhara<space>");
    EXPECT_EQ(field.screen(), "ගෙදර ගෙදර ගෙඩ්\u200Dර්\nගෙදර ");
    controller.updateCandidates();
    EXPECT_FALSE(controller.candidates().isShown());
    controller.setFieldPrivacy(FieldPrivacy::open);
    suggestions.isPrivate = true;
    type("gedhara<space>");
    EXPECT_EQ(store.countOf("ගෙදර"), 1);
    suggestions.isPrivate = false;
    type("gedhara<space>");
    EXPECT_EQ(store.countOf("ගෙදර"), 2);
}

TEST_F(SuggestingControllerTest, AClickTeachesNothingWhereTheFieldProvesPrivateInAWord) {
    for (const bool isChosen : {false, true}) {
        type("gedr");
        controller.updateCandidates();
        suggestions.isPrivate = isChosen;
        controller.setFieldPrivacy(isChosen ? FieldPrivacy::open : FieldPrivacy::notLearnt);
        EXPECT_TRUE(controller.chooseCandidate(1, &field));
        suggestions.isPrivate = false;
        controller.setFieldPrivacy(FieldPrivacy::open);
    }
    EXPECT_EQ(field.screen(), "ගෙදරගෙදර");
    EXPECT_EQ(store.countOf("ගෙදර"), 0);
}

TEST_F(SuggestingControllerTest, LearnsNothingWhereTheyAreOff) {
    suggestions.areOn = false;
    type("gedhara<space>gedr<down>");
    EXPECT_EQ(store.countOf("ගෙදර"), 0);
    EXPECT_EQ(field.screen(), "ගෙදර ගෙඩ්\u200Dර්");
}

TEST_F(SuggestingControllerTest, AreOffFromTheNextKeyOn) {
    type("gedr");
    suggestions.areOn = false;
    type("<tab>");
    EXPECT_EQ(field.screen(), "ගෙඩ්\u200Dර්\t");
}

TEST_F(SuggestingControllerTest, DoesWithoutListsAndWithoutAStore) {
    suggestions.lists = nullptr;
    store.learn({"gedhara", "ගෙදර"});
    type("gedr<tab><space>");
    EXPECT_EQ(field.screen(), "ගෙදර ") << "own words";
    suggestions.store = nullptr;
    type("gedr<tab>");
    EXPECT_EQ(field.screen(), "ගෙදර ගෙඩ්\u200Dර්\t");
}

TEST(Keys, AreReadAsTheyAreWritten) {
    std::vector<std::string> names = test::keyNames();
    for (const char* name :
         {"a", "Z", "\u0D9A", "\u00E9", " ", "<C-c>", "<A-x>", "<D-q>", "<C-A-D-space>", "<C-left>"})
        names.emplace_back(name);
    for (const std::string& name : names) {
        const auto event = test::keyNamed(name);
        ASSERT_TRUE(event.has_value()) << name;
        EXPECT_EQ(test::nameOf(*event), name);
    }
    for (const char* wrong : {"", "<", "<nothing>", "<C->", "<xy>"})
        EXPECT_EQ(test::keyNamed(wrong), std::nullopt) << wrong;
}

} // namespace

} // namespace vanoka
