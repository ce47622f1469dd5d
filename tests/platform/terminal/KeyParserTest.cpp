#include "KeyParser.h"

#include "Keys.h"

#include <gtest/gtest.h>
#include <vector>

namespace vanoka {

namespace {

std::string describe(const KeyParser::Input& input) {
    if (const auto* paste = std::get_if<Paste>(&input))
        return "{" + paste->text + "}";
    return test::nameOf(std::get<KeyEvent>(input));
}

std::string inputsOf(KeyParser& parser) {
    std::string text;
    while (const auto input = parser.next())
        text += describe(*input);
    return text;
}

std::string parsed(std::string_view bytes) {
    KeyParser parser;
    parser.feed(bytes);
    return inputsOf(parser);
}

struct ParsedBytes {
    std::string bytes;
    std::string keys;
};

const std::vector<ParsedBytes> parsedBytes = {
    {"amma", "amma"},
    {" \x7F\r\t", "<space><delete><return><tab>"},
    {"\x01\x0B\x17", "<C-\x01><C-\x0B><C-\x17>"},
    {"\u0D9A\u00E9\U0001F600", "\u0D9A\u00E9\U0001F600"},
    {"\x1B[A\x1B[B\x1B[C\x1B[D", "<up><down><right><left>"},
    {"\x1BOA\x1BOH\x1BOF\x1BOP", "<up><home><end><f1>"},
    {"\x1B[H\x1B[F\x1B[1~\x1B[4~\x1B[7~\x1B[8~", "<home><end><home><end><home><end>"},
    {"\x1B[Z\x1B[3;2~", "<backtab><S-forwarddelete>"},
    {"\x1B[2~\x1B[3~\x1B[5~\x1B[6~", "<insert><forwarddelete><pageup><pagedown>"},
    {"\x1B[1;5C\x1B[1;3D\x1B[3;5~\x1B[1;2A", "<C-right><A-left><C-forwarddelete><S-up>"},
    {"\x1Bx\x1B\u0D9A", "<A-x><A-\u0D9A>"},
    {"\x1B\x1B[A", "<escape><up>"},
    {"\x1B[200~amma\r\n\x1B[A\x1B[201~k", "{amma\r\n\x1B[A}k"},
    {"\x1B[200~\x1B[201~", "{}"},
    {"\x1B[I\x1B[99~\x1B[?1;2c", "\uF8FF\uF8FF\uF8FF"},
    {"\x1B[" + std::string(100, '1') + "A", "<escape>[" + std::string(100, '1') + "A"},
    {"\xFF\x80z", "\uFFFD\uFFFDz"},
    {"\xE0k", "\uFFFDk"},
};

TEST(KeyParser, ReadsKeysAndPastes) {
    for (const ParsedBytes& row : parsedBytes)
        EXPECT_EQ(parsed(row.bytes), row.keys) << testing::PrintToString(row.bytes);
}

TEST(KeyParser, GivesWhatHasComeOfAPaste) {
    for (const std::string text : {"", "amma", "am\x1B[A", "amma gedhara yanavaa"}) {
        for (const std::string end : {"", "\x1B", "\x1B[", "\x1B[2", "\x1B[201"}) {
            KeyParser parser;
            parser.feed("k\x1B[200~" + text + end);
            EXPECT_EQ(inputsOf(parser), "k");
            EXPECT_EQ(parser.takeUnfinishedPaste(), Paste{text});
            EXPECT_EQ(parser.takeUnfinishedPaste(), std::nullopt);
            parser.feed("z");
            EXPECT_EQ(inputsOf(parser), "z");
        }
    }
    KeyParser parser;
    EXPECT_EQ(parser.takeUnfinishedPaste(), std::nullopt);
    parser.feed("\x1B[200");
    EXPECT_EQ(inputsOf(parser), "");
    EXPECT_EQ(parser.takeUnfinishedPaste(), std::nullopt) << "it has not begun";
}

TEST(KeyParser, DoesNotCareHowTheBytesCome) {
    for (const ParsedBytes& row : parsedBytes) {
        KeyParser parser;
        std::string text;
        for (const char byte : row.bytes) {
            parser.feed({&byte, 1});
            text += inputsOf(parser);
        }
        EXPECT_EQ(text, row.keys) << testing::PrintToString(row.bytes);
        EXPECT_EQ(parser.patience(), std::nullopt);
    }
}

TEST(KeyParser, TellsEscapeFromWhatItBegins) {
    KeyParser parser;
    parser.feed("k\x1B");
    EXPECT_EQ(inputsOf(parser), "k");
    EXPECT_NE(parser.patience(), std::nullopt);
    EXPECT_EQ(describe(*parser.flush()), "<escape>");
    EXPECT_EQ(parser.patience(), std::nullopt);
    EXPECT_EQ(parser.flush(), std::nullopt);
    parser.feed("[A");
    EXPECT_EQ(inputsOf(parser), "[A") << "too late to be an arrow";
}

TEST(KeyParser, AnUnfinishedSequenceBecomesKeys) {
    KeyParser parser;
    parser.feed("\x1B[1;");
    EXPECT_EQ(inputsOf(parser), "");
    EXPECT_EQ(describe(*parser.flush()), "<escape>");
    EXPECT_EQ(inputsOf(parser), "[1;");
    parser.feed("\x1B[" + std::string(100, '1'));
    EXPECT_EQ(inputsOf(parser), "<escape>[" + std::string(100, '1')) << "noise is not waited for";
}

TEST(KeyParser, AnUnfinishedScalarWaits) {
    KeyParser parser;
    for (const std::string before : {"", "\x1B"}) {
        parser.feed(before + "\xE0\xB6");
        EXPECT_EQ(inputsOf(parser), "");
        EXPECT_EQ(parser.patience(), std::nullopt) << "no key sends a part of a scalar";
        parser.feed("\x9A");
        EXPECT_EQ(inputsOf(parser), before.empty() ? "\u0D9A" : "<A-\u0D9A>");
    }
    parser.feed("\xE0");
    EXPECT_EQ(inputsOf(parser), "");
    parser.feed("k");
    EXPECT_EQ(inputsOf(parser), "\uFFFDk");
    parser.feed("\xE0");
    EXPECT_EQ(inputsOf(parser), "");
    parser.feed("\x03");
    EXPECT_EQ(inputsOf(parser), "\uFFFD" + parsed("\x03"));
}

TEST(KeyParser, APasteMayBeLong) {
    KeyParser parser;
    std::string pasted;
    parser.feed("\x1B[200~");
    for (int i = 0; i < 1000; ++i) {
        const std::string piece = "amma \x1B[ gedhara " + std::to_string(i) + "\n";
        parser.feed(piece);
        pasted += piece;
        ASSERT_EQ(parser.next(), std::nullopt);
        ASSERT_EQ(parser.flush(), std::nullopt) << "the end of a paste is not hurried";
        ASSERT_EQ(parser.patience(), std::nullopt) << "it is silent already";
    }
    parser.feed("\x1B[201~");
    EXPECT_EQ(std::get<Paste>(*parser.next()).text, pasted);
}

/// A test's notation of silence: nothing comes for as long as the parser asks for, if it does.
constexpr std::string_view silence = "<silence>";

std::string parsedInTime(const std::vector<std::string_view>& pieces) {
    KeyParser parser;
    std::string text;
    for (const std::string_view piece : pieces) {
        if (piece != silence) {
            parser.feed(piece);
        } else if (parser.patience()) {
            const auto input = parser.flush();
            text += input ? describe(*input) : "";
        }
        text += inputsOf(parser);
    }
    const auto unfinished = parser.takeUnfinishedPaste();
    return text + (unfinished ? describe(*unfinished) + " unfinished" : "");
}

TEST(KeyParser, AWayOutThatIsTypedByItselfEndsAPaste) {
    for (const char* wayOut : {"\x03", "\x04", "\x1A", "\x1C"}) {
        const std::string key = parsed(wayOut);
        const auto pressed = [&](const std::vector<std::string_view>& pieces) {
            std::vector<std::string_view> all = {"\x1B[200~amma"};
            all.insert(all.end(), pieces.begin(), pieces.end());
            return parsedInTime(all);
        };
        const std::string_view typed = wayOut;
        EXPECT_EQ(pressed({silence, typed, silence, "k"}), "{amma}" + key + "k");
        EXPECT_EQ(pressed({silence, typed, typed, typed, silence}), "{amma}" + key + key + key)
            << "held down";
        EXPECT_EQ(pressed({"\x1B[201", silence, typed, silence}), "{amma}" + key)
            << "a part of the end has come";
        EXPECT_EQ(pressed({silence, typed, silence, "\x1B[201~"}), "{amma}" + key + "\uF8FF")
            << "the end was late";
    }
}

TEST(KeyParser, AWayOutWithinAPasteIsAPartOfIt) {
    EXPECT_EQ(parsedInTime({"\x1B[200~a\x03", silence, "b\x1B[201~k"}), "{a\x03"
                                                                        "b}k");
    EXPECT_EQ(parsedInTime({"\x1B[200~a", silence,
                            "\x03"
                            "b",
                            silence, "\x1B[201~k"}),
              "{a\x03"
              "b}k");
    EXPECT_EQ(parsedInTime({"\x1B[200~a", silence, "\x03\x1B[201~", silence, "k"}), "{a\x03}k");
    EXPECT_EQ(parsedInTime({"\x1B[200~a", "\x03", silence, "b\x1B[201~k"}), "{a\x03"
                                                                            "b}k");
    EXPECT_EQ(parsedInTime({"\x1B[200~", "\x03", silence, "\x1B[201~k"}), "{\x03}k");
    EXPECT_EQ(parsedInTime({"\x1B[200~a", silence, "b", silence, "\x03", "c", silence}), "{ab\x03"
                                                                                         "c} unfinished");
}

} // namespace

} // namespace vanoka
