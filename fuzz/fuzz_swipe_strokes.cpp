#include "Fuzz.h"
#include "SwipeTwins.h"

#include <cstring>
#include <utility>
#include <vector>

using namespace vanoka;

namespace {

/// Mostly a place on a keyboard of 100 by 45, at times any number at all.
double coordinate(fuzz::Input& input) {
    const std::uint8_t first = input.byte();
    if (first != 255)
        return first / 2.0;
    double any = 0;
    unsigned char bytes[sizeof any];
    for (unsigned char& byte : bytes)
        byte = input.byte();
    std::memcpy(&any, bytes, sizeof any);
    return any;
}

SwipePoint point(fuzz::Input& input) {
    const double x = coordinate(input), y = coordinate(input);
    return {x, y};
}

std::string word(fuzz::Input& input) {
    static constexpr std::string_view letters[] = {
        "a", "s", "t", "h", "\u0D9A", "\u0DAD", "\u0DB8", "\u0DCF", "\u0DD0", "\u0DCA", "\u0D82", "\u200D"};
    std::string word;
    for (int count = input.byte() % 8; count > 0; --count)
        word += letters[input.byte() % 12];
    return word;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    std::vector<std::pair<std::string, std::int64_t>> list;
    for (int count = input.byte() % 32; count > 0; --count) {
        std::string next = word(input);
        list.emplace_back(std::move(next), input.byte());
    }
    std::vector<SwipeDecoder::Word> words;
    for (const auto& [text, count] : list)
        words.push_back({text, count});
    SwipeDecoder::Personal personal;
    for (int count = input.byte() % 4; count > 0; --count) {
        std::string next = word(input);
        personal[std::move(next)] = static_cast<std::int8_t>(input.byte());
    }
    SwipeKeys keys;
    const bool isOdd = input.byte() % 4 == 0;
    for (const char letter : fuzz::UsualKeys::letters)
        keys[std::string(1, letter)] = isOdd ? point(input) : fuzz::UsualKeys::center(letter);
    const double keyWidth = input.byte() % 4 == 0 ? coordinate(input) : fuzz::UsualKeys::width;
    const std::int64_t limit = input.byte() % 8;
    std::vector<SwipePoint> stroke;
    while (!input.isEmpty() && stroke.size() < 40)
        stroke.push_back(point(input));

    fuzz::SwipeTwins(words).expectSameWords(stroke, keys, keyWidth, limit, personal);
    return 0;
}
