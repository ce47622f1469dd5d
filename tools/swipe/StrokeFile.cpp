#include "StrokeFile.h"

#include <array>
#include <optional>

namespace vanoka {

namespace {

std::optional<SwipePoint> point(std::string_view text) {
    const std::size_t comma = text.find(',');
    if (comma == std::string_view::npos)
        return std::nullopt;
    const auto x = number<double>(text.substr(0, comma)), y = number<double>(text.substr(comma + 1));
    return x && y ? std::optional(SwipePoint{*x, *y}) : std::nullopt;
}

std::variant<MeantStroke, std::string> stroke(std::string_view line) {
    const auto fields = parts(line, "\t\r");
    if (fields.size() != 3)
        return "Not a word, a key width and points with tabs between";
    const auto width = number<double>(fields[1]);
    if (!width)
        return "The key width is not a number";
    MeantStroke read{std::string(fields[0]), *width, {}};
    for (const std::string_view each : parts(fields[2], " ")) {
        const auto next = point(each);
        if (!next)
            return "Not a point: " + std::string(each);
        read.points.push_back(*next);
    }
    return read;
}

/// The shortest text that reads as the same number.
std::string shortest(double number) {
    std::array<char, 32> text;
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), number);
    return {text.data(), end};
}

} // namespace

std::variant<std::vector<MeantStroke>, BadLine> readStrokes(std::istream& input) {
    std::vector<MeantStroke> strokes;
    Lines lines(input);
    for (std::string text; lines.next(text);) {
        if (text.starts_with('#') || parts(text, "\t\r ").empty())
            continue;
        auto read = stroke(text);
        if (const auto* problem = std::get_if<std::string>(&read))
            return BadLine{lines.number(), *problem};
        strokes.push_back(std::get<MeantStroke>(std::move(read)));
    }
    return strokes;
}

void writeStroke(std::ostream& output, const MeantStroke& stroke) {
    output << stroke.word << '\t' << shortest(stroke.keyWidth) << '\t';
    for (const char* gap = ""; const SwipePoint each : stroke.points) {
        output << gap << shortest(each.x) << ',' << shortest(each.y);
        gap = " ";
    }
    output << '\n';
}

} // namespace vanoka
