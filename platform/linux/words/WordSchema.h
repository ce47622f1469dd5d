#pragma once

#include "WordTally.h"

#include <sqlite3.h>

/// The tables of a store of words, and what is done to them. Everything returns SQLite's result codes, and
/// belongs into a transaction.
namespace vanoka::WordSchema {

/// The one version that this program reads and writes.
inline constexpr int version = 1;

/// Makes tables of an older version, or of none, into those of this one.
int migrate(sqlite3* database, int from);

/// SQLITE_CORRUPT when there are other tables than those of this version, or anything else.
int check(sqlite3* database);

/// As `apply` does to a tally, and no more than `LearntWords::most` words stay.
int apply(sqlite3* database, const WordChange& change);

/// Adds what comes from elsewhere. Of two counts of a word the larger one holds, so that nothing counts twice
/// when it is brought twice; what is forgotten on either side is forgotten.
int merge(sqlite3* database, const WordTally& other);

/// Counts the word once, though it was forgotten.
int remember(sqlite3* database, const LearntWord& word);

int read(sqlite3* database, WordTally& tally);

/// Takes everything out, the forgotten words as well.
int erase(sqlite3* database);

} // namespace vanoka::WordSchema
