#include "StoredKeys.h"

namespace vanoka::StoredKeys {

namespace {

constexpr const char* wayOut = ". Mend it, or set it aside with \"singlish keys reset\".";

/// "in FILE: ", or ": " where no place is known.
std::string placed(const char* preposition, const std::string& place) {
    return place.empty() ? ": " : std::string(" ") + preposition + " " + place + ": ";
}

} // namespace

std::string readingProblem(const SinglishSettings& settings) {
    const auto condition = settings.condition();
    const std::string start = "Your keys cannot be read" + placed("from", condition.location);
    if (settings.isStoredDamaged())
        return start + "It is damaged. Your next change sets it aside.";
    if (!condition.unreadable.empty())
        return start + condition.unreadable + wayOut;
    return {};
}

std::string storingProblem(const SinglishSettings& settings) {
    const auto condition = settings.condition();
    if (condition.unstored.empty() && condition.unforced.empty())
        return {};
    if (condition.unstored.empty())
        return "A loss of power may undo your last change, which is stored" +
               placed("in", condition.location) + condition.unforced + ".";
    return "Your keys could not be stored" + placed("in", condition.location) + condition.unstored +
           (condition.unreadable.empty() ? "." : wayOut);
}

std::string setAside(const SinglishSettings& settings) {
    const auto condition = settings.condition();
    if (condition.setAside.empty())
        return {};
    return "What could not be read is kept as " + condition.setAside + ".";
}

} // namespace vanoka::StoredKeys
