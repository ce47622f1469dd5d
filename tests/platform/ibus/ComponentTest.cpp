#include "Component.h"

#include "EngineFiles.h"
#include "TemporaryFolder.h"

#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace vanoka::ibus {

namespace {

TEST(Component, HasTheNameThatItsDescriptionGives) {
    const test::TemporaryFolder folder;
    const auto path = folder.path() / EngineFiles::componentName;
    EXPECT_EQ(Component::nameIn(path), std::nullopt) << "no description";
    struct Row {
        const char* text;
        std::optional<std::string> name;
    };
    for (const Row& row : std::vector<Row>{
             {"<component><name>org.example.A</name></component>", "org.example.A"},
             {"<component><description>x</description><name>org.example.B</name></component>",
              "org.example.B"},
             {"<component><engines><engine><name>inner</name></engine></engines></component>", std::nullopt},
             {"<component><name></name></component>", std::nullopt},
             {"<component><name/></component>", std::nullopt},
             {"<component><name><part>org.example</part></name></component>", std::nullopt},
             {"<component/>", std::nullopt},
             {"<other><name>org.example.A</name></other>", std::nullopt},
             {"<component><name>org.example.A</component>", std::nullopt},
             {"no description", std::nullopt},
             {"", std::nullopt},
         }) {
        std::ofstream(path) << row.text;
        EXPECT_EQ(Component::nameIn(path), row.name) << row.text;
    }
}

TEST(Component, IsFoundWhereTheDaemonLooks) {
    const test::TemporaryFolder folder;
    const auto first = folder.path() / "first", second = folder.path() / "second";
    std::filesystem::create_directory(second);
    ::setenv("IBUS_COMPONENT_PATH", (first.native() + ":" + second.native()).c_str(), 1);
    EXPECT_EQ(Component::find(), std::nullopt);
    std::ofstream(second / EngineFiles::componentName) << "<component/>";
    EXPECT_EQ(Component::find(), second / EngineFiles::componentName);
    std::filesystem::create_directory(first);
    std::ofstream(first / EngineFiles::componentName) << "<component/>";
    EXPECT_EQ(Component::find(), first / EngineFiles::componentName);
}

TEST(Component, DescribesTheEngine) {
    EXPECT_EQ(Component::nameIn(VANOKA_DESCRIPTION_FILE), "org.freedesktop.IBus.Vanoka");
}

} // namespace

} // namespace vanoka::ibus
