#include "SwipeRandoms.h"

#include "swipe/SwipeSpellings.h"

#include <limits>

namespace vanoka::test {

SwipeKeys qwerty() {
    constexpr double width = 10, height = 15;
    SwipeKeys keys;
    double y = height / 2, indent = 0;
    for (const std::string_view row : {"qwertyuiop", "asdfghjkl", "zxcvbnm"}) {
        for (std::size_t i = 0; i < row.size(); ++i)
            keys[std::string(1, row[i])] = {indent + width * (static_cast<double>(i) + 0.5), y};
        y += height;
        indent += indent == 0 ? width / 2 : width;
    }
    return keys;
}

std::vector<SwipePoint> strokeOver(const SwipeKeys& keys, std::string_view spelling) {
    std::vector<SwipePoint> stroke;
    for (const char key : spelling)
        if (const auto found = keys.find(std::string(1, key)); found != keys.end())
            stroke.push_back(found->second);
    return stroke;
}

std::string SwipeRandoms::word() {
    static const std::vector<std::string> latin = {"a", "s", "e", "l", "A", "t", "h", "m", "k", "K", "o"};
    static const std::vector<std::string> sinhala = {
        "\u0D85", "\u0D9A", "\u0DB8", "\u0DAD",       "\u0DC4",
        "\u0DC1", "\u0DCF", "\u0DD2", "\u0DD0",       "\u0DCA",
        "\u0D82", "\u0DBB", "\u0DDC", "\u0DD9\u0DCF", "\u0DCA\u200D\u0DBA",
        "\u0DAF"};
    static const std::vector<std::string> odd = {"", "1", "a\u0D9A", "\xFF", "\u0DCA", "it's"};
    if (oneIn(30))
        return of(odd);
    const auto& letters = oneIn(3) ? latin : sinhala;
    std::string word;
    for (std::size_t length = 1 + below(oneIn(40) ? 400 : 7); length > 0; --length)
        word += of(letters);
    return word;
}

std::int64_t SwipeRandoms::count() {
    if (oneIn(10))
        return oneIn(2) ? std::numeric_limits<std::int64_t>::max() : -5;
    return static_cast<std::int64_t>(oneIn(2) ? below(4) : below(100'000));
}

std::vector<std::pair<std::string, std::int64_t>> SwipeRandoms::words(std::size_t most) {
    std::vector<std::pair<std::string, std::int64_t>> words;
    for (std::size_t size = below(most + 1); size > 0; --size)
        words.emplace_back(!words.empty() && oneIn(20) ? of(words).first : word(), count());
    return words;
}

SwipeDecoder::Personal
SwipeRandoms::personal(const std::vector<std::pair<std::string, std::int64_t>>& words) {
    SwipeDecoder::Personal personal;
    if (oneIn(3))
        return personal;
    const bool mayBeNegative = oneIn(2);
    for (std::size_t size = below(10); size > 0; --size) {
        const auto count = static_cast<std::int64_t>(below(200));
        std::string word = words.empty() || oneIn(3) ? this->word() : of(words).first;
        if (const auto k = word.find('K'); k != std::string::npos && oneIn(2))
            word.replace(k, 1, "\u212A"); // the same letter
        personal[std::move(word)] = mayBeNegative && oneIn(2) ? -count : count;
    }
    return personal;
}

double SwipeRandoms::oddNumber() {
    static const std::vector<double> numbers = {std::numeric_limits<double>::infinity(),
                                                -std::numeric_limits<double>::infinity(),
                                                std::numeric_limits<double>::quiet_NaN(),
                                                1e300,
                                                -1e154,
                                                5e-324,
                                                0,
                                                1e9};
    return of(numbers);
}

SwipeKeys SwipeRandoms::layout() {
    SwipeKeys keys;
    static const std::vector<double> scales = {1, 1, 1, 1e-160, 1e-9, 1e20, 1e150, 0, 1e40};
    const double scale = oneIn(4) ? of(scales) : between(0.5, 20);
    const double away = oneIn(4) ? of(scales) : between(-500, 500);
    for (const auto& [label, center] : qwerty()) {
        if (oneIn(3) && oneIn(40))
            continue;
        keys[label] = {center.x * scale + away, center.y * scale - away};
        if (oneIn(3) && oneIn(40))
            keys[label].x = oddNumber();
    }
    if (oneIn(10))
        for (auto& [label, center] : keys)
            center = {between(0, 100), between(0, 100)};
    if (oneIn(10) && keys.contains("t"))
        for (const char* label : {"d", "h", "s"})
            keys[label] = keys.at("t");
    keys["\u0D9A"] = {1, 1};
    keys["\r\n"] = {100 * scale + away, 30 * scale - away};
    return keys;
}

std::vector<SwipePoint> SwipeRandoms::stroke(const SwipeKeys& keys) {
    const std::string spelling = swipeSpellings(word()).full;
    std::vector<SwipePoint> stroke = strokeOver(keys, oneIn(5) ? "tla" : spelling);
    if (keys.count("a") && keys.count("l")) {
        const double size = keys.at("l").x - keys.at("a").x;
        for (SwipePoint& point : stroke)
            point = {point.x + size * between(-0.06, 0.06), point.y + size * between(-0.06, 0.06)};
    }
    if (oneIn(3) && !stroke.empty()) { // the finger rests
        const std::size_t at = oneIn(2) ? 0 : below(stroke.size());
        stroke.insert(stroke.begin() + static_cast<std::ptrdiff_t>(at), 1 + below(4), SwipePoint(stroke[at]));
    }
    if (oneIn(20) && !stroke.empty())
        stroke[below(stroke.size())] = {oddNumber(), oddNumber()};
    return stroke;
}

} // namespace vanoka::test
