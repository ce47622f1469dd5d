#pragma once

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

namespace vanoka::fuzz {

/// The sequences of a few keys that make one text, looked up in the plainest way.
class PlainSequences {
public:
    struct Row {
        std::vector<std::uint32_t> keysyms;
        std::string text;
    };
    static const std::vector<Row>& rows() {
        static const std::vector<Row> all = {{{deadAcute, 'e'}, "\u00E9"},
                                             {{deadAcute, deadAcute}, "\u00B4"},
                                             {{compose, 'o', 'o'}, "\u00B0"},
                                             {{compose, 'k', 'a'}, "\u0D9A"},
                                             {{compose, 'k', deadAcute, 'k'}, "\u0D9A\u0DCA"}};
        return all;
    }
    /// The same as a file that every desktop reads.
    static void write(const std::string& path) {
        std::ofstream file(path);
        for (const Row& row : rows()) {
            for (const std::uint32_t keysym : row.keysyms)
                file << "<" << nameOf(keysym) << "> ";
            file << ": \"" << row.text << "\"\n";
        }
    }

    /// What a key makes that is part of a sequence: a text, or nothing yet or at all. No value for one that
    /// is part of none. One that does not go on with the sequence may begin another. Keys that only change
    /// others are not to be passed.
    std::optional<std::string> press(std::uint32_t keysym) {
        const bool wasUnderway = !pressed_.empty();
        if (!wasUnderway && !begins(keysym))
            return std::nullopt;
        pressed_.push_back(keysym);
        for (const Row& row : rows())
            if (row.keysyms == pressed_)
                return pressed_.clear(), row.text;
        if (std::ranges::any_of(rows(), [&](const Row& row) { return beginsWith(row.keysyms, pressed_); }))
            return "";
        pressed_.clear();
        if (wasUnderway && begins(keysym))
            return press(keysym);
        const bool givesUp = wasUnderway && (keysym == backSpace || keysym == escape);
        return givesUp ? std::optional<std::string>("") : std::nullopt;
    }

    void end() { pressed_.clear(); }

private:
    static constexpr std::uint32_t deadAcute = 0xFE51, compose = 0xFF20, backSpace = 0xFF08, escape = 0xFF1B;

    static bool begins(std::uint32_t keysym) {
        return (keysym >= 0xFE50 && keysym <= 0xFE93) || keysym == compose;
    }
    static bool beginsWith(const std::vector<std::uint32_t>& all, const std::vector<std::uint32_t>& first) {
        return all.size() > first.size() && std::equal(first.begin(), first.end(), all.begin());
    }
    static std::string nameOf(std::uint32_t keysym) {
        if (keysym == deadAcute)
            return "dead_acute";
        return keysym == compose ? "Multi_key" : std::string(1, static_cast<char>(keysym));
    }

    std::vector<std::uint32_t> pressed_;
};

} // namespace vanoka::fuzz
