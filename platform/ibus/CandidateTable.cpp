#include "CandidateTable.h"

#include <string>

namespace vanoka::ibus {

namespace {

/// Digits are digits, so rows have no numbers. Panels number a row whose label is missing or empty.
constexpr const char* noLabel = " ";

IBusLookupTable* newTable(const CandidateLine& line) {
    const auto rows = static_cast<guint>(line.rows.size());
    IBusLookupTable* table = ibus_lookup_table_new(rows, static_cast<guint>(line.highlighted), TRUE, TRUE);
    ibus_lookup_table_set_orientation(table, IBUS_ORIENTATION_SYSTEM);
    for (const Candidate& row : line.rows) {
        ibus_lookup_table_append_candidate(table, ibus_text_new_from_string(row.text.c_str()));
        ibus_lookup_table_append_label(table, ibus_text_new_from_static_string(noLabel));
    }
    return table;
}

} // namespace

void CandidateTable::show(const CandidateLine& line, std::string_view hint) {
    if (line.isShown())
        ibus_engine_update_lookup_table(&engine_, newTable(line), TRUE);
    else if (isShown_)
        ibus_engine_hide_lookup_table(&engine_);
    isShown_ = line.isShown();
    showHint(hint);
}

void CandidateTable::showHint(std::string_view hint) {
    if (!hint.empty())
        ibus_engine_update_auxiliary_text(&engine_, ibus_text_new_from_string(std::string(hint).c_str()),
                                          TRUE);
    else if (isHintShown_)
        ibus_engine_hide_auxiliary_text(&engine_);
    isHintShown_ = !hint.empty();
}

} // namespace vanoka::ibus
