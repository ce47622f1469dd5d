#include "words/ReadingRows.h"

namespace vanoka::ReadingRows {

namespace {

// How English writes the letters of a word that Sinhala took from it: judged by hand, from words such as
// file, site, computer and station. It need not be exact, since it only ranks the few words that may be meant
// by a word that is English.

// clang-format off

constexpr auto english = std::to_array<Row>({
    // Vowels. English writes each in many ways, and one that is weak in any; one that a y or w carries on goes
    // unwritten before it: site is s a·y·i t.
    {ofInherentVowel, {{"a", 345}, {"u", 202}, {"e", 141}, {"o", 141}, {"", 101}, {"i", 30}, {"ou", 10}, {"ea", 10},
         {"ia", 10}, {"au", 10}}},
    {U'අ', {{"a", 450}, {"u", 280}, {"o", 120}, {"e", 50}, {"", 50}, {"ea", 20}, {"ou", 10}, {"i", 20}}},
    {U'ආ', {{"a", 700}, {"ar", 80}, {"o", 70}, {"i", 100}, {"au", 30}, {"u", 20}}},
    {0x0DCF, {{"a", 740}, {"o", 90}, {"ar", 30}, {"ea", 30}, {"au", 30}, {"u", 30}, {"e", 30}, {"aa", 10},
         {"", 10}}},
    {U'ඇ', {{"a", 880}, {"e", 60}, {"ai", 30}, {"ae", 30}}},
    {0x0DD0, {{"a", 900}, {"e", 40}, {"ai", 20}, {"ae", 20}, {"i", 20}}},
    {U'ඈ', {{"a", 850}, {"e", 50}, {"ai", 50}, {"ae", 50}}},
    {0x0DD1, {{"a", 850}, {"e", 50}, {"ai", 50}, {"ae", 50}}},
    {U'ඉ', {{"i", 700}, {"e", 250}, {"y", 50}}},
    {0x0DD2, {{"i", 520}, {"y", 140}, {"e", 140}, {"a", 40}, {"ee", 20}, {"ie", 30}, {"ey", 30}, {"ea", 10},
         {"igh", 20}, {"", 40}, {"ai", 10}}},
    {U'ඊ', {{"e", 550}, {"ea", 250}, {"i", 120}, {"ee", 80}}},
    {0x0DD3, {{"ee", 330}, {"ea", 240}, {"e", 190}, {"i", 120}, {"ie", 50}, {"y", 40}, {"ey", 20}, {"ei", 10}}},
    {U'උ', {{"u", 700}, {"oo", 150}, {"o", 150}}},
    {0x0DD4, {{"u", 450}, {"oo", 200}, {"o", 80}, {"", 120}, {"ou", 50}, {"ui", 30}, {"ew", 40}, {"ue", 30}}},
    {U'ඌ', {{"u", 600}, {"oo", 400}}},
    {0x0DD6, {{"oo", 380}, {"u", 340}, {"o", 70}, {"ou", 60}, {"ew", 50}, {"ue", 40}, {"ui", 30}, {"oe", 20},
         {"eu", 10}}},
    {U'එ', {{"e", 800}, {"a", 140}, {"ai", 60}}},
    {0x0DD9, {{"e", 720}, {"ea", 100}, {"a", 130}, {"ai", 30}, {"ie", 20}}},
    {U'ඒ', {{"a", 750}, {"ai", 120}, {"e", 80}, {"ei", 50}}},
    {0x0DDA, {{"a", 520}, {"ai", 140}, {"ay", 110}, {"e", 90}, {"ea", 40}, {"ei", 30}, {"ey", 30}, {"et", 10},
         {"ae", 10}, {"eigh", 10}, {"aig", 10}}},
    {U'ඔ', {{"o", 850}, {"a", 80}, {"au", 40}, {"ho", 30}}},
    {0x0DDC, {{"o", 830}, {"a", 80}, {"au", 40}, {"ou", 20}, {"oa", 10}, {"oo", 10}, {"ow", 10}}},
    {U'ඕ', {{"o", 620}, {"a", 150}, {"au", 140}, {"aw", 30}, {"oa", 60}}},
    {0x0DDD, {{"o", 550}, {"oa", 100}, {"ow", 80}, {"a", 70}, {"au", 40}, {"aw", 40}, {"oo", 30}, {"ou", 40},
         {"oe", 10}, {"oar", 10}, {"ore", 20}, {"our", 10}}},
    {0x0DDE, {{"ou", 580}, {"ow", 380}, {"au", 40}}},

    // Consonants, doubled ones and those of Greek and French. An x is a k, and the s after it goes unwritten.
    {U'ක', {{"c", 420}, {"k", 260}, {"ck", 90}, {"ch", 50}, {"cc", 30}, {"x", 70}, {"q", 30}, {"qu", 30},
         {"kk", 10}, {"lk", 10}}},
    {U'ග', {{"g", 860}, {"gg", 60}, {"gh", 30}, {"gu", 50}}},
    {U'ච', {{"ch", 720}, {"t", 140}, {"tch", 110}, {"c", 30}}},
    {U'ජ', {{"j", 380}, {"g", 420}, {"dg", 110}, {"d", 50}, {"gg", 10}, {"z", 30}}},
    {U'ට', {{"t", 840}, {"tt", 90}, {"th", 20}, {"ed", 20}, {"bt", 10}, {"ght", 20}}},
    {U'ත', {{"th", 850}, {"t", 150}}},
    {U'ද', {{"th", 500}, {"d", 500}}},
    {U'ඩ', {{"d", 880}, {"dd", 60}, {"ed", 60}}},
    {U'ප', {{"p", 880}, {"pp", 110}, {"pe", 10}}},
    {U'බ', {{"b", 910}, {"bb", 90}}},
    {U'ෆ', {{"f", 660}, {"ph", 170}, {"ff", 140}, {"gh", 30}}},
    {U'න', {{"n", 900}, {"nn", 60}, {"kn", 30}, {"gn", 10}}},
    {U'ණ', {{"n", 900}, {"nn", 60}, {"kn", 40}}},
    {U'ම', {{"m", 900}, {"mm", 80}, {"mb", 20}}},
    {0x0D82, {{"n", 620}, {"ng", 340}, {"m", 40}}},
    {U'ඟ', {{"ng", 900}, {"g", 100}}},
    {U'ඬ', {{"nd", 900}, {"d", 100}}},
    {U'ඳ', {{"nd", 900}, {"d", 100}}},
    {U'ඹ', {{"mb", 900}, {"b", 100}}},
    {U'ය', {{"", 550}, {"y", 280}, {"i", 130}, {"u", 20}, {"e", 20}}},
    {U'ර', {{"r", 860}, {"rr", 50}, {"wr", 30}, {"re", 20}, {"rh", 10}, {"", 30}}},
    {U'ල', {{"l", 760}, {"ll", 170}, {"le", 70}}},
    {U'ළ', {{"l", 800}, {"ll", 200}}},
    {U'ව', {{"v", 420}, {"w", 320}, {"wh", 60}, {"u", 70}, {"o", 40}, {"f", 10}, {"", 80}}},
    {U'ශ', {{"sh", 550}, {"s", 120}, {"ti", 150}, {"ss", 50}, {"ch", 50}, {"ci", 40}, {"si", 20}, {"c", 20}}},
    {U'ෂ', {{"sh", 520}, {"ti", 200}, {"s", 80}, {"ss", 50}, {"ch", 60}, {"ci", 40}, {"si", 30}, {"c", 20}}},
    {U'ස', {{"s", 670}, {"c", 100}, {"ss", 90}, {"", 60}, {"z", 40}, {"sc", 20}, {"ps", 10}, {"st", 10}}},
    {U'හ', {{"h", 930}, {"wh", 50}, {"", 20}}},

    // An e at the end is silent, and so are others.
    {0x0DCA, {{"", 859}, {"e", 130}, {"w", 10}}},
});

// clang-format on

static_assert(noLetterTwice(english) && noWayTwice(english) && rowsSumToOne(english));
static_assert(allAreShortAndSmall(english));

} // namespace

std::span<const Row> ofEnglish() noexcept {
    return english;
}

} // namespace vanoka::ReadingRows
