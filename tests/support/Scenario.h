#pragma once

#include "typing/KeyEvent.h"

#include <filesystem>
#include <string>
#include <vector>

/// Typing sessions as text files that a typist could write. A line holds the keys that are pressed, two
/// spaces or more, and what is on the screen then:
///
///     # A full stop goes in with the word.
///     amma          [අම්ම]
///     .             අම්ම.
///
/// Marked text stands in brackets, and a caret that is not at the end is a bar. \uXXXX is a scalar, \n a line
/// feed, \t a tab. The keys may also be an event that is no key:
///
///     !commit       the platform asks for the composition
///     !leave        the client loses the input method
///     !choose 2     the third row of the line of candidates is clicked
///     !add q ක      a key is added to a letter; likewise !remove, !off, !on with a key, and !reset
namespace vanoka::test {

struct ScenarioStep {
    std::string keys;                   ///< as written
    std::vector<KeyEvent> events;       ///< empty for an event that is no key
    std::vector<std::string> operation; ///< the words of an event that is no key
    std::string screen;
    std::size_t lineNumber = 0;
};

struct Scenario {
    std::string name; ///< of the file
    std::vector<ScenarioStep> steps;
};

/// Every scenario that is played without a line of candidates, by name; those with one are
/// played each from nothing learnt, with the lists of `scenarioLists`, which hold nothing else. Fails the
/// running test when one cannot be read.
std::vector<Scenario> allScenarios();
std::vector<Scenario> suggestionScenarios();

/// The folder of the lists for `suggestionScenarios`: "si.tsv", "en.tsv", "emoji.tsv", "never-offered.txt".
std::filesystem::path scenarioLists();

} // namespace vanoka::test
