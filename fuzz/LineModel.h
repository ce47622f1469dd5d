#pragma once

#include "FieldModel.h"
#include "TypedLine.h"
#include "script/SinhalaBlock.h"
#include "text/Category.h"
#include "text/Characters.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vanoka::fuzz {

/// What the line on a terminal must hold: a field that ends at the caret, and the text after it.
class LineModel {
public:
    explicit LineModel(test::plain::Keys keys)
        : before_(std::move(keys),
                  [this](const KeyEvent& event, std::string& before) { apply(event, before); }) {}
    LineModel(const LineModel&) = delete;
    LineModel& operator=(const LineModel&) = delete;
    ~LineModel() = default;

    void press(const KeyEvent& event) { before_.press(event); }
    void end() { before_.end(); }

    void expectShown(const TypedLine& line) const {
        before_.expectShown(line.text().substr(0, line.caret()), line.marked(), {});
        expect(line.text().substr(line.caret()) == after_, "what stands after the caret stays there");
    }

private:
    /// Characters as a terminal draws them: a joiner ties the next one to those before.
    static std::vector<std::string> drawn(std::string_view text) {
        std::vector<std::string> all;
        for (const std::string_view character : text::Characters(text)) {
            if (all.empty() || !all.back().ends_with("\u200D"))
                all.emplace_back();
            all.back() += character;
        }
        return all;
    }

    void apply(const KeyEvent& event, std::string& before) {
        const char32_t scalar = text::firstScalar(event.characters.value_or("")).value;
        const bool isShortcut = (event.modifierFlags & KeyEvent::shortcutModifiers) != 0;
        if (event.keyCode == KeyEvent::deleteBackward)
            deleteBackward(before);
        else if (event.modifierFlags & KeyEvent::control)
            edit(FunctionKey::contains(scalar) ? 0 : U'@' + scalar, before);
        else if (!isShortcut && FunctionKey::contains(scalar))
            edit(scalar, before);
        else if (!isShortcut && (scalar == U'\t' || !text::isControl(scalar)))
            before += event.characters.value_or("");
    }

    /// An editing key, or the letter that is typed with Control.
    void edit(char32_t key, std::string& before) {
        switch (key) {
        case U'A':
        case FunctionKey::home:
            return moveCaret(before, 0);
        case U'E':
        case FunctionKey::end:
            return moveCaret(before, before.size() + after_.size());
        case U'B':
        case FunctionKey::leftArrow:
            return moveCaret(before, before.size() - lastLength(before));
        case U'F':
        case FunctionKey::rightArrow:
            return moveCaret(before, before.size() + firstLength(after_));
        case U'D':
        case FunctionKey::deleteForward:
            after_.erase(0, firstLength(after_));
            return;
        case U'H':
            return deleteBackward(before);
        case U'K':
            return after_.clear();
        case U'U':
            return before.clear();
        case U'W':
            before.resize(before.find_last_not_of(' ') + 1);
            before.resize(before.find_last_of(' ') + 1);
            return;
        default:
            return;
        }
    }

    void moveCaret(std::string& before, std::size_t to) {
        const std::string all = before + after_;
        before = all.substr(0, to);
        after_ = all.substr(to);
    }

    static std::size_t firstLength(std::string_view text) {
        const auto all = drawn(text);
        return all.empty() ? 0 : all.front().size();
    }
    static std::size_t lastLength(std::string_view text) {
        const auto all = drawn(text);
        return all.empty() ? 0 : all.back().size();
    }

    static void deleteBackward(std::string& before) {
        const bool isSinhala = script::isSinhala(text::lastScalar(before).value);
        before.resize(isSinhala ? withoutLastPart(before).size() : before.size() - lastLength(before));
    }

    FieldModel before_;
    std::string after_;
};

} // namespace vanoka::fuzz
