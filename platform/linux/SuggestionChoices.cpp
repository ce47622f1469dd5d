#include "SuggestionChoices.h"

#include <algorithm>
#include <charconv>

namespace vanoka {

namespace {

constexpr std::string_view rowsName = "rows", on = "on", off = "off";

void readRows(std::string_view value, SuggestionChoices& choices) {
    std::size_t rows = 0;
    const char* end = value.data() + value.size();
    const auto result = std::from_chars(value.data(), end, rows);
    const bool isInRange = rows >= CandidateLimit::least && rows <= CandidateLimit::most;
    if (result.ec == std::errc() && result.ptr == end && isInRange)
        choices.rows = rows;
}

void readLine(std::string_view line, SuggestionChoices& choices) {
    const std::size_t sign = std::min(line.find('='), line.size());
    const std::string_view name = line.substr(0, sign);
    const std::string_view value = line.substr(std::min(sign + 1, line.size()));
    if (name == rowsName)
        return readRows(value, choices);
    for (const SuggestionSwitch& each : suggestionSwitches)
        if (name == each.name && (value == on || value == off))
            choices.*each.choice = value == on;
}

} // namespace

std::string textOf(const SuggestionChoices& choices) {
    std::string text;
    for (const SuggestionSwitch& each : suggestionSwitches)
        text.append(each.name).append("=").append(choices.*each.choice ? on : off).append("\n");
    return text.append(rowsName).append("=").append(std::to_string(choices.rows)).append("\n");
}

SuggestionChoices suggestionChoicesIn(std::string_view text) {
    SuggestionChoices choices;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        readLine(text.substr(0, end), choices);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return choices;
}

} // namespace vanoka
