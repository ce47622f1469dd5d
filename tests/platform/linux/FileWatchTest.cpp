#include "FileWatch.h"

#include "AtomicFile.h"
#include "TemporaryFolder.h"

#include <fstream>
#include <gtest/gtest.h>

namespace vanoka {

namespace {

TEST(FileWatch, NoticesEveryChangeOnce) {
    const test::TemporaryFolder folder;
    const auto path = folder.path() / "deep" / "file";
    FileWatch watch(path);
    const auto changedOnce = [&watch] { return watch.hasChanged() && !watch.hasChanged(); };
    EXPECT_FALSE(watch.hasChanged()) << "no file, as before";
    ASSERT_FALSE(AtomicFile::write(path, "one").error);
    EXPECT_TRUE(changedOnce()) << "made";
    ASSERT_FALSE(AtomicFile::write(path, "two").error);
    EXPECT_TRUE(changedOnce()) << "replaced by one of the same size";
    std::ofstream(path) << "three";
    EXPECT_TRUE(changedOnce()) << "written in place";
    ASSERT_FALSE(AtomicFile::remove(path).error);
    EXPECT_TRUE(changedOnce()) << "removed";
}

TEST(FileWatch, LooksThroughALink) {
    const test::TemporaryFolder folder;
    ASSERT_FALSE(AtomicFile::write(folder.path() / "real", "one").error);
    std::filesystem::create_symlink("real", folder.path() / "link");
    FileWatch watch(folder.path() / "link");
    ASSERT_FALSE(AtomicFile::write(folder.path() / "real", "two").error);
    EXPECT_TRUE(watch.hasChanged());
}

} // namespace

} // namespace vanoka
