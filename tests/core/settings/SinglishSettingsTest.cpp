#include "settings/SinglishSettings.h"

#include "Letters.h"
#include "settings/CustomizationJson.h"

#include <gtest/gtest.h>
#include <memory>
#include <unordered_set>
#include <vector>

namespace vanoka {

namespace {

using KeyProblem = SinglishSettings::KeyProblem;
using Kind = SinglishKeyState::Kind;

constexpr const char* a = "\u0D85";
constexpr const char* ga = "\u0D9C";

/// Counts what is stored.
class CountingDefaults final : public UserDefaults {
public:
    std::optional<std::string> data(std::string_view name) override { return stored_.data(name); }
    void setData(std::string_view name, const std::optional<std::string>& value) override {
        EXPECT_EQ(name, "vanoka.customization.v1");
        ++writes;
        stored_.setData(name, value);
    }
    std::optional<std::string> document() { return stored_.data("vanoka.customization.v1"); }
    void put(const std::optional<std::string>& document) {
        stored_.setData("vanoka.customization.v1", document);
    }

    int writes = 0;

private:
    MemoryUserDefaults stored_;
};

/// Defaults that several programs edit, which write down what is done to them.
class SharedDefaults final : public UserDefaults {
public:
    std::optional<std::string> data(std::string_view name) override {
        log += 'r';
        return stored_.data(name);
    }
    void setData(std::string_view name, const std::optional<std::string>& value) override {
        log += 'w';
        stored_.setData(name, value);
    }
    Lock lock(std::string_view name) override {
        EXPECT_EQ(name, SinglishSettings::storedName);
        log += '(';
        return {this, [this](void*) { log += ')'; }};
    }
    void setAside(std::string_view name) override {
        EXPECT_EQ(name, SinglishSettings::storedName);
        log += 'a';
    }
    Condition condition(std::string_view name) const override {
        return {.location = std::string(name), .unreadable = {}, .unstored = "No room", .setAside = {}};
    }

    std::string log;

private:
    MemoryUserDefaults stored_;
};

class SinglishSettingsTest : public testing::Test {
protected:
    static const SinglishScheme::Letter& letter(const char* id) { return *SinglishScheme::letter(id); }

    std::string keysOf(const char* id) const {
        std::string text;
        for (const SinglishKeyState& state : settings.keysFor(letter(id))) {
            text += text.empty() ? "" : " ";
            text += state.kind == Kind::added ? "+" : state.isOn ? "" : "-";
            text += state.key;
            if (state.takenBy)
                text += "(" + *state.takenBy + ")";
        }
        return text;
    }

