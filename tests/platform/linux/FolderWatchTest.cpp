#include "FolderWatch.h"

#include "TemporaryFolder.h"

#include <fstream>
#include <gtest/gtest.h>

namespace vanoka {

namespace {

namespace fs = std::filesystem;

TEST(FolderWatch, NoticesEveryChangeOnce) {
    const test::TemporaryFolder temporary;
    const fs::path file = temporary.path() / "file";
    std::ofstream(file) << "one";
    FolderWatch watch(temporary.path());
    EXPECT_FALSE(watch.hasChanged());
    struct Row {
        const char* name;
        std::function<void()> change;
    };
    for (const Row& row : std::vector<Row>{
             {"written", [&] { std::ofstream(file) << "two"; }},
             {"written at the same instant", [&] { std::ofstream(file) << "six"; }},
             {"renamed", [&] { fs::rename(file, temporary.path() / "other"); }},
             {"removed", [&] { fs::remove(temporary.path() / "other"); }},
             {"made", [&] { std::ofstream(file) << ""; }},
         }) {
        row.change();
        EXPECT_TRUE(watch.hasChanged()) << row.name;
        EXPECT_FALSE(watch.hasChanged()) << row.name;
    }
    const std::ifstream reader(file);
    EXPECT_FALSE(watch.hasChanged()) << "reading is no change";
}

TEST(FolderWatch, TakesAFolderThatIsNotThereForOneThatChanges) {
    const test::TemporaryFolder temporary;
    const fs::path folder = temporary.path() / "folder";
    FolderWatch watch(folder);
    EXPECT_TRUE(watch.hasChanged());
    EXPECT_TRUE(watch.hasChanged());
    fs::create_directory(folder);
    EXPECT_TRUE(watch.hasChanged());
    EXPECT_FALSE(watch.hasChanged());
    fs::remove(folder);
    EXPECT_TRUE(watch.hasChanged());
    fs::create_directory(folder);
    EXPECT_TRUE(watch.hasChanged()) << "another folder, and nobody knows what was written there";
    EXPECT_FALSE(watch.hasChanged());
    std::ofstream(folder / "file") << "";
    EXPECT_TRUE(watch.hasChanged());
    EXPECT_FALSE(watch.hasChanged());
}

} // namespace

} // namespace vanoka
