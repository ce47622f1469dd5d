#include "Scenario.h"

#include "Keys.h"
#include "text/Utf8.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace vanoka::test {

namespace {

std::string unescaped(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        if (text.starts_with("\\u")) {
            result +=
                text::utf8(static_cast<char32_t>(std::stoul(std::string(text.substr(2, 4)), nullptr, 16)));
            text.remove_prefix(6);
        } else if (text.starts_with("\\n") || text.starts_with("\\t")) {
            result += text[1] == 'n' ? '\n' : '\t';
            text.remove_prefix(2);
        } else {
            result += text.front();
            text.remove_prefix(1);
        }
    }
    return result;
}

std::vector<std::string> words(const std::string& text) {
    std::istringstream stream(text);
    return {std::istream_iterator<std::string>(stream), {}};
}

ScenarioStep stepOf(const std::string& line, std::size_t lineNumber) {
    ScenarioStep step;
    const std::size_t keysEnd = std::min(line.find("  "), line.size());
    const std::size_t screenStart = std::min(line.find_first_not_of(' ', keysEnd), line.size());
    step.keys = line.substr(0, keysEnd);
    step.screen = unescaped(line.substr(screenStart));
    step.lineNumber = lineNumber;
    if (step.keys.starts_with('!'))
        step.operation = words(step.keys.substr(1));
    else
        step.events = keys(step.keys);
    return step;
}

Scenario read(const std::filesystem::path& path) {
    Scenario scenario{path.stem().string(), {}};
    std::ifstream file(path);
    std::string line;
    for (std::size_t number = 1; std::getline(file, line); ++number)
        if (!line.empty() && !line.starts_with('#'))
            scenario.steps.push_back(stepOf(line, number));
    EXPECT_FALSE(scenario.steps.empty()) << path << " holds no keys";
    return scenario;
}

std::vector<Scenario> scenariosIn(const std::filesystem::path& folder) {
    std::vector<Scenario> scenarios;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.path().extension() == ".scenario")
            scenarios.push_back(read(entry.path()));
    std::ranges::sort(scenarios, {}, &Scenario::name);
    return scenarios;
}

} // namespace

std::vector<Scenario> allScenarios() {
    return scenariosIn(VANOKA_TESTS_FOLDER "/scenarios");
}

std::vector<Scenario> suggestionScenarios() {
    return scenariosIn(VANOKA_TESTS_FOLDER "/scenarios/suggestions");
}

std::filesystem::path scenarioLists() {
    return VANOKA_TESTS_FOLDER "/scenarios/suggestions/lists";
}

} // namespace vanoka::test
