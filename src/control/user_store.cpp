// Creating a missing user store (see user_store.h).
#include "control/user_store.h"

#include <filesystem>

#include "core/errors.h"
#include "core/session.h"
#include "platform/store.h"

void sEnsureUserStore(const std::string& path) {
  NV_PROC("sEnsureUserStore");
  std::error_code ec;
  if (std::filesystem::exists(path, ec)) return;
  gWorkspace->createDatabase(path, kUserStoreSchema);
}
