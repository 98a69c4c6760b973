// Ids of the user's pitch-shifted scales ("Scale Shift Specs" and their
// "ONPR" rows in the user store). Ids 1 to 12 are the library's scales; a
// user scale gets one more than the largest id ever given in this store.
//
// "Ever" is kept as a high-water mark, the row "LastScaleId" of "User
// Parameters" (added on the first save, so stores made before it need no
// upgrade). Counting the rows and adding 13 gave an id that repeated after
// a deletion (delete scale 14 of two, and the next new scale is 14 again,
// which a saved CurrMusicSetId or a carried-over id still names), and the
// largest id in use repeats after the newest scale is deleted; the mark
// never goes back, so an id is never given twice. Where the mark is missing
// or behind (a store of an older version, a mark cleared by hand), the ids
// in use still count. No state of its own.
#pragma once

#include <cstdint>

namespace platform {
class Database;
}

// The id for a new user scale in userStore: one more than the largest of
// the high-water mark, the ids of "Scale Shift Specs" and of "ONPR", and 12.
std::int64_t fNextScaleId(platform::Database& userStore);

// Raises the high-water mark to `id` (never lowers it). The caller writes it
// in the same transaction as the scale it gave the id to.
void sRecordScaleId(platform::Database& userStore, std::int64_t id);
