#include "Fuzz.h"
#include "KeyParser.h"
#include "LineModel.h"
#include "LineView.h"
#include "PlainKeyParser.h"
#include "TypedLine.h"
#include "VanokaInputController.h"
#include "text/Utf8.h"

#include <algorithm>
#include <vector>

using namespace vanoka;
using fuzz::PlainKeyParser;

/// The bytes of a terminal, which come in pieces, with silences between some: read into keys and pastes,
/// typed into a line, and drawn.
namespace {

bool isSame(const KeyParser::Input& one, const KeyParser::Input& other) {
    if (one.index() != other.index())
        return false;
    if (const auto* paste = std::get_if<Paste>(&one))
        return *paste == std::get<Paste>(other);
    const auto &key = std::get<KeyEvent>(one), &same = std::get<KeyEvent>(other);
    return key.type == same.type && key.keyCode == same.keyCode && key.modifierFlags == same.modifierFlags &&
           key.characters == same.characters;
}

std::vector<KeyParser::Input> inputsOf(KeyParser& parser) {
    std::vector<KeyParser::Input> inputs;
    while (auto input = parser.next())
        inputs.push_back(*std::move(input));
    return inputs;
}

/// What comes in pieces without a silence is what comes at once.
void expectSameInPieces(const std::string& bytes, std::uint8_t piece) {
    KeyParser whole, cut;
    whole.feed(bytes);
    const auto expected = inputsOf(whole);
    std::vector<KeyParser::Input> inputs;
    const std::size_t length = 1 + piece % 16U;
    for (std::size_t at = 0; at < bytes.size(); at += length) {
        cut.feed(std::string_view(bytes).substr(at, length));
        std::ranges::move(inputsOf(cut), std::back_inserter(inputs));
    }
    fuzz::expect(std::ranges::equal(inputs, expected, isSame), "pieces make the same keys");
    fuzz::expect(whole.takeUnfinishedPaste() == cut.takeUnfinishedPaste(), "and the same open paste");
}

bool isPiece(const KeyParser::Input& input, const PlainKeyParser::Piece& piece) {
    if (const auto* key = std::get_if<KeyEvent>(&piece))
        return isSame(input, *key);
    if (const auto* paste = std::get_if<Paste>(&piece))
        return isSame(input, *paste);
    const auto* key = std::get_if<KeyEvent>(&input);
    return key && key->keyCode == KeyEvent::otherKey && fuzz::typedBy(*key).empty();
}

/// What comes at once, and a silence after it, is what a plain reading makes of it: no byte is lost.
void expectReadPlainly(const std::string& bytes) {
    PlainKeyParser plain(bytes);
    plain.fallSilent();
    KeyParser parser;
    parser.feed(bytes);
    std::vector<KeyParser::Input> inputs = inputsOf(parser);
    while (parser.patience()) {
        if (auto waiting = parser.flush())
            inputs.push_back(*std::move(waiting));
        std::ranges::move(inputsOf(parser), std::back_inserter(inputs));
    }
    fuzz::expect(std::ranges::equal(inputs, plain.pieces(), isPiece), "a plain reading gives the same keys");
    fuzz::expect(parser.takeUnfinishedPaste() == plain.openPaste(), "and the same open paste");
}

/// The line as a session at a terminal handles it.
class Typist {
public:
    Typist()
        : settings_(defaults_),
          controller_("terminal", settings_),
          view_({20, 4}),
          model_(settings_.transliterator()) {}

    void type(const KeyParser::Input& input) {
        if (const auto* event = std::get_if<KeyEvent>(&input))
            press(*event);
        else
            end();
        model_.expectShown(line_);
        draw();
    }

    void resize(std::uint8_t columns, std::uint8_t rows) {
        view_.resize({1 + columns % 40U, 1 + rows % 8U});
        draw();
    }

private:
    void press(const KeyEvent& event) {
        fuzz::expect(!event.characters || text::isWellFormed(*event.characters),
                     "a key types well-formed text");
        model_.press(event);
        if (!controller_.handle(&event, &line_))
            line_.apply(event);
    }

    /// As before a paste.
    void end() {
        model_.end();
        controller_.commitComposition(&line_);
    }

    void draw() {
        const std::string bytes = view_.draw(line_);
        fuzz::expect(text::isWellFormed(bytes), "what is drawn is well-formed");
    }

    MemoryUserDefaults defaults_;
    SinglishSettings settings_;
    VanokaInputController controller_;
    TypedLine line_;
    LineView view_;
    fuzz::LineModel model_;
};

/// Nothing stays behind: after silences the parser waits for nothing but the rest of a scalar or of a paste.
void expectNothingHeldBack(KeyParser& parser) {
    for (int silences = 0; parser.patience() && silences < 200; ++silences) {
        parser.flush();
        inputsOf(parser);
    }
    fuzz::expect(!parser.patience(), "silence ends what waits for it");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, std::min<std::size_t>(size, 600));
    const std::uint8_t piece = input.byte();
    const std::string bytes = fuzz::Input(input).rest();
    expectSameInPieces(bytes, piece);
    expectReadPlainly(bytes);
    KeyParser parser;
    Typist typist;
    while (!input.isEmpty()) {
        const std::uint8_t step = input.byte();
        if (step % 16 == 15)
            typist.resize(input.byte(), input.byte());
        else if (step % 16 > 12 && parser.patience()) {
            if (const auto waiting = parser.flush())
                typist.type(*waiting);
        } else
            parser.feed(input.text(24));
        for (const KeyParser::Input& each : inputsOf(parser))
            typist.type(each);
    }
    expectNothingHeldBack(parser);
    return 0;
}
