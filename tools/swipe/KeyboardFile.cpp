#include "KeyboardFile.h"

#include <cmath>
#include <optional>

namespace vanoka {

namespace {

using Fields = std::vector<std::string_view>;

std::optional<double> length(std::string_view text) {
    const auto value = number<double>(text);
    return value && std::isfinite(*value) ? value : std::nullopt;
}

class KeyboardReader {
public:
    /// What is wrong with the line; empty when nothing is.
    std::string read(const Fields& fields) {
        const std::string_view kind = fields[0];
        if (kind == "width")
            return readSize(fields, keyboard_.keyWidth);
        if (kind == "height")
            return readSize(fields, keyboard_.keyHeight);
        if (kind == "row")
            return readRow(fields);
        if (kind == "key")
            return readKey(fields);
        return "Not one of width, height, row and key";
    }

    std::string finish() const { return keyboard_.keys.empty() ? "No keys" : ""; }
    Keyboard take() { return std::move(keyboard_); }

private:
    static std::string readSize(const Fields& fields, double& size) {
        const auto value = fields.size() == 2 ? length(fields[1]) : std::nullopt;
        if (!value || !(*value > 0))
            return "Not a length greater than 0";
        size = *value;
        return "";
    }

    std::string readRow(const Fields& fields) {
        if (!(keyboard_.keyWidth > 0 && keyboard_.keyHeight > 0))
            return "A row before the keys' width and height";
        const auto left = fields.size() > 2 ? length(fields[1]) : std::nullopt;
        if (!left)
            return "Not a row of where it starts and its labels";
        for (std::size_t i = 2; i < fields.size(); ++i)
            keyboard_.keys.push_back({std::string(fields[i]),
                                      {*left + keyboard_.keyWidth * (static_cast<double>(i - 2) + 0.5),
                                       top_ + keyboard_.keyHeight / 2}});
        top_ += keyboard_.keyHeight;
        return "";
    }

    std::string readKey(const Fields& fields) {
        if (!(keyboard_.keyWidth > 0 && keyboard_.keyHeight > 0))
            return "A key before the keys' width and height";
        const auto x = fields.size() == 4 ? length(fields[2]) : std::nullopt;
        const auto y = fields.size() == 4 ? length(fields[3]) : std::nullopt;
        if (!x || !y)
            return "Not a key of a label and two coordinates";
        keyboard_.keys.push_back({std::string(fields[1]), {*x, *y}});
        return "";
    }

    Keyboard keyboard_;
    double top_ = 0; // of the next row
};

} // namespace

SwipeKeys Keyboard::layout() const {
    SwipeKeys layout;
    for (const Key& key : keys)
        layout.insert_or_assign(key.label, key.center);
    return layout;
}

std::variant<Keyboard, BadLine> readKeyboard(std::istream& input) {
    KeyboardReader reader;
    Lines lines(input);
    for (std::string text; lines.next(text);) {
        const Fields fields = parts(text, " \t\r");
        if (fields.empty() || fields[0].starts_with('#'))
            continue;
        if (std::string problem = reader.read(fields); !problem.empty())
            return BadLine{lines.number(), problem};
    }
    if (std::string problem = reader.finish(); !problem.empty())
        return BadLine{lines.number(), problem};
    return reader.take();
}

} // namespace vanoka
