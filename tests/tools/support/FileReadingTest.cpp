#include "FileReading.h"

#include "TemporaryFolder.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace vanoka::FileReading {

namespace {

std::istringstream noInput;

TEST(FileReading, ReadsFilesAndStandardInput) {
    const test::TemporaryFolder folder;
    const std::string path = folder.path() / "file",
                      text = std::string("a\0b\r\n", 5) + std::string(600'000, 'x');
    std::ofstream(path, std::ios::binary) << text;
    EXPECT_EQ(contentsOf(path, noInput).text, text);
    EXPECT_EQ(contentsOf(path, noInput).problem, "");
    std::istringstream input(text);
    EXPECT_EQ(contentsOf("-", input).text, text);
    std::ofstream(path, std::ios::trunc).close();
    EXPECT_EQ(contentsOf(path, noInput).text, "");
    EXPECT_EQ(contentsOf(path, noInput).problem, "");
}

TEST(FileReading, TellsWhatCannotBeRead) {
    EXPECT_EQ(contentsOf("/no/\x1B\n", noInput).problem,
              "Cannot read /no/\\u{1B}\\n: No such file or directory");
    EXPECT_EQ(contentsOf("/", noInput).problem, "Cannot read /: Is a directory");
    EXPECT_EQ(contentsOf("/proc/self/mem", noInput).problem,
              "Cannot read /proc/self/mem: Input/output error");
    std::istringstream failing;
    failing.setstate(std::ios::badbit);
    EXPECT_EQ(contentsOf("-", failing).problem, "Cannot read -") << "nobody knows why";
}

TEST(FileReading, StopsWhenThatIsEnough) {
    const Contents endless = contentsOf("/dev/zero", noInput, 1'000'000);
    EXPECT_EQ(endless.problem, "");
    EXPECT_GT(endless.text.size(), 1'000'000U);
    EXPECT_LT(endless.text.size(), 2'000'000U);
}

} // namespace

} // namespace vanoka::FileReading
