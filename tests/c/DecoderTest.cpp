#include "Handles.h"

#include <array>
#include <limits>
#include <string>
#include <vector>

/// Words by strokes through the C interface: which lists, counts and places count.
namespace vanoka {

namespace {

test::DecoderHandle decoderOf(const std::vector<std::string>& lists) {
    std::vector<const char*> starts;
    std::vector<std::size_t> sizes;
    for (const std::string& list : lists) {
        starts.push_back(list.data());
        sizes.push_back(list.size());
    }
    return test::created<test::DecoderHandle>(vanoka_decoder_create, starts.data(), sizes.data(),
                                              lists.size());
}

/// Four keys at the corners of a square.
class Decoder : public testing::Test {
protected:
    std::vector<std::string> words(const test::DecoderHandle& decoder, const std::vector<double>& stroke,
                                   const vanoka_counts* counts = nullptr) {
        EXPECT_EQ(vanoka_decoder_decode(decoder.get(), layout.get(), stroke.data(), stroke.size() / 2, 1, 5,
                                        counts, answer.get()),
                  VANOKA_OK);
        return test::textsOf(answer.get());
    }

    static constexpr std::array<double, 8> centers = {0, 0, 4, 0, 0, 4, 4, 4};
    test::LayoutHandle layout = test::created<test::LayoutHandle>(
        vanoka_layout_create, "abci", std::size_t{4}, centers.data(), std::size_t{4});
    test::AnswerHandle answer = test::created<test::AnswerHandle>(vanoka_answer_create);
};

TEST_F(Decoder, TakesPlacesByXAndY) {
    const test::DecoderHandle decoder = decoderOf({"ab\t1\nac\t1\nai\t1\nabi\t1\naci\t1\n"});
    using Words = std::vector<std::string>;
    EXPECT_EQ(words(decoder, {0, 0, 4, 0}), Words{"ab"});
    EXPECT_EQ(words(decoder, {0, 0, 0, 2, 0, 4}), Words{"ac"});
    EXPECT_EQ(words(decoder, {0, 0, 4, 0, 4, 4})[0], "abi");
    EXPECT_EQ(words(decoder, {0, 0, 0, 4, 4, 4})[0], "aci");
    EXPECT_EQ(words(decoder, {0, 0, 2, 2, 4, 4})[0], "ai");
}

/// The words of strokes on which two keys lie at the same place: what decides is how common they are.
class DecoderCounts : public Decoder {
protected:
    std::vector<std::string> wordsOf(const std::vector<std::string>& lists,
                                     const vanoka_counts* counts = nullptr) {
        static constexpr std::array<double, 6> same = {0, 0, 4, 0, 4, 0};
        layout = test::created<test::LayoutHandle>(vanoka_layout_create, "abc", std::size_t{3}, same.data(),
                                                   std::size_t{3});
        return words(decoderOf(lists), {0, 0, 4, 0}, counts);
    }
    const std::vector<std::string> abFirst = {"ab", "ac"}, acFirst = {"ac", "ab"};
};

TEST_F(DecoderCounts, OfChatWordsAreTheLargestOfTheirList) {
    const std::string chat = "ac\tchat\nca\t9\naa\t3\n";
    EXPECT_EQ(wordsOf({"ab\t8\n", chat}), acFirst);
    EXPECT_EQ(wordsOf({"ab\t10\n", chat}), abFirst);
    EXPECT_EQ(wordsOf({"ab\t1\n", "ac\tchat\n"}), abFirst) << "where none has a count, one";
    EXPECT_EQ(wordsOf({"ab\t2\n", "ac\tchat\n"}), abFirst);
}

TEST_F(DecoderCounts, OfThisPersonBelowZeroAreNone) {
    const std::string list = "ac\t-5\n";
    const auto counts = test::created<test::CountsHandle>(vanoka_counts_create, list.data(), list.size());
    EXPECT_EQ(wordsOf({"ab\t1\nac\t1\n"}, counts.get()), abFirst);
}

TEST(DecoderSizes, AsManyListsAreTakenAsTheHeaderSays) {
    std::array<const char*, VANOKA_MOST_LISTS + 1> lists = {};
    std::array<std::size_t, VANOKA_MOST_LISTS + 1> sizes = {};
    vanoka_decoder* decoder = nullptr;
    EXPECT_EQ(vanoka_decoder_create(lists.data(), sizes.data(), VANOKA_MOST_LISTS + 1, &decoder),
              VANOKA_TOO_LARGE);
    EXPECT_EQ(vanoka_decoder_create(nullptr, nullptr, 1, &decoder), VANOKA_BAD_ARGUMENT);
    EXPECT_EQ(vanoka_decoder_create(lists.data(), sizes.data(), VANOKA_MOST_LISTS, &decoder), VANOKA_OK);
    vanoka_decoder_release(decoder);
}

/// Told by the problem that a list after them has, so that nobody reads them.
TEST(DecoderSizes, ListsAreAsLongTogetherAsTheHeaderSays) {
    const std::array<const char*, 3> lists = {"", "", nullptr};
    std::array<std::size_t, 3> sizes = {VANOKA_LARGEST_LIST - 1, 1, 1};
    vanoka_decoder* decoder = nullptr;
    EXPECT_EQ(vanoka_decoder_create(lists.data(), sizes.data(), lists.size(), &decoder), VANOKA_BAD_ARGUMENT);
    sizes[1] = 2;
    EXPECT_EQ(vanoka_decoder_create(lists.data(), sizes.data(), lists.size(), &decoder), VANOKA_TOO_LARGE);
    EXPECT_EQ(decoder, nullptr);
}

TEST(DecoderSizes, TellsWhatTheWordsTake) {
    const std::string first(200, 'a'), second(200, 'b');
    const std::size_t letters = first.size() + second.size();
    const std::size_t memory = vanoka_decoder_memory(decoderOf({first + "\t1\n" + second + "\t1\n"}).get());
    EXPECT_GE(memory, letters);
    EXPECT_LT(memory, 100 * letters);
}

} // namespace

} // namespace vanoka
