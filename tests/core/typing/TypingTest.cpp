#include "typing/Typing.h"

#include "Keys.h"
#include "Randoms.h"
#include "typing/FunctionKey.h"

#include <gtest/gtest.h>

namespace vanoka {

namespace {

using Effect = TypingEffect::Kind;

const SinglishTransliterator& builtIn() {
    return SinglishTransliterator::standard();
}

/// A field that does what it is told, and with a key that is its own writes the key's name.
class ToldField {
public:
    void press(const KeyEvent& event) {
        const KeyOutcome outcome = typing.press(event, builtIn());
        apply(outcome.effect);
        if (!outcome.isConsumed)
            text_ += test::nameOf(event);
    }
    void type(std::string_view names) {
        for (const KeyEvent& event : test::keys(names))
            press(event);
    }
    void apply(const TypingEffect& effect) {
        if (effect.kind == Effect::mark)
            marked_ = effect.text;
        if (effect.kind == Effect::insert) {
            text_ += effect.text;
            marked_.clear();
        }
    }
    std::string screen() const { return marked_.empty() ? text_ : text_ + "[" + marked_ + "]"; }

    Typing typing{builtIn()};

private:
    std::string text_, marked_;
};

TEST(Typing, SaysWhatEachKeyDoes) {
    struct Told {
        const char *keys, *screen;
    };
    for (const Told& row : std::vector<Told>{
             {"", ""},
             {"1.<space><return>", "1.<space><return>"},
             {"k", "[\u0D9A\u0DCA]"},
             {"ka", "[\u0D9A]"},
             {"ka<space>", "\u0D9A "},
             {"ka.", "\u0D9A."},
             {"ka<escape>", "ka"},
             {"ka<return>", "\u0D9A<return>"},
             {"ka<left>ma", "\u0D9A<left>[\u0DB8]"},
             {"ka<C-c>", "\u0D9A<C-c>"},
             {"kaa<delete>", "[\u0D9A]"},
             {"ka<delete><delete>", "<delete>"},
         }) {
        ToldField field;
        field.type(row.keys);
        EXPECT_EQ(field.screen(), row.screen) << row.keys;
    }
}

TEST(Typing, TakesKeyDownEventsOnly) {
    Typing typing(builtIn());
    typing.press({.characters = "k"}, builtIn());
    EXPECT_EQ(typing.press({.type = 11, .characters = "a"}, builtIn()), KeyOutcome{});
    EXPECT_EQ(typing.composer().raw(), "k");
}

TEST(Typing, AKeyWithoutTextPutsTheWordIn) {
    Typing typing(builtIn());
    EXPECT_EQ(typing.press({}, builtIn()), KeyOutcome{});
    typing.press({.characters = "k"}, builtIn());
    EXPECT_EQ(typing.press({}, builtIn()), (KeyOutcome{false, {Effect::insert, "\u0D9A\u0DCA"}}));
}

TEST(Typing, CopiesGoOnIndependently) {
    Typing typing(builtIn());
    typing.press({.characters = "k"}, builtIn());
    Typing other = typing;
    EXPECT_EQ(other.press({.characters = "a"}, builtIn()).effect, (TypingEffect{Effect::mark, "\u0D9A"}));
    EXPECT_EQ(typing.end(), (TypingEffect{Effect::insert, "\u0D9A\u0DCA"}));
    EXPECT_EQ(other.composer().raw(), "ka");
}

TEST(Typing, EndsOnceInEachWay) {
    const Typing composing = [] {
        Typing typing(builtIn());
        typing.press({.characters = "k"}, builtIn());
        return typing;
    }();
    Typing ended = composing, chosen = composing, forgotten = composing;
    EXPECT_EQ(ended.end(), (TypingEffect{Effect::insert, "\u0D9A\u0DCA"}));
    EXPECT_EQ(chosen.choose("\u0D9B"), (TypingEffect{Effect::insert, "\u0D9B"}));
    EXPECT_EQ(forgotten.forget(), "\u0D9A\u0DCA");
    for (Typing* typing : {&ended, &chosen, &forgotten}) {
        EXPECT_FALSE(typing->composer().isComposing());
        EXPECT_EQ(typing->end(), TypingEffect{});
        EXPECT_EQ(typing->forget(), "");
    }
}

TEST(Typing, NothingIsChosenWithAnEmptyText) {
    Typing typing(builtIn());
    typing.press({.characters = "k"}, builtIn());
    EXPECT_EQ(typing.choose(""), TypingEffect{});
    EXPECT_TRUE(typing.composer().isComposing());
}

TEST(Typing, PutsInWhatWasShownThoughTheKeysHaveChanged) {
    const SinglishTransliterator changed(SinglishCustomization{.addedKeys = {{"k", "\u0D9B"}}});
    Typing typing(builtIn());
    typing.press({.characters = "k"}, builtIn());
    EXPECT_EQ(typing.end().text, "\u0D9A\u0DCA") << "the next key alone brings other keys";
    typing.press({.characters = "k"}, changed);
    EXPECT_EQ(typing.end().text, "\u0D9B\u0DCA");
}

// Adapters pass on what their platform sends: the numbers are the platform's, and none may move.

TEST(KeyEvent, HasTheNumbersThatThePlatformSends) {
    EXPECT_EQ(KeyEvent::keyDown, 10U);
    EXPECT_EQ(KeyEvent::shift, 0x20000U);
    EXPECT_EQ(KeyEvent::control, 0x40000U);
    EXPECT_EQ(KeyEvent::option, 0x80000U);
    EXPECT_EQ(KeyEvent::command, 0x100000U);
    EXPECT_EQ(KeyEvent::shortcutModifiers, 0x1C0000U);
    EXPECT_EQ(KeyEvent::space, 49U);
    EXPECT_EQ(KeyEvent::deleteBackward, 51U);
    EXPECT_EQ(KeyEvent::escape, 53U);
    EXPECT_EQ(KeyEvent::otherKey, 0xFFFFU);
    EXPECT_EQ(KeyEvent().modifierFlags, 0U);
}

TEST(FunctionKey, HasTheScalarThatThePlatformSends) {
    EXPECT_EQ(FunctionKey::upArrow, 0xF700U);
    EXPECT_EQ(FunctionKey::downArrow, 0xF701U);
    EXPECT_EQ(FunctionKey::leftArrow, 0xF702U);
    EXPECT_EQ(FunctionKey::rightArrow, 0xF703U);
    EXPECT_EQ(FunctionKey::f1, 0xF704U);
    EXPECT_EQ(FunctionKey::insert, 0xF727U);
    EXPECT_EQ(FunctionKey::deleteForward, 0xF728U);
    EXPECT_EQ(FunctionKey::home, 0xF729U);
    EXPECT_EQ(FunctionKey::end, 0xF72BU);
    EXPECT_EQ(FunctionKey::pageUp, 0xF72CU);
    EXPECT_EQ(FunctionKey::pageDown, 0xF72DU);
    EXPECT_EQ(FunctionKey::other, 0xF8FFU);
}

TEST(FunctionKey, ContainsTheScalarsOfAll) {
    EXPECT_FALSE(FunctionKey::contains(0xF6FF));
    EXPECT_TRUE(FunctionKey::contains(0xF700));
    EXPECT_TRUE(FunctionKey::contains(0xF8FF));
    EXPECT_FALSE(FunctionKey::contains(0xF900));
}

/// Whatever is pressed: what is put in was shown before, and a key that is the client's leaves nothing
/// behind.
TEST(Typing, NothingIsLostOrDoubled) {
    test::Randoms randoms(1);
    const std::vector<std::string> letters = {"a", "a", "k", "h", "N", "d", "r", "y", "M", "i", "1", "."};
    const std::vector<std::string> names = test::keyNames();
    for (int round = 0; round < 200; ++round) {
        Typing typing(builtIn());
        for (int key = 0; key < 30; ++key) {
            const std::string shown = typing.composer().preview(), raw = typing.composer().raw();
            const KeyEvent event =
                *test::keyNamed(randoms.oneIn(3) ? randoms.of(names) : randoms.of(letters));
            const KeyOutcome outcome = typing.press(event, builtIn());
            if (outcome.effect.kind == Effect::insert) {
                EXPECT_FALSE(typing.composer().isComposing());
                EXPECT_TRUE(outcome.effect.text.starts_with(event.keyCode == KeyEvent::escape ? raw : shown));
                EXPECT_FALSE(raw.empty());
            }
            if (outcome.effect.kind == Effect::mark) {
                EXPECT_EQ(outcome.effect.text, typing.composer().preview());
            }
            if (!outcome.isConsumed) {
                EXPECT_FALSE(typing.composer().isComposing());
                EXPECT_EQ(outcome.effect.text, shown);
            }
        }
    }
}

} // namespace

} // namespace vanoka
