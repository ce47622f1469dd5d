#include "Fuzz.h"
#include "TemporaryFolder.h"
#include "WordDatabase.h"

#include <filesystem>
#include <fstream>
#include <iterator>

using namespace vanoka;
namespace fs = std::filesystem;

/// A store of words into which somebody has written other bytes, or that is cut off: it is read, set aside or
/// left alone, and the next word is learnt all the same where it may be.
namespace {

using FaultKind = WordDatabase::Fault::Kind;

const fs::path& folder() {
    static const test::TemporaryFolder made;
    return made.path();
}

LearntWord wordOf(const std::string& text) {
    return LearntWords::learntFrom({"amma", text});
}

const std::string word = "\u0D85\u0DB8\u0DCA\u0DB8\u0DCF";

std::string bytesOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The file as this program writes it, with a few words in it.
const std::string& wholeFile() {
    static const std::string bytes = [] {
        const fs::path path = folder() / "whole.sqlite";
        {
            WordDatabase database(path, {});
            for (const std::string& each : {word, word + word})
                fuzz::expect(!database.apply({WordChange::Kind::learn, wordOf(each)}), "a word is stored");
            fuzz::expect(!database.apply({WordChange::Kind::forget, LearntWords::formOf("kade")}),
                         "a word is forgotten");
        }
        return bytesOf(path);
    }();
    return bytes;
}

/// Overwrites runs of bytes, each at a place that the input gives: in the first page, where the format is
/// told, more often than elsewhere.
std::string damaged(fuzz::Input& input) {
    std::string bytes = wholeFile();
    const std::uint8_t how = input.byte();
    if (how % 8 == 7)
        bytes.resize(bytes.size() * input.byte() / 256);
    for (int run = 1 + how % 4; run > 0 && !bytes.empty(); --run) {
        const std::size_t page = input.byte() % 2 ? 0 : input.byte() % 16U;
        const std::size_t place = page * 4096 + input.byte() * std::size_t{16} + input.byte() % 16U;
        const std::string other = input.text(8);
        for (std::size_t each = 0; each < other.size() && place + each < bytes.size(); ++each)
            bytes[place + each] = other[each];
    }
    return bytes;
}

void write(const fs::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
    fuzz::expect(fs::file_size(path) == bytes.size(), "the damaged file is there");
}

void expectOutcome(const fs::path& path, const std::string& bytes) {
    WordDatabase database(path, {});
    WordTally tally;
    const auto read = database.read(tally);
    fuzz::expect(read.kind != FaultKind::damaged, "a damaged file is set aside");
    fuzz::expect(database.setAside().empty() || bytesOf(database.setAside()) == bytes,
                 "what is set aside is whole");
    fuzz::expect(!read || !read.reason.empty(), "a fault has a reason");
    if (read.kind == FaultKind::later) {
        fuzz::expect(bytesOf(path) == bytes, "what is not ours is left as it is");
        return;
    }
    for (const auto& [each, count] : tally.sinhala)
        fuzz::expect(count >= 0 && count <= LearntWords::largestCount, "a count is held to its range");
    if (!read && !database.apply({WordChange::Kind::learn, wordOf(word)}) &&
        !tally.forgotten.contains(word)) {
        WordTally after;
        fuzz::expect(!database.read(after) && after.sinhala.contains(word), "a word that was taken is there");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const fs::path inner = folder() / "store", path = inner / "words.sqlite";
    fs::create_directory(inner);
    const std::string bytes = damaged(input);
    write(path, bytes);
    expectOutcome(path, bytes);
    fs::remove_all(inner);
    return 0;
}
