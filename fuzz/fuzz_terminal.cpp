#include "Fuzz.h"
#include "KeyParser.h"
#include "LineView.h"
#include "TypedLine.h"
#include "VanokaInputController.h"
#include "text/Utf8.h"

#include <algorithm>
#include <vector>

using namespace vanoka;

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

/// Well-formed text without escapes is typed as it is.
void expectTypedWhole(const std::string& bytes) {
    if (!text::isWellFormed(bytes) || bytes.find('\x1B') != std::string::npos)
        return;
    KeyParser parser;
    parser.feed(bytes);
    std::string typed;
    for (const KeyParser::Input& each : inputsOf(parser))
        typed += std::get<KeyEvent>(each).characters.value_or("");
    fuzz::expect(typed == bytes, "no byte is lost");
}

/// The line as a session at a terminal handles it.
class Typist {
public:
    Typist() : settings_(defaults_), controller_("terminal", settings_), view_({20, 4}) {}

    void type(const KeyParser::Input& input) {
        if (const auto* event = std::get_if<KeyEvent>(&input))
            press(*event);
        else
            controller_.commitComposition(&line_);
        expectWhole();
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
        const std::string before = line_.text();
        if (controller_.handle(&event, &line_))
            fuzz::expect(line_.text().size() >= before.size(), "what is consumed takes no text away");
        else
            line_.apply(event);
    }

    void expectWhole() const {
        fuzz::expect(text::isWellFormed(line_.text()) && text::isWellFormed(line_.marked()),
                     "a line is well-formed");
        const auto caret = std::string_view(line_.text()).substr(0, line_.caret());
        fuzz::expect(text::isWellFormed(caret), "the caret stands between scalars");
        fuzz::expect(line_.marked().empty() || controller_.composer().isComposing(),
                     "marked text is composed text");
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
    expectTypedWhole(bytes);
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
