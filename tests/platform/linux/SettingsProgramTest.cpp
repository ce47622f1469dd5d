#include "SettingsProgram.h"
#include "Folders.h"

#include "TemporaryFolder.h"

#include <fstream>
#include <gtest/gtest.h>

namespace vanoka {

namespace {

namespace fs = std::filesystem;

TEST(SettingsProgram, IsTheOneInTheFolderIfItCanBeStarted) {
    const test::TemporaryFolder folder;
    const fs::path program = folder.path() / SettingsProgram::name;
    const auto elsewhere = SettingsProgram::find({});
    EXPECT_EQ(SettingsProgram::find(folder.path()), elsewhere) << "not there";
    std::ofstream(program) << "#!/bin/sh\n";
    fs::permissions(program, fs::perms::owner_read);
    EXPECT_EQ(SettingsProgram::find(folder.path()), elsewhere) << "no program";
    fs::permissions(program, fs::perms::owner_all);
    EXPECT_EQ(SettingsProgram::find(folder.path()), program);
}

TEST(SettingsProgram, KnowsTheFolderOfTheRunningProgram) {
    EXPECT_TRUE(fs::exists(Folders::ofProgram() / "linux_tests"));
}

} // namespace

} // namespace vanoka
