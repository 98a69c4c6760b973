// The user store mrB.nvy: made afresh from its schema, with every usage
// parameter present and Null, when the data folder has none; brought up to
// this version's schema when it is older.
#pragma once

#include <string>

namespace platform {
class Database;
}

void sEnsureUserStore(const std::string& path);

// The schema version this program writes and reads (user_version of the
// store; see schema_user.sql).
constexpr int kUserStoreVersion = 2;

// The schema version of a user store: 0 for one made before versions were
// kept.
int fUserStoreVersion(platform::Database& store);

// Brings the open user store up to kUserStoreVersion: first a backup copy of
// the file beside it ("mrB.nvy.v<old version>.bak"), then every step of
// schema change in one transaction, so that a fault or a kill leaves the old
// store whole. A store of a newer version is left untouched: the user is
// told, and the answer is false.
bool fUpgradeUserStore(platform::Database& store);

// The schema text of the user store (generated from schema_user.sql and
// schema_shared.sql).
extern const char* const kUserStoreSchema;