    CountingDefaults defaults;
    SinglishSettings settings{defaults};
};

TEST_F(SinglishSettingsTest, FreshSettingsHaveTheBuiltInKeys) {
    EXPECT_TRUE(settings.customization().isEmpty());
    for (const auto& each : SinglishScheme::letters()) {
        const auto states = settings.keysFor(each);
        ASSERT_EQ(states.size(), each.keys.size());
        for (std::size_t i = 0; i < states.size(); ++i)
            EXPECT_EQ(states[i],
                      (SinglishKeyState{std::string(each.keys[i]), Kind::builtIn, true, std::nullopt}));
        EXPECT_FALSE(settings.isCustomized(each));
    }
    EXPECT_EQ(defaults.writes, 0);
}

TEST_F(SinglishSettingsTest, ChecksAKeyRuleByRule) {
    struct Row {
        std::string key;
        const char* letter;
        std::optional<KeyProblem> problem;
        std::optional<std::string_view> replaces;
    };
    const std::vector<Row> rows = {
        {"", ka, KeyProblem::empty, {}},
        {"k1", ka, KeyProblem::notLetters, {}},
        {" k", ka, KeyProblem::notLetters, {}},
        {"k ", ka, KeyProblem::notLetters, {}},
        {"\u0D9A", ka, KeyProblem::notLetters, {}},
        {"k\u0301", ka, KeyProblem::notLetters, {}},
        {"\u212A", ka, KeyProblem::notLetters, {}},
        {"\u00E9", ka, KeyProblem::notLetters, {}},
        {"\r\n", ka, KeyProblem::notLetters, {}},
        {"k\xFF", ka, KeyProblem::notLetters, {}},
        {"abcdefg", ka, KeyProblem::tooLong, {}},
        {"abcde1g", ka, KeyProblem::notLetters, {}},
        {"abcdefghijklm1", ka, KeyProblem::notLetters, {}},
        {"abcdef", ka, {}, {}},
        {"k", ka, KeyProblem::alreadyThisLetter, {}},
        {"k", ga, {}, ka},
        {"K", ka, {}, kha},
        {"Ka", ka, {}, {}},
        {"x", ka, {}, binduwa},
        {"x", binduwa, KeyProblem::alreadyThisLetter, {}},
        {"aa", a, {}, aa},
        {"q", "no letter", {}, {}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(settings.check(row.key, row.letter),
                  (SinglishSettings::KeyCheck{row.problem, row.replaces}))
            << testing::PrintToString(row.key);
    EXPECT_EQ(defaults.writes, 0);
}

TEST_F(SinglishSettingsTest, TellsEveryProblemInWords) {
    EXPECT_EQ(message(KeyProblem::empty), "Type a key");
    EXPECT_EQ(message(KeyProblem::notLetters), "Use English letters only");
    EXPECT_EQ(message(KeyProblem::tooLong), "Use at most 6 letters");
    EXPECT_EQ(message(KeyProblem::alreadyThisLetter), "This letter already has that key");
}

TEST_F(SinglishSettingsTest, AnAddedKeyIsInForceAndStored) {
    EXPECT_EQ(settings.add("q", ka), std::nullopt);
    EXPECT_EQ(keysOf(ka), "k +q");
    EXPECT_EQ(settings.transliterator().transliterate("qa"), ka);
    EXPECT_EQ(settings.activeKeysFor(letter(ka)), (std::vector<std::string>{"k", "q"}));
    EXPECT_TRUE(settings.isCustomized(letter(ka)));
    EXPECT_EQ(defaults.document(),
              "{\"addedKeys\":[{\"key\":\"q\",\"letter\":\"\u0D9A\"}],\"disabledKeys\":[]}");
    EXPECT_EQ(defaults.writes, 1);
}

TEST_F(SinglishSettingsTest, ARefusedKeyChangesNothing) {
    EXPECT_EQ(settings.add("k1", ka), KeyProblem::notLetters);
    EXPECT_EQ(settings.add("k", ka), KeyProblem::alreadyThisLetter);
    EXPECT_TRUE(settings.customization().isEmpty());
    EXPECT_EQ(defaults.writes, 0);
}

TEST_F(SinglishSettingsTest, ALettersOwnKeyThatIsOffIsSwitchedOnAgain) {
    settings.setBuiltIn("kh", false);
    EXPECT_EQ(keysOf(kha), "-kh K");
    EXPECT_FALSE(settings.keysFor(letter(kha))[0].isActive());
    EXPECT_TRUE(settings.isCustomized(letter(kha)));
    EXPECT_EQ(settings.check("kh", kha), SinglishSettings::KeyCheck());
    EXPECT_EQ(settings.add("kh", kha), std::nullopt);
    EXPECT_EQ(keysOf(kha), "kh K");
    EXPECT_TRUE(settings.customization().isEmpty());
    EXPECT_EQ(defaults.document(), std::nullopt);
}

TEST_F(SinglishSettingsTest, AnAddedKeyMovesToAnotherLetter) {
    settings.add("q", ka);
    settings.add("w", ka);
    settings.add("q", ga);
    EXPECT_EQ(settings.customization().addedKeys,
              (std::vector<SinglishCustomization::AddedKey>{{"w", ka}, {"q", ga}}));
    EXPECT_EQ(keysOf(ka), "k +w");
    EXPECT_EQ(keysOf(ga), "g +q");
}

TEST_F(SinglishSettingsTest, ATakenKeyIsShownAndCanBeTakenBack) {
    EXPECT_EQ(settings.check("kh", ga).replaces, kha);
    settings.add("kh", ga);
    EXPECT_EQ(keysOf(kha), "kh(\u0D9C) K");
    EXPECT_EQ(keysOf(ga), "g +kh");
    EXPECT_FALSE(settings.keysFor(letter(kha))[0].isActive());
    EXPECT_TRUE(settings.isCustomized(letter(kha)));
    EXPECT_TRUE(settings.customization().disabledKeys.empty());
    EXPECT_EQ(settings.activeKeysFor(letter(kha)), (std::vector<std::string>{"K"}));

    EXPECT_EQ(settings.check("kh", kha), (SinglishSettings::KeyCheck{std::nullopt, ga}));
    EXPECT_EQ(settings.add("kh", kha), std::nullopt);
    EXPECT_EQ(keysOf(kha), "kh K");
    EXPECT_EQ(keysOf(ga), "g");
    EXPECT_TRUE(settings.customization().isEmpty());
}

TEST_F(SinglishSettingsTest, AKeyThatIsOffIsNeverTaken) {
    settings.add("kh", ga);
    settings.setBuiltIn("kh", false);
    EXPECT_EQ(keysOf(kha), "-kh K");
    EXPECT_EQ(keysOf(ga), "g +kh");
    EXPECT_EQ(settings.transliterator().transliterate("kha"), ga);
}

TEST_F(SinglishSettingsTest, RemovesAnAddedKeyOfAnyLetter) {
    settings.add("q", ka);
    settings.setBuiltIn("k", false);
    settings.remove("q");
    EXPECT_EQ(keysOf(ka), "-k");
    settings.remove("k");
    EXPECT_EQ(keysOf(ka), "-k") << "removing leaves switched-off keys alone";
}

TEST_F(SinglishSettingsTest, SwitchingOffAndOnLeavesNothing) {
    settings.setBuiltIn("aa", false);
    EXPECT_EQ(defaults.document(), R"({"addedKeys":[],"disabledKeys":["aa"]})");
    settings.setBuiltIn("aa", true);
    EXPECT_TRUE(settings.customization().isEmpty());
    EXPECT_EQ(defaults.document(), std::nullopt);
    settings.setBuiltIn("no key", false);
    EXPECT_TRUE(settings.customization().disabledKeys.contains("no key")) << "the scheme is not asked";
}

TEST_F(SinglishSettingsTest, KeysAreComparedCanonically) {
    settings.setBuiltIn("\u212A", false);
    EXPECT_EQ(keysOf(kha), "kh -K");
    settings.setBuiltIn("K", true);
    EXPECT_EQ(keysOf(kha), "kh K");
    settings.add("K", ka);
    settings.remove("\u212A");
    EXPECT_EQ(keysOf(ka), "k");
}

TEST_F(SinglishSettingsTest, ResetDropsEverything) {
    settings.add("q", ka);
    settings.setBuiltIn("aa", false);
    settings.reset();
    EXPECT_TRUE(settings.customization().isEmpty());
    EXPECT_EQ(defaults.document(), std::nullopt);
    int announced = 0;
    const Subscription subscription = settings.observeWillChange([&] { ++announced; });
    settings.reloadIfChanged();
    EXPECT_EQ(announced, 0);
}

TEST_F(SinglishSettingsTest, EveryEditAnnouncesAndStoresOnce) {
    int announced = 0;
    const Subscription subscription = settings.observeWillChange([&] { ++announced; });
    const std::vector<std::function<void()>> edits = {
        [&] { settings.add("q", ka); },
        [&] { settings.remove("q"); },
        [&] { settings.remove("not there"); },
        [&] { settings.setBuiltIn("k", true); },
        [&] { settings.setBuiltIn("k", false); },
        [&] { settings.setBuiltIn("k", false); },
        [&] { settings.reset(); },
        [&] { settings.reset(); },
    };
    for (const auto& edit : edits) {
        announced = defaults.writes = 0;
        edit();
        EXPECT_EQ(announced, 1);
        EXPECT_EQ(defaults.writes, 1);
    }
    announced = defaults.writes = 0;
    settings.add("1", ka);
    EXPECT_EQ(announced + defaults.writes, 0) << "a refused one does neither";
}

TEST_F(SinglishSettingsTest, ObserversSeeTheOldCustomizationAndTheNewTransliterator) {
    std::vector<std::string> seen;
    const Subscription subscription = settings.observeWillChange([&] {
        seen.push_back(std::to_string(settings.customization().addedKeys.size()) +
                       settings.transliterator().transliterate("qa"));
    });
    settings.add("q", ka);
    settings.reset();
    EXPECT_EQ(seen, (std::vector<std::string>{"0\u0D9A", "1q\u0D85"}));
    EXPECT_TRUE(settings.customization().isEmpty());
}

TEST_F(SinglishSettingsTest, ValuesArePublishedFromTheCurrentOneOn) {
    std::vector<std::size_t> published;
    std::vector<std::size_t> inForce;
    Subscription subscription = settings.observeCustomization([&](const SinglishCustomization& value) {
        published.push_back(value.addedKeys.size());
        inForce.push_back(settings.customization().addedKeys.size());
    });
    settings.add("q", ka);
    settings.add("w", ka);
    EXPECT_EQ(published, (std::vector<std::size_t>{0, 1, 2}));
    EXPECT_EQ(inForce, (std::vector<std::size_t>{0, 0, 1}));
    subscription.end();
    settings.reset();
    EXPECT_EQ(published.size(), 3U);
}

TEST_F(SinglishSettingsTest, SubscriptionsEndWithTheirHandle) {
    int first = 0, second = 0, late = 0;
    Subscription lateOne;
    auto firstOne = std::make_unique<Subscription>();
    *firstOne = settings.observeWillChange([&] {
        ++first;
        firstOne.reset(); // ends itself
        lateOne = settings.observeWillChange([&] { ++late; });
    });
    const Subscription secondOne = settings.observeWillChange([&] { ++second; });
    settings.reset();
    EXPECT_EQ(first + second + late, 2);
    settings.reset();
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 2);
    EXPECT_EQ(late, 1);
}

TEST(SinglishSettings, ASubscriptionMayOutliveTheSettings) {
    MemoryUserDefaults defaults;
    Subscription subscription;
    auto observed = std::make_shared<int>();
    const std::weak_ptr<int> held = observed;
    {
        SinglishSettings settings(defaults);
        subscription = settings.observeWillChange([kept = std::move(observed)] { ++*kept; });
    }
    EXPECT_FALSE(held.expired()) << "the subscription keeps its observer";
    subscription.end();
    EXPECT_TRUE(held.expired()) << "and releases it";
}

TEST_F(SinglishSettingsTest, AnotherProcessesChangeIsAdoptedWhole) {
    settings.add("q", ka);
    int announced = 0;
    const Subscription subscription = settings.observeWillChange([&] { ++announced; });
    settings.reloadIfChanged();
    EXPECT_EQ(announced, 0) << "its own writing is no change";

    defaults.put("{\"addedKeys\":[],\"disabledKeys\":[\"k\"]}");
    defaults.writes = 0;
    settings.reloadIfChanged();
    EXPECT_EQ(announced, 1);
    EXPECT_EQ(keysOf(ka), "-k");
    EXPECT_EQ(settings.transliterator().transliterate("ka"), "k\u0D85");
    EXPECT_EQ(defaults.writes, 0) << "a reload stores nothing";

    defaults.put("{\"addedKeys\":[],\"disabledKeys\":[\"k\"]}");
    settings.reloadIfChanged();
    EXPECT_EQ(announced, 1) << "the same bytes are no change";

    defaults.put("{\"addedKeys\":[], \"disabledKeys\":[\"k\"]}");
    settings.reloadIfChanged();
    EXPECT_EQ(announced, 2) << "other bytes are one, whatever they say";

    defaults.put(std::nullopt);
    settings.reloadIfChanged();
    EXPECT_TRUE(settings.customization().isEmpty());
    EXPECT_EQ(announced, 3);
}

TEST(SinglishSettings, WhatDoesNotDecodeIsLeftUntilTheNextEdit) {
    CountingDefaults defaults;
    defaults.put("not JSON");
    SinglishSettings settings(defaults);
    EXPECT_TRUE(settings.customization().isEmpty());
    settings.reloadIfChanged();
    EXPECT_EQ(defaults.document(), "not JSON");
    EXPECT_EQ(defaults.writes, 0);
    settings.add("q", ka);
    EXPECT_TRUE(CustomizationJson::decode(*defaults.document()).has_value());
    defaults.put("[");
    settings.reloadIfChanged();
    EXPECT_TRUE(settings.customization().isEmpty());
    EXPECT_EQ(defaults.document(), "[");
}

TEST(SinglishSettings, AnEditBeginsWithWhatOthersHaveStored) {
    SharedDefaults defaults;
    SinglishSettings ours(defaults), others(defaults);
    others.add("q", ka);
    defaults.log.clear();
    {
        const auto edit = ours.beginEdit();
        EXPECT_EQ(ours.customization().addedKeys.size(), 1U);
        ours.add("w", ka);
    }
    EXPECT_EQ(defaults.log, "(rw)") << "locked, read, written, unlocked";
    others.reloadIfChanged();
    EXPECT_EQ(others.customization().addedKeys,
              (std::vector<SinglishCustomization::AddedKey>{{"q", ka}, {"w", ka}}));
}

TEST(SinglishSettings, WhatDoesNotDecodeIsSetAsideBeforeItIsWrittenOver) {
    SharedDefaults defaults;
    SinglishSettings settings(defaults);
    EXPECT_FALSE(settings.isStoredDamaged());
    for (const auto& edit : std::vector<std::function<void()>>{
             [&] { settings.add("q", ka); }, [&] { settings.reset(); }, [&] { settings.replace({}); }}) {
        defaults.setData(SinglishSettings::storedName, "not JSON");
        settings.reloadIfChanged();
        EXPECT_TRUE(settings.isStoredDamaged());
        defaults.log.clear();
        edit();
        EXPECT_FALSE(settings.isStoredDamaged());
        settings.remove("q");
        EXPECT_EQ(defaults.log, "aww") << "once";
    }
    EXPECT_TRUE(settings.add("q1", ka).has_value());
    EXPECT_EQ(defaults.log, "aww") << "a refused edit does nothing";
}

TEST_F(SinglishSettingsTest, ReplacesEverythingInOneEdit) {
    settings.add("w", kha);
    defaults.writes = 0;
    int announced = 0;
    const Subscription subscription = settings.observeWillChange([&] { ++announced; });
    settings.replace({.addedKeys = {{"q", ka}, {"zz", ka}}, .disabledKeys = {"k"}});
    EXPECT_EQ(keysOf(ka), "-k +q +zz");
    EXPECT_EQ(keysOf(kha), "kh K");
    EXPECT_EQ(settings.transliterator().transliterate("qa"), ka);
    EXPECT_EQ(announced, 1);
    EXPECT_EQ(defaults.writes, 1);
    settings.replace({});
    EXPECT_EQ(defaults.document(), std::nullopt);
}

TEST(SinglishSettings, TellHowTheyAreStored) {
    SharedDefaults defaults;
    EXPECT_EQ(SinglishSettings(defaults).condition(), defaults.condition(SinglishSettings::storedName));
    MemoryUserDefaults nothingToTell;
    EXPECT_EQ(SinglishSettings(nothingToTell).condition(), UserDefaults::Condition());
    EXPECT_EQ(SinglishSettings(nothingToTell).beginEdit(), nullptr) << "and nobody to keep out";
}

TEST(SinglishSettings, StoredKeysAreInForceFromTheStart) {
    CountingDefaults defaults;
    defaults.put("{\"addedKeys\":[{\"key\":\"q\",\"letter\":\"\u0D9A\"},{\"key\":\"q\",\"letter\":\"none\"}],"
                 "\"disabledKeys\":[\"\"]}");
    SinglishSettings settings(defaults);
    EXPECT_EQ(settings.transliterator().transliterate("qa"), ka);
    EXPECT_EQ(settings.customization().addedKeys.size(), 2U);
}

TEST_F(SinglishSettingsTest, WhatCannotBeEncodedIsInForceButNotStored) {
    settings.add("q", ka);
    settings.setBuiltIn("\xFF", false);
    EXPECT_EQ(defaults.document(), std::nullopt);
    EXPECT_EQ(settings.customization().addedKeys.size(), 1U);
    settings.reloadIfChanged();
    EXPECT_EQ(settings.customization().addedKeys.size(), 1U);
}

TEST_F(SinglishSettingsTest, AKeyForAnUnknownLetterIsKeptButTypesNothing) {
    EXPECT_EQ(settings.add("q", "none"), std::nullopt);
    EXPECT_EQ(settings.customization().addedKeys.size(), 1U);
    EXPECT_EQ(settings.transliterator().letterTypedBy("q"), std::nullopt);
}

TEST(SinglishKeyState, EqualityAndHashTakeAllFields) {
    const SinglishKeyState base{"kh", Kind::builtIn, true, std::nullopt};
    const std::vector<SinglishKeyState> others = {
        {"K", Kind::builtIn, true, std::nullopt},
        {"kh", Kind::added, true, std::nullopt},
        {"kh", Kind::builtIn, false, std::nullopt},
        {"kh", Kind::builtIn, true, "\u0D9C"},
        {"kh", Kind::builtIn, true, ""},
    };
    EXPECT_EQ(base.id(), "kh");
    EXPECT_TRUE(base.isActive());
    std::unordered_set<SinglishKeyState> all(others.begin(), others.end());
    std::unordered_set<std::size_t> hashes{std::hash<SinglishKeyState>()(base)};
    for (const SinglishKeyState& other : others) {
        EXPECT_NE(base, other);
        hashes.insert(std::hash<SinglishKeyState>()(other));
    }
    EXPECT_EQ(hashes.size(), 6U);
    all.insert(base);
    all.insert(base);
    EXPECT_EQ(all.size(), 6U);
    EXPECT_FALSE(others[2].isActive());
    EXPECT_FALSE(others[3].isActive());
    EXPECT_NE(others[3], (SinglishKeyState{"kh", Kind::builtIn, true, "\u0D9D"}));
}

TEST_F(SinglishSettingsTest, OffersAreEqualInLetterAndKey) {
    using Offer = SinglishSettings::LongPressLetter;
    EXPECT_EQ((Offer{letter(ka), "K"}), (Offer{letter(ka), "\u212A"})) << "canonically equal";
    EXPECT_NE((Offer{letter(ka), "k"}), (Offer{letter(ka), "K"}));
    EXPECT_NE((Offer{letter(ka), "k"}), (Offer{letter(ga), "k"}));
}

} // namespace

} // namespace vanoka
