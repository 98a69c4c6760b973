// Creating a missing user store and upgrading an older one (see
// user_store.h).
#include "control/user_store.h"

#include <filesystem>

#include "control/parameters.h"
#include "core/errors.h"
#include "core/messages.h"
#include "core/session.h"
#include "core/trace.h"
#include "platform/store.h"

namespace {

// The changes from one version to the next: entry v takes a store of version
// v to v + 1. Version 0 differs from 1 only by its missing stamp; version 2
// moved the marks' per-note lead to its new default.
void noChange(platform::Database&) {}
void (*const kUpgradeSteps[kUserStoreVersion])(platform::Database&) = {
    noChange,           // 0 -> 1
    sMoveOldMarkLeads,  // 1 -> 2
};

}  // namespace

void sEnsureUserStore(const std::string& path) {
  NV_PROC("sEnsureUserStore");
  std::error_code ec;
  if (std::filesystem::exists(path, ec)) return;
  gWorkspace->createDatabase(path, kUserStoreSchema);
}

int fUserStoreVersion(platform::Database& store) {
  auto rs = store.openRecordset("PRAGMA user_version", platform::RecordsetType::Snapshot);
  return static_cast<int>(rs->field("user_version").asInteger());
}

bool fUpgradeUserStore(platform::Database& store) {
  NV_PROC("fUpgradeUserStore");
  const int version = fUserStoreVersion(store);
  if (version == kUserStoreVersion) return true;
  if (version > kUserStoreVersion) {
    sShowMessage("Your user file '" + store.path() + "' was written by a newer version of Nadavik (file version " +
                 std::to_string(version) + "; this version reads up to " + std::to_string(kUserStoreVersion) +
                 "). Please use the newer version of Nadavik; the file was left as it is.");
    return false;
  }
  const std::string backup = store.path() + ".v" + std::to_string(version) + ".bak";
  std::filesystem::copy_file(store.path(), backup, std::filesystem::copy_options::overwrite_existing);
  platform::Transaction transaction(store);
  for (int step = version; step < kUserStoreVersion; ++step) kUpgradeSteps[step](store);
  store.execute("PRAGMA user_version = " + std::to_string(kUserStoreVersion));
  transaction.commit();
  sTraceLine("User store upgraded from version " + std::to_string(version) + " to " +
                  std::to_string(kUserStoreVersion) + "; the old file is kept as " + backup);
  return true;
}
