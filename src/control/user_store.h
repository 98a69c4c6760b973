// The user store mrB.nvy: made afresh from its schema, with every usage
// parameter present and Null, when the data folder has none.
#pragma once

#include <string>

void sEnsureUserStore(const std::string& path);

// The schema text of the user store (generated from schema_user.sql and
// schema_shared.sql).
extern const char* const kUserStoreSchema;
