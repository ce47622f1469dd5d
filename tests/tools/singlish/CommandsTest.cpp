#include "Chart.h"
#include "ExitStatus.h"
#include "Filter.h"
#include "KeysCommand.h"
#include "Randoms.h"
#include "TemporaryFolder.h"
#include "TroubledDefaults.h"
#include "settings/CustomizationJson.h"

#include <cerrno>
#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <thread>
#include <unistd.h>

namespace vanoka {

namespace {

class KeysCommandTest : public testing::Test {
protected:
    int run(std::vector<std::string_view> arguments, const std::string& typed = "") {
        std::istringstream input(typed);
        std::ostringstream outputStream, errorStream;
        KeysCommand command(settings, input, outputStream, errorStream);
        const int status = command.run(arguments);
        output = outputStream.str();
        errors = errorStream.str();
        return status;
    }

    test::TroubledDefaults defaults;
    SinglishSettings settings{defaults};
    std::string output, errors;
};

TEST_F(KeysCommandTest, ListsWhatWasChanged) {
    EXPECT_EQ(run({}), ExitStatus::done);
    EXPECT_EQ(output, "You have changed no keys.\n");
    EXPECT_EQ(run({"add", "q", "\u0D9A"}), ExitStatus::done);
    EXPECT_EQ(output, "qa \u2192 \u0D9A\n");
    EXPECT_EQ(run({"add", "aa", "\u25CC\u0D82"}), ExitStatus::done);
    EXPECT_EQ(run({"off", "kh"}), ExitStatus::done);
    EXPECT_EQ(run({"list"}), ExitStatus::done);
    EXPECT_EQ(output, "  \u0D86    aa   now types \u25CC\u0D82\n"
                      "  \u0D9A    q    your key\n"
                      "  \u0D9B    kh   switched off\n"
                      "  \u25CC\u0D82   aa   your key\n");
    EXPECT_EQ(run({"on", "kh"}), ExitStatus::done);
    EXPECT_EQ(run({"remove", "aa"}), ExitStatus::done);
    EXPECT_EQ(run({}), ExitStatus::done);
    EXPECT_EQ(output, "  \u0D9A   q   your key\n");
    EXPECT_EQ(run({"reset"}), ExitStatus::done);
    EXPECT_TRUE(settings.customization().isEmpty());
}

TEST_F(KeysCommandTest, SaysWhatAKeyWouldMean) {
    EXPECT_EQ(run({"check", "q", "\u0D9A"}), ExitStatus::done);
    EXPECT_EQ(output, "qa \u2192 \u0D9A\n");
    EXPECT_EQ(run({"check", "q", "k"}), ExitStatus::done) << "a letter is named by its key, too";
    EXPECT_EQ(output, "qa \u2192 \u0D9A\n");
    EXPECT_EQ(run({"check", "aa", "\u0D9A"}), ExitStatus::done);
    EXPECT_EQ(output, "aaa \u2192 \u0D9A  \u00B7  aa currently types \u0D86; it will type \u0D9A instead.\n");
    EXPECT_TRUE(settings.customization().isEmpty());
}

TEST_F(KeysCommandTest, RefusesWithTheSettingsOwnWords) {
    struct Row {
        std::vector<std::string_view> arguments;
        std::string errors;
    };
    const std::vector<Row> rows = {
        {{"add", "k1", "\u0D9A"}, "Use English letters only"},
        {{"add", "", "\u0D9A"}, "Type a key"},
        {{"check", "abcdefg", "\u0D9A"}, "Use at most 6 letters"},
        {{"add", "k", "\u0D9A"}, "This letter already has that key"},
        {{"add", "q", "Q"}, "No such letter: Q"},
        {{"check", "q", "\u0D81"}, "No such letter: \u0D81"},
        {{"remove", "k"}, "You have added no key k"},
        {{"off", "zz"}, "zz is not a built-in key"},
        {{"on", "zz"}, "zz is not a built-in key"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(run(row.arguments), ExitStatus::refused) << row.errors;
        EXPECT_EQ(errors, "singlish: " + row.errors + "\n");
        EXPECT_EQ(output, "");
    }
    EXPECT_TRUE(settings.customization().isEmpty());
}

TEST_F(KeysCommandTest, TellsWhatItDoesNotUnderstand) {
    for (const std::vector<std::string_view>& arguments :
         std::vector<std::vector<std::string_view>>{{"add"},
                                                    {"add", "q"},
                                                    {"add", "q", "k", "k"},
                                                    {"remove"},
                                                    {"list", "q"},
                                                    {"what"},
                                                    {"import"},
                                                    {"reset", "now"}}) {
        EXPECT_EQ(run(arguments), ExitStatus::usage) << arguments[0];
        EXPECT_NE(errors, "");
    }
}

TEST_F(KeysCommandTest, ExportsWhatItImports) {
    run({"add", "q", "\u0D9A"});
    run({"add", "kh", "\u0D9C"});
    run({"off", "aa"});
    const SinglishCustomization before = settings.customization();
    EXPECT_EQ(run({"export"}), ExitStatus::done);
    const std::string document = output;
    run({"reset"});
    EXPECT_EQ(run({"import", "-"}, document), ExitStatus::done);
    EXPECT_EQ(settings.customization(), before);
    EXPECT_EQ(settings.transliterator().transliterate("qa kha"), "\u0D9A \u0D9C");

    const test::TemporaryFolder folder;
    const std::string path = (folder.path() / "keys.json").string();
    std::ofstream(path) << R"({"addedKeys":[],"disabledKeys":[]})";
    EXPECT_EQ(run({"import", path}), ExitStatus::done);
    EXPECT_TRUE(settings.customization().isEmpty());
    EXPECT_EQ(defaults.data(SinglishSettings::storedName), std::nullopt);
}

TEST_F(KeysCommandTest, ImportsAllOrNothing) {
    run({"add", "q", "\u0D9A"});
    const SinglishCustomization before = settings.customization();
    EXPECT_EQ(run({"import", "-"}, "{"), ExitStatus::refused);
    EXPECT_EQ(run({"import", "/no/such/file"}), ExitStatus::failed);
    EXPECT_EQ(errors, "singlish: Cannot read /no/such/file: No such file or directory\n");
    EXPECT_EQ(
        run({"import", "-"},
            "{\"addedKeys\":[{\"key\":\"w\",\"letter\":\"\u0D9A\"},{\"key\":\"k1\",\"letter\":\"\u0D9A\"},"
            "{\"key\":\"abcdefg\",\"letter\":\"none\"}],\"disabledKeys\":[\"zz\"]}"),
        ExitStatus::refused);
    EXPECT_EQ(errors, "singlish: Your keys stay as they are, because of\nk1: Use English letters only\n"
                      "abcdefg: Use at most 6 letters\n\n");
    EXPECT_EQ(settings.customization(), before);
}

TEST_F(KeysCommandTest, KeepsWhatItDoesNotKnow) {
    const std::string document = "{\"addedKeys\":[{\"key\":\"z\",\"letter\":\"none\"},"
                                 "{\"key\":\"q\",\"letter\":\"\u0D9A\"},"
                                 "{\"key\":\"k\",\"letter\":\"none\"}],\"disabledKeys\":[\"aa\",\"zz\"]}";
    defaults.setData(SinglishSettings::storedName, document);
    settings.reloadIfChanged();
    const SinglishCustomization before = settings.customization();
    EXPECT_EQ(run({}), ExitStatus::done);
    EXPECT_EQ(output, "  \u0D86      aa   switched off\n"
                      "  \u0D9A      q    your key\n"
                      "  none   z    no such letter\n"
                      "  none   k    no such letter\n"
                      "         zz   switched off; no built-in key\n");
    EXPECT_EQ(run({"export"}), ExitStatus::done);
    EXPECT_EQ(output, document + "\n");
    run({"reset"});
    EXPECT_EQ(run({"import", "-"}, document), ExitStatus::done);
    EXPECT_EQ(errors, "singlish: Imported, though without an effect:\n"
                      "  none   z    no such letter\n"
                      "  none   k    no such letter\n"
                      "         zz   switched off; no built-in key\n");
    EXPECT_EQ(settings.customization(), before);
    EXPECT_EQ(run({"remove", "z"}), ExitStatus::done);
    EXPECT_EQ(run({"remove", "k"}), ExitStatus::done);
    EXPECT_EQ(run({"on", "zz"}), ExitStatus::done);
    EXPECT_EQ(run({}), ExitStatus::done);
    EXPECT_EQ(output, "  \u0D86   aa   switched off\n"
                      "  \u0D9A   q    your key\n");
}

/// Keys come in files of others, and arguments out of scripts: what would act on a terminal is spelled out.
TEST_F(KeysCommandTest, SpellsOutControlCharacters) {
    defaults.setData(
        SinglishSettings::storedName,
        R"({"addedKeys":[{"key":"q\u001b[2J","letter":"x\u0000\n"}],"disabledKeys":["\u009b"]})");
    settings.reloadIfChanged();
    EXPECT_EQ(run({}), ExitStatus::done);
    EXPECT_EQ(output, "  x\\u{0}\\n   q\\u{1B}[2J   no such letter\n"
                      "             \\u{9B}       switched off; no built-in key\n");

    struct Row {
        std::vector<std::string_view> arguments;
        std::string errors;
    };
    const std::vector<Row> rows = {
        {{"add", "q", "\x1B"}, "No such letter: \\u{1B}\n"},
        {{"remove", "\x1Bq\n"}, "You have added no key \\u{1B}q\\n\n"},
        {{"off", "\x9B"}, "\\x9B is not a built-in key\n"},
        {{"import", "/no/\x1B"}, "Cannot read /no/\\u{1B}: No such file or directory\n"},
        {{"import", "-"}, "Your keys stay as they are, because of\n\\u{1B}: Use English letters only\n\n"},
    };
    for (const Row& row : rows) {
        run(row.arguments, R"({"addedKeys":[{"key":"\u001b","letter":"x"}],"disabledKeys":[]})");
        EXPECT_EQ(errors, "singlish: " + row.errors);
    }
    const test::TemporaryFolder folder;
    const std::string path = (folder.path() / "a\x1B").string();
    std::ofstream(path) << "{";
    run({"import", path});
    EXPECT_TRUE(errors.starts_with("singlish: " + (folder.path() / "a\\u{1B} is not a").string())) << errors;
}

TEST_F(KeysCommandTest, ExportsControlCharactersAsTheyAre) {
    const std::string document =
        "{\"addedKeys\":[{\"key\":\"q\u009B\u007F\",\"letter\":\"x\"}],\"disabledKeys\":[]}";
    defaults.setData(SinglishSettings::storedName, document);
    settings.reloadIfChanged();
    EXPECT_EQ(run({"export"}), ExitStatus::done);
    EXPECT_EQ(output, document + "\n");
}

TEST_F(KeysCommandTest, TakesAKeyThatItsLetterHasAlready) {
    EXPECT_EQ(run({"import", "-"}, "{\"addedKeys\":[{\"key\":\"k\",\"letter\":\"\u0D9A\"},"
                                   "{\"key\":\"q\",\"letter\":\"\u0D9A\"}],\"disabledKeys\":[]}"),
              ExitStatus::done);
    EXPECT_EQ(settings.transliterator().transliterate("ka qa"), "\u0D9A \u0D9A");
}

TEST_F(KeysCommandTest, TellsWhatCannotBeImported) {
    run({"add", "q", "\u0D9A"});
    const SinglishCustomization before = settings.customization();
    const test::TemporaryFolder folder;
    EXPECT_EQ(run({"import", folder.path().c_str()}), ExitStatus::failed);
    EXPECT_EQ(errors, "singlish: Cannot read " + folder.path().string() + ": Is a directory\n");
    EXPECT_EQ(run({"import", "/proc/self/mem"}), ExitStatus::failed) << "nothing stands at its beginning";
    EXPECT_EQ(errors, "singlish: Cannot read /proc/self/mem: Input/output error\n");
    EXPECT_EQ(run({"import", "/dev/null"}), ExitStatus::refused);
    EXPECT_EQ(settings.customization(), before);
}

TEST_F(KeysCommandTest, TellsOfNoSuccessBeforeKeysAreStored) {
    defaults.said.unstored = "No space left on device";
    const std::vector<std::vector<std::string_view>> edits = {
        {"add", "q", "\u0D9A"}, {"off", "k"}, {"on", "k"}, {"remove", "q"}, {"reset"}, {"import", "-"}};
    for (const auto& edit : edits) {
        EXPECT_EQ(run(edit, "{\"addedKeys\":[],\"disabledKeys\":[\"none\"]}"), ExitStatus::failed) << edit[0];
        EXPECT_EQ(output, "") << edit[0];
        EXPECT_EQ(errors, "singlish: Your keys could not be stored: No space left on device.\n") << edit[0];
    }
}

TEST_F(KeysCommandTest, KeysThatCannotBeReadAreNotShownAsNone) {
    const std::vector<std::vector<std::string_view>> looks = {
        {}, {"list"}, {"export"}, {"check", "q", "\u0D9A"}, {"remove", "q"}};
    defaults.said.unreadable = "Permission denied";
    for (const auto& look : looks) {
        EXPECT_EQ(run(look), ExitStatus::failed);
        EXPECT_EQ(output, "");
        EXPECT_TRUE(errors.starts_with("singlish: Your keys cannot be read: Permission denied. ")) << errors;
    }
    defaults.said.unreadable = "";
    defaults.setData(SinglishSettings::storedName, "{");
    settings.reloadIfChanged();
    for (const auto& look : looks) {
        EXPECT_EQ(run(look), ExitStatus::failed);
        EXPECT_EQ(output, "");
        EXPECT_TRUE(errors.starts_with("singlish: Your keys cannot be read: It is damaged. ")) << errors;
    }
}

TEST_F(KeysCommandTest, TellsWhatIsKeptOfKeysThatCouldNotBeRead) {
    defaults.said.setAside = "/home/keys.kept";
    EXPECT_EQ(run({"add", "q", "\u0D9A"}), ExitStatus::done);
    EXPECT_EQ(errors, "singlish: What could not be read is kept as /home/keys.kept.\n");
    EXPECT_EQ(output, "qa \u2192 \u0D9A\n");
}

TEST_F(KeysCommandTest, EditsWhatOthersHaveStoredMeanwhile) {
    SinglishSettings others(defaults);
    others.add("w", "\u0D9A");
    EXPECT_EQ(run({"add", "q", "\u0D9A"}), ExitStatus::done);
    others.reloadIfChanged();
    EXPECT_EQ(others.customization().addedKeys.size(), 2U);
}

TEST_F(KeysCommandTest, ImportsManyKeysInOneEdit) {
    SinglishCustomization many;
    for (int number = 0; number < 20'000; ++number) {
        std::string key = "Z";
        for (int rest = number; key.size() < 5; rest /= 26)
            key += static_cast<char>('a' + rest % 26);
        many.addedKeys.push_back({key, "\u0D9A"});
    }
    int edits = 0;
    const Subscription subscription = settings.observeWillChange([&] { ++edits; });
    EXPECT_EQ(run({"import", "-"}, *CustomizationJson::encode(many)), ExitStatus::done);
    EXPECT_EQ(edits, 1);
    EXPECT_EQ(settings.customization(), many);
    EXPECT_EQ(settings.transliterator().transliterate("Zzzaaa"), "\u0D9A");
}

TEST_F(KeysCommandTest, RefusesWhatCouldNotBeReadAgain) {
    run({"add", "q", "\u0D9A"});
    const SinglishCustomization before = settings.customization();
    const std::string padding(UserDefaults::largestValue, ' ');
    EXPECT_EQ(run({"import", "-"}, "{\"addedKeys\":[],\"disabledKeys\":[]}" + padding), ExitStatus::refused);
    EXPECT_EQ(errors, "singlish: - is larger than keys may be; your keys stay as they are\n");
    EXPECT_EQ(run({"import", "/dev/zero"}), ExitStatus::refused) << "which has no end";
    EXPECT_EQ(settings.customization(), before);
}

TEST(Chart, ShowsEveryLetterInAlignedColumns) {
    MemoryUserDefaults defaults;
    SinglishSettings settings(defaults);
    settings.setBuiltIn("k", false);
    settings.add("q", "\u0DA4");
    std::ostringstream output;
    writeChart(output, settings);
    const std::string chart = output.str();
    EXPECT_TRUE(chart.starts_with("Vowels\n  \u0D85   a             ka \u2192 \u0D9A\n  \u0D86   aa          "
                                  "  kaa \u2192 \u0D9A\u0DCF\n"));
    EXPECT_NE(chart.find("\n\nConsonants\n  \u0D9A   no key\n  \u0D9B   kh  K"), std::string::npos);
    EXPECT_NE(chart.find("\n  \u0DA4   kn  q           kna \u2192 \u0DA4\n"), std::string::npos);
    EXPECT_TRUE(chart.ends_with("\nSigns\n  \u25CC\u0D82   x   kax \u2192 \u0D9A\u0D82\n  \u25CC\u0D83   H   "
                                "kaH \u2192 \u0D9A\u0D83\n"));
    EXPECT_EQ(std::count(chart.begin(), chart.end(), '\n'), 59 + 3 + 2);
}

std::string filtered(const std::vector<std::string>& pieces, const SinglishTransliterator& keys) {
    int in[2], out[2];
    EXPECT_EQ(::pipe(in) | ::pipe(out), 0);
    std::thread writer([&] {
        for (const std::string& piece : pieces) {
            EXPECT_EQ(::write(in[1], piece.data(), piece.size()), static_cast<ssize_t>(piece.size()));
            std::this_thread::sleep_for(std::chrono::milliseconds(1)); // so that pieces are read one by one
        }
        ::close(in[1]);
    });
    std::string text;
    std::thread reader([&] {
        char bytes[4096];
        for (ssize_t count; (count = ::read(out[0], bytes, sizeof bytes)) > 0;)
            text.append(bytes, static_cast<std::size_t>(count));
    });
    EXPECT_EQ(filter(in[0], out[1], keys), FilterOutcome::done);
    ::close(out[1]);
    writer.join();
    reader.join();
    ::close(in[0]);
    ::close(out[0]);
    return text;
}

TEST(Filter, TurnsLatinIntoSinhala) {
    const auto& standard = SinglishTransliterator::standard();
    EXPECT_EQ(filtered({"mama gedhara yanavaa\n"}, standard),
              "\u0DB8\u0DB8 \u0D9C\u0DD9\u0DAF\u0DBB \u0DBA\u0DB1\u0DC0\u0DCF\n");
    EXPECT_EQ(filtered({}, standard), "");
    EXPECT_EQ(filtered({"k"}, standard), "\u0D9A\u0DCA");
}

TEST(Filter, DoesNotCareHowTheBytesCome) {
    test::Randoms randoms(10);
    for (int round = 0; round < 40; ++round) {
        const SinglishTransliterator keys(round % 2 == 0 ? SinglishCustomization()
                                                         : randoms.strangeCustomization());
        const std::string text = randoms.text(20);
        std::vector<std::string> bytes;
        for (const char byte : text)
            bytes.emplace_back(1, byte);
        ASSERT_EQ(filtered(bytes, keys), keys.transliterate(text)) << testing::PrintToString(text);
    }
}

TEST(Filter, LongTextsAreReadInPieces) {
    test::Randoms randoms(11);
    std::string text;
    while (text.size() < 300'000)
        text += randoms.text(20);
    const auto& standard = SinglishTransliterator::standard();
    const test::TemporaryFolder folder;
    const std::string inPath = (folder.path() / "in").string(), outPath = (folder.path() / "out").string();
    std::ofstream(inPath, std::ios::binary) << text;
    const int in = ::open(inPath.c_str(), O_RDONLY), out = ::open(outPath.c_str(), O_CREAT | O_WRONLY, 0600);
    EXPECT_EQ(filter(in, out, standard), FilterOutcome::done);
    ::close(in);
    ::close(out);
    std::ifstream file(outPath, std::ios::binary);
    EXPECT_TRUE((std::string{std::istreambuf_iterator<char>(file), {}} == standard.transliterate(text)));
}

TEST(Filter, WritesWhatWasReadBeforeReadingFailed) {
    int in[2], out[2];
    ASSERT_EQ(::pipe2(in, O_NONBLOCK) | ::pipe(out), 0); // reading more than was written fails
    ASSERT_EQ(::write(in[1], "amma k", 6), 6);
    const FilterOutcome outcome = filter(in[0], out[1], SinglishTransliterator::standard());
    const int error = errno;
    EXPECT_EQ(outcome, FilterOutcome::cannotRead);
    EXPECT_EQ(error, EAGAIN);
    ::close(out[1]);
    std::string text;
    char bytes[64];
    for (ssize_t count; (count = ::read(out[0], bytes, sizeof bytes)) > 0;)
        text.append(bytes, static_cast<std::size_t>(count));
    EXPECT_EQ(text, "\u0D85\u0DB8\u0DCA\u0DB8 \u0D9A\u0DCA");
    for (const int end : {in[0], in[1], out[0]})
        ::close(end);
}

TEST(Filter, TellsWhatItCannotDo) {
    EXPECT_EQ(filter(-1, -1, SinglishTransliterator::standard()), FilterOutcome::cannotRead);
    const int full = ::open("/dev/full", O_WRONLY), zero = ::open("/dev/zero", O_RDONLY);
    EXPECT_EQ(filter(zero, full, SinglishTransliterator::standard()), FilterOutcome::cannotWrite);
    ::close(full);
    ::close(zero);
}

} // namespace

} // namespace vanoka
