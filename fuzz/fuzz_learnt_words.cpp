#include "Fuzz.h"
#include "SinhalaPieces.h"
#include "Sqlite.h"
#include "WordSchema.h"
#include "WordsDocument.h"
#include "text/Equivalence.h"
#include "text/Utf8.h"

#include <algorithm>

using namespace vanoka;

/// What a person's words become in memory and in the database, told the same things; and the document in
/// which they travel, read from anything at all.
namespace {

class Stores {
public:
    Stores() {
        fuzz::expect(sqlite::open(":memory:", database_) == SQLITE_OK &&
                         WordSchema::migrate(database_.get(), 0) == SQLITE_OK,
                     "there is a database in memory");
    }

    void tell(const WordChange& change) {
        vanoka::apply(change, tally_);
        fuzz::expect(WordSchema::apply(database_.get(), change) == SQLITE_OK, "a change is taken");
    }

    void merge(const WordTally& other) {
        vanoka::merge(other, tally_);
        fuzz::expect(WordSchema::merge(database_.get(), other) == SQLITE_OK, "words are taken");
        expectSame();
        const WordTally once = tally_;
        vanoka::merge(other, tally_);
        fuzz::expect(tally_ == once, "words that are brought twice count once");
    }

    void expectSame() const {
        WordTally stored;
        fuzz::expect(WordSchema::read(database_.get(), stored) == SQLITE_OK, "the tables are read");
        fuzz::expect(stored == tally_, "the database holds what memory holds");
    }

    const WordTally& tally() const { return tally_; }

private:
    sqlite::Database database_;
    WordTally tally_;
};

/// Words of a small number of kinds, so that they meet.
std::string text(fuzz::Input& input) {
    static constexpr std::string_view often[] = {"amma", "Kade", "ok", "\u0D85\u0DB8\u0DCA\u0DB8\u0DCF",
                                                 "\u0D9A\u0DA9\u0DDA"};
    const std::uint8_t choice = input.byte();
    if (choice < 192)
        return std::string(often[choice % std::size(often)]);
    return choice < 240 ? fuzz::sinhalaWord(input) : input.text(20);
}

WordChange change(fuzz::Input& input) {
    const auto kind = static_cast<WordChange::Kind>(input.byte() % 3);
    const std::string word = text(input);
    if (kind == WordChange::Kind::forget)
        return {kind, LearntWords::formOf(word)};
    return {kind, LearntWords::learntFrom({text(input), word})};
}

void expectForms(const std::string& word) {
    const LearntWord form = LearntWords::formOf(word);
    fuzz::expect(form.sinhala.empty() || form.english.empty(), "a word is of one kind");
    for (const std::string& each : {form.sinhala, form.english}) {
        if (each.empty())
            continue;
        fuzz::expect(text::isWellFormed(each) && text::nfc(each) == each,
                     "it is kept well-formed and composed");
        const LearntWord again = LearntWords::formOf(each);
        fuzz::expect(again == form, "its form is its own form");
    }
}

void expectReadBack(const WordTally& tally) {
    const auto read = WordsDocument::read(WordsDocument::write(tally));
    const auto* same = std::get_if<WordTally>(&read);
    fuzz::expect(same && *same == tally, "a document gives back what it was written from");
    fuzz::expect(WordTally(WordTally(tally).words()) == tally, "so do the words that are asked");
}

/// True when the document was taken.
bool readDocument(const std::string& document, Stores& stores) {
    const auto read = WordsDocument::read(document);
    if (const auto* problem = std::get_if<WordsDocument::Problem>(&read)) {
        const auto lines = static_cast<std::size_t>(std::ranges::count(document, '\n')) + 1;
        fuzz::expect(problem->line >= 1 && problem->line <= lines && !problem->reason.empty(),
                     "a problem has a line and a reason");
        return false;
    }
    const WordTally& tally = std::get<WordTally>(read);
    expectReadBack(tally);
    stores.merge(tally);
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    Stores stores;
    for (int changes = input.byte() % 64; changes > 0; --changes)
        stores.tell(change(input));
    stores.expectSame();
    expectReadBack(stores.tally());
    const std::string word = input.text(255);
    expectForms(word);
    readDocument(input.rest(), stores);
    for (int changes = static_cast<int>(word.size()) % 4; changes > 0; --changes)
        stores.tell({WordChange::Kind::forget, LearntWords::formOf(word)});
    stores.expectSame();
    return 0;
}
