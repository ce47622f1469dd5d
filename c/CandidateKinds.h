#pragma once

#include "Answer.h"
#include "Candidates.h"
#include "vanoka.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

/// Candidates as items.
namespace vanoka::c {

struct CandidateKindRow {
    Candidate::Kind kind;
    std::int32_t item;
};

inline constexpr std::array candidateKinds = {CandidateKindRow{Candidate::Kind::typed, VANOKA_TYPED},
                                              CandidateKindRow{Candidate::Kind::sinhala, VANOKA_WORD},
                                              CandidateKindRow{Candidate::Kind::latin, VANOKA_LATIN},
                                              CandidateKindRow{Candidate::Kind::emoji, VANOKA_EMOJI}};

inline std::optional<Candidate::Kind> candidateKindOf(std::int32_t item) {
    const auto found = std::ranges::find(candidateKinds, item, &CandidateKindRow::item);
    return found != candidateKinds.end() ? std::optional(found->kind) : std::nullopt;
}

inline void addCandidate(Reply& reply, const Candidate& row) {
    const auto found = std::ranges::find(candidateKinds, row.kind, &CandidateKindRow::kind);
    reply.add(found->item, row.text, row.isLearnt ? 1 : 0);
}

} // namespace vanoka::c
