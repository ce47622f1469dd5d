#include "Replay.h"

#include "Keys.h"

#include <gtest/gtest.h>

namespace vanoka::test {

namespace {

void operate(const std::vector<std::string>& words, ServedField& served, SinglishSettings& settings) {
    if (words[0] == "commit")
        served.askForComposition();
    else if (words[0] == "leave")
        served.leaveAndReturn();
    else if (words[0] == "choose")
        served.chooseCandidate(std::stoul(words.at(1)));
    else if (words[0] == "add")
        EXPECT_EQ(settings.add(words.at(1), words.at(2)), std::nullopt);
    else if (words[0] == "remove")
        settings.remove(words.at(1));
    else if (words[0] == "on" || words[0] == "off")
        settings.setBuiltIn(words.at(1), words[0] == "on");
    else if (words[0] == "reset")
        settings.reset();
    else
        ADD_FAILURE() << "no such operation: " << words[0];
}

} // namespace

void ServedField::chooseCandidate(std::size_t row) {
    ADD_FAILURE() << "there is no line of candidates to take row " << row << " of";
}

void ServedField::type(std::string_view text) {
    type(keys(text));
}

void ServedField::type(const std::vector<KeyEvent>& events) {
    for (const KeyEvent& event : events)
        press(event);
}

void replay(const Scenario& scenario, ServedField& served, SinglishSettings& settings) {
    for (const ScenarioStep& step : scenario.steps) {
        if (!step.operation.empty())
            operate(step.operation, served, settings);
        served.type(step.events);
        EXPECT_EQ(served.field().screen(), step.screen)
            << scenario.name << ".scenario, line " << step.lineNumber;
    }
}

} // namespace vanoka::test
