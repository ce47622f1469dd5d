#include "script/SinhalaBlock.h"

#include <algorithm>
#include <span>

namespace vanoka::script {

namespace {

// What must hold for the rows, as rules over any rows, so that each rule is seen to refuse bad ones.

constexpr bool ascend(std::span<const Row> all) {
    return std::ranges::adjacent_find(all, std::ranges::greater_equal{}, &Row::scalar) == all.end();
}

/// The ends of the block serve as escapes in compact texts, so that no row has them.
constexpr bool standWithinTheBlock(std::span<const Row> all) {
    return std::ranges::all_of(
        all, [](const Row& row) { return blockFirst < row.scalar && row.scalar < blockLast; });
}

constexpr bool isSignOf(std::span<const Row> all, char32_t scalar) {
    return std::ranges::any_of(
        all, [scalar](const Row& row) { return row.scalar == scalar && partOf(row.kind) == Part::sign; });
}

constexpr bool piecesAreSigns(std::span<const Row> all) {
    return std::ranges::all_of(all, [all](const Row& row) {
        return row.pieces == Pieces() || (row.kind == Kind::vowelSign && isSignOf(all, row.pieces.first) &&
                                          isSignOf(all, row.pieces.second));
    });
}

constexpr bool noPiecesTwice(std::span<const Row> all) {
    return std::ranges::all_of(all, [all](const Row& row) {
        return row.pieces == Pieces() || std::ranges::count(all, row.pieces, &Row::pieces) == 1;
    });
}

constexpr bool onlyConsonantsAreJoined(std::span<const Row> all) {
    return std::ranges::all_of(all, [](const Row& row) {
        return row.joinedForm == JoinedForm::none || row.kind == Kind::consonant;
    });
}

constexpr auto countOf(Kind kind) {
    return std::ranges::count(rows, kind, &Row::kind);
}

// Every scalar of the block that is assigned, by kind and in all.
static_assert(countOf(Kind::bindu) == 2 && countOf(Kind::visarga) == 1 && countOf(Kind::virama) == 1);
static_assert(countOf(Kind::vowel) == 18 && countOf(Kind::consonant) == 41 && countOf(Kind::vowelSign) == 17);
static_assert(countOf(Kind::digit) == 10 && countOf(Kind::punctuation) == 1 && rows.size() == 91);
static_assert(ascend(rows) && standWithinTheBlock(rows));
static_assert(piecesAreSigns(rows) && noPiecesTwice(rows) && onlyConsonantsAreJoined(rows));
static_assert(std::ranges::find(rows, virama, &Row::scalar)->kind == Kind::virama);
static_assert(std::ranges::count(rows, JoinedForm::yansaya, &Row::joinedForm) == 1);
static_assert(std::ranges::count(rows, JoinedForm::rakaransaya, &Row::joinedForm) == 1);

// Each rule refuses rows that break it.
constexpr Row sign(char32_t scalar, Pieces pieces = {}) {
    return {scalar, Kind::vowelSign, {}, pieces};
}
static_assert(ascend(std::array{sign(0x0DD8), sign(0x0DD9)}));
static_assert(!ascend(std::array{sign(0x0DD9), sign(0x0DD9)}) &&
              !ascend(std::array{sign(0x0DD9), sign(0x0DD8)}));
static_assert(!standWithinTheBlock(std::array{sign(blockFirst), sign(0x0DD9)}) &&
              !standWithinTheBlock(std::array{sign(0x0DD9), sign(blockLast)}));
static_assert(piecesAreSigns(std::array{sign(0x0DCF), sign(0x0DD9), sign(0x0DDC, {0x0DD9, 0x0DCF})}));
static_assert(!piecesAreSigns(std::array{sign(0x0DCF), sign(0x0DDC, {0x0DD9, 0x0DCF})}));
static_assert(!piecesAreSigns(std::array{sign(0x0DD9), sign(0x0DDC, {0x0DD9, 0x0DCF})}));
static_assert(!piecesAreSigns(std::array{sign(0x0DCF), sign(0x0DD9),
                                         Row{0x0DDC, Kind::vowel, {}, {0x0DD9, 0x0DCF}}}));
static_assert(!piecesAreSigns(std::array{Row{0x0DCF, Kind::vowel}, sign(0x0DD9),
                                         sign(0x0DDC, {0x0DD9, 0x0DCF})}));
static_assert(!noPiecesTwice(std::array{sign(0x0DD9), sign(0x0DDC, {0x0DD9, 0x0DCF}),
                                        sign(0x0DDD, {0x0DD9, 0x0DCF})}));
static_assert(!onlyConsonantsAreJoined(std::array{sign(0x0DD9),
                                                  Row{0x0D85, Kind::vowel, {}, {}, JoinedForm::yansaya}}));

// What is derived, where the block has gaps.
static_assert(isSinhala(blockFirst) && isSinhala(blockLast));
static_assert(!isSinhala(blockFirst - 1) && !isSinhala(blockLast + 1) && !isSinhala(0));
static_assert(isLetter(0x0D85) && isLetter(0x0D97) && isLetter(0x0DB2) && isLetter(0x0DC6));
static_assert(!isLetter(0x0D84) && !isLetter(0x0DC7) && !isLetter(0x0DE6) && !isLetter(U'a'));
static_assert(isSign(0x0D81) && isSign(0x0DCA) && isSign(0x0DCB) && isSign(0x0DD5) && isSign(0x0DF3));
static_assert(!isSign(0x0D84) && !isSign(0x0DC9) && !isSign(0x0DE0) && !isSign(0x0DF1) && !isSign(0x0DF4));
static_assert(composes(0x0DD9, 0x0DCA) && composes(0x0DDC, 0x0DCA) && !composes(0x0DCA, 0x0DD9));

} // namespace

} // namespace vanoka::script
