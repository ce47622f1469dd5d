#include "Drawing.h"

#include "swipe/SwipeCost.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iomanip>
#include <sstream>
#include <string>
#include <string_view>

namespace vanoka {

namespace {

using Points = std::span<const SwipePoint>;

/// Told apart by eyes that see no red or no green, too.
constexpr auto colours =
    std::to_array<std::string_view>({"#0072b2", "#d55e00", "#009e73", "#cc79a7", "#e69f00", "#56b4e9"});

constexpr double scale = 60; // a key width, in the picture's units
constexpr double margin = 14, drawnRowHeight = 22;

struct Box {
    double left, top, right, bottom;
};

bool isSomewhere(SwipePoint point) {
    return std::isfinite(point.x) && std::isfinite(point.y);
}

std::string escaped(std::string_view text) {
    std::string result;
    for (const char byte : text) {
        switch (byte) {
        case '&':
            result += "&amp;";
            break;
        case '<':
            result += "&lt;";
            break;
        case '>':
            result += "&gt;";
            break;
        default:
            if (static_cast<unsigned char>(byte) >= 0x20)
                result += byte;
        }
    }
    return result;
}

class Picture {
public:
    Picture(const Keyboard& keyboard, Points stroke) : keyboard_(keyboard), box_(boxOf(keyboard, stroke)) {
        body_ << std::fixed << std::setprecision(1);
    }

    std::string finish(std::size_t rows) const {
        const double width = std::max(480.0, (box_.right - box_.left) * unit() + 2 * margin);
        const double height = rowsTop() + drawnRowHeight * static_cast<double>(rows) + margin;
        std::ostringstream svg;
        svg << std::fixed << std::setprecision(0)
            << "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " << width << ' ' << height
            << "\" font-family=\"sans-serif\">\n<rect width=\"" << width << "\" height=\"" << height
            << "\" fill=\"#ffffff\"/>\n"
            << body_.str() << "</svg>\n";
        return svg.str();
    }

    void keys() {
        for (const Keyboard::Key& key : keyboard_.keys) {
            const SwipePoint at =
                place({key.center.x - keyboard_.keyWidth / 2, key.center.y - keyboard_.keyHeight / 2});
            const SwipePoint middle = place(key.center);
            body_ << "<rect x=\"" << at.x + 2 << "\" y=\"" << at.y + 2 << "\" width=\""
                  << keyboard_.keyWidth * unit() - 4 << "\" height=\"" << keyboard_.keyHeight * unit() - 4
                  << "\" rx=\"6\" fill=\"#eceff1\"/>\n<text x=\"" << middle.x << "\" y=\"" << middle.y + 6
                  << "\" font-size=\"18\" fill=\"#90a4ae\" text-anchor=\"middle\">" << escaped(key.label)
                  << "</text>\n";
        }
    }

    void path(Points points, std::string_view colour, std::string_view style) {
        body_ << "<polyline fill=\"none\" stroke=\"" << colour << "\" " << style << " points=\"";
        for (const char* gap = ""; const SwipePoint each : points) {
            if (!isSomewhere(each))
                continue;
            const SwipePoint at = place(each);
            body_ << gap << at.x << ',' << at.y;
            gap = " ";
        }
        body_ << "\"/>\n";
    }

    void dots(Points points, std::string_view colour, double radius) {
        for (const SwipePoint each : points) {
            if (!isSomewhere(each))
                continue;
            const SwipePoint at = place(each);
            body_ << "<circle cx=\"" << at.x << "\" cy=\"" << at.y << "\" r=\"" << radius << "\" fill=\""
                  << colour << "\"/>\n";
        }
    }

    void row(std::size_t index, std::string_view colour, std::string_view text) {
        body_ << "<text x=\"" << margin << "\" y=\""
              << rowsTop() + drawnRowHeight * static_cast<double>(index) + 14 << "\" font-size=\"15\" fill=\""
              << colour << "\">" << text << "</text>\n";
    }

private:
    static Box boxOf(const Keyboard& keyboard, Points stroke) {
        const SwipePoint first = keyboard.keys.front().center;
        Box box{first.x, first.y, first.x, first.y};
        const auto reach = [&box](SwipePoint point, double x, double y) {
            box = {std::min(box.left, point.x - x), std::min(box.top, point.y - y),
                   std::max(box.right, point.x + x), std::max(box.bottom, point.y + y)};
        };
        for (const Keyboard::Key& key : keyboard.keys)
            reach(key.center, keyboard.keyWidth / 2, keyboard.keyHeight / 2);
        for (const SwipePoint point : stroke)
            if (isSomewhere(point))
                reach(point, 0, 0);
        return box;
    }

    double unit() const { return scale / keyboard_.keyWidth; }
    double rowsTop() const { return (box_.bottom - box_.top) * unit() + 2 * margin; }
    SwipePoint place(SwipePoint point) const {
        return {(point.x - box_.left) * unit() + margin, (point.y - box_.top) * unit() + margin};
    }

    const Keyboard& keyboard_;
    Box box_;
    std::ostringstream body_;
};

std::string reasons(std::size_t place, const Explanation& word) {
    std::ostringstream text;
    text << std::fixed << place << ". " << escaped(word.word) << " \u00B7 " << word.spelling << " \u00B7 "
         << std::setprecision(2) << word.keyWidths << " key widths away \u00B7 count " << word.count
         << " \u00B7 score " << word.score;
    return text.str();
}

} // namespace

void drawStroke(std::ostream& output, const Keyboard& keyboard, const MeantStroke& stroke,
                std::span<const Explanation> words) {
    Picture picture(keyboard, stroke.points);
    picture.keys();
    for (std::size_t i = std::min(words.size(), colours.size()); i > 0; --i)
        picture.path(words[i - 1].path, colours[i - 1],
                     i == 1 ? "stroke-width=\"5\" stroke-opacity=\"0.8\""
                            : "stroke-width=\"3\" stroke-opacity=\"0.6\"");
    picture.path(stroke.points, "#263238", "stroke-width=\"2\"");
    picture.dots(stroke.points, "#263238", 1.5);
    picture.dots(SwipeGeometry::resample(stroke.points, SwipeCost::comparedPoints), "#263238", 3.5);
    std::size_t rows = 0;
    picture.row(rows++, "#263238",
                "Meant: " + escaped(stroke.word) +
                    " \u00B7 black: the stroke, with the points that are compared");
    for (std::size_t i = 0; i < std::min(words.size(), colours.size()); ++i)
        picture.row(rows++, colours[i], reasons(i + 1, words[i]));
    output << picture.finish(rows);
}

} // namespace vanoka
