#include "Fuzz.h"
#include "PlainSwipe.h"
#include "swipe/SwipeDecoder.h"

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
    double next = 0;
    for (const char letter : std::string("qwertyuiopasdfghjklzxcvbnm")) {
        const SwipePoint usual = {static_cast<double>(static_cast<int>(next) % 10) * 10 + 5,
                                  static_cast<double>(static_cast<int>(next) / 10) * 15 + 7};
        keys[std::string(1, letter)] = isOdd ? point(input) : usual;
        ++next;
    }
    const double keyWidth = input.byte() % 4 == 0 ? coordinate(input) : 10;
    const std::int64_t limit = input.byte() % 8;
    std::vector<SwipePoint> stroke;
    while (!input.isEmpty() && stroke.size() < 40)
        stroke.push_back(point(input));

    const SwipeDecoder decoder(words);
    const test::plain::SwipeDecoder plain(words);
    fuzz::expect(decoder.count() == plain.count(), "the plain rules keep as many words");
    const auto byDistance = plain.wordsFor(stroke, keys, keyWidth, limit, personal);
    fuzz::expect(decoder.wordsFor(stroke, keys, keyWidth, limit, personal) == byDistance,
                 "the plain rules rank the same");
    const SwipeDecoder people(words, SwipeWeights::people);
    const auto byPeople = plain.wordsByPeople(stroke, keys, keyWidth, limit, personal);
    fuzz::expect(people.wordsFor(stroke, keys, keyWidth, limit, personal) == byPeople,
                 "and so they do with the people's weights");
    const SwipeLayout layout(keys);
    SwipeMemory memory;
    fuzz::expect(decoder.wordsFor(stroke, layout, keyWidth, limit, personal, &memory) == byDistance &&
                     people.wordsFor(stroke, layout, keyWidth, limit, personal, &memory) == byPeople,
                 "and when more is known");
    return 0;
}
