// The small library and user stores the store tests run on: the product's
// schemas with a few rows, chosen so that every order and filter of the
// catalogue tells its rows apart.
#include <sqlite3.h>
#include <stdlib.h>

#include <fstream>
#include <sstream>
#include <stdexcept>

#include "core/session.h"
#include "platform/store.h"
#include "tests/store/test_support.h"

namespace {

const char* kLibraryRows = R"(
INSERT INTO "RagaNameList" VALUES ('Yaman', 1, 1), ('Bhairav', 2, 1), ('Kafi', 3, 2),
  ('Bhimpalasi', 4, 2), ('Todi', 5, 3), ('Marwa', 6, 3), ('Orphan', 7, 1);

INSERT INTO "Raga - Technical Information" ("Raga Index", "Thata", "Jati", "Vadi", "Samvadi",
  "VadiNum", "SamvadiNum", "Appropriate time", "DroneType") VALUES
  (1, 'Kalyan',  'Sampurna',       'G', 'N', 17, 23, 'Evening',   1),
  (2, 'Bhairav', 'Sampurna',       'd', 'D', 13, 20, 'Morning',   1),
  (3, 'Kafi',    'Sampurna',       'P', 'S', 19, 12, 'Night',     2),
  (4, 'Kafi',    'Audav-Sampurna', 'M', 'S', 10, 12, 'Afternoon', 2),
  (5, NULL,      'Sampurna',       'd', 'g', 13, 15, 'Morning',   1),
  (6, 'Marwa',   'Shadav',         'r', 'D', 14, 21, 'Evening',   3);

INSERT INTO "Raga - Notes" VALUES (1, '0,2,4,6,7,9,11'), (2, '0,1,4,5,7,8,11'),
  (3, '0,2,3,5,7,9,10'), (4, '0,2,3,5,7,9,10'), (5, '0,1,3,6,7,8,11'), (6, '0,1,4,6,7,9,11');

INSERT INTO "Raga - ALT Phrases" VALUES (1, 1, 'N R G,G M D', '1 1 1,1 1 1'), (1, 3, 'S R G', '');

INSERT INTO "Raga - Additional Information" VALUES (1, 'Kalyan', 1, 0), (1, 'Eri Aali', 2, 101),
  (1, 'Jab Deep Jale', 3, 0), (1, 'Man Mohana', 2, 0), (3, 'Bhimpalasi', 1, 0),
  (3, 'Kafi Bandish', 2, 102), (1, 'Bhupali', 1, 0);

INSERT INTO "Tala - Technical Information" VALUES (1, 'Teentaal', 16), (2, 'Ektaal', 12),
  (3, 'Jhaptaal', 10), (4, 'Rupak', 7);

INSERT INTO "ThekaTypeBolsForTaal" VALUES (1, 3, 2, 22), (1, 3, 1, 21), (1, 3, 3, 23),
  (2, 3, 1, 99), (1, 1, 1, 11);

INSERT INTO "Note Specifications" VALUES ('Harmonium', 2, 100, 0.5), ('Harmonium', 0, 120, 0.25),
  ('Harmonium', 1, 110, 0.0), ('Sitar', 0, 90, 0.1);

INSERT INTO "Sample Values" VALUES ('Harmonium', 1, 2, -5), ('Harmonium', 1, 0, 0),
  ('Harmonium', 1, 1, 7), ('Harmonium', 2, 0, 3), ('Sitar', 1, 0, 9);

INSERT INTO "Reed Colors" VALUES (12, 1), (1, 1), (2, 2), (3, 1), (4, 2), (5, 1), (6, 1), (7, 2),
  (8, 1), (9, 2), (10, 1), (11, 2);

INSERT INTO "Prompts" VALUES (1, 'Choose a raga'), (3, 'Listen'), (4, 'Sing along');
)";

const char* kUserRows = R"(
INSERT INTO "Scale Shift Specs" VALUES (13, 'Zeta', 'Harmonium', 3, 100, 98.5),
  (14, 'Alpha', 'Harmonium', 3, 100, 101), (15, 'Mid', 'Sitar', 5, 90, 90.5);

INSERT INTO "Raga - ALT Phrases" VALUES (5, 2, 'S R,R G,G M', '1 1,1 1,1 1');

INSERT INTO "Raga - Additional Information" VALUES (1, 'My Song', 2, 201),
  (5, 'Todi Tune', 2, 202), (1, 'Draft', 2, 0);
)";

std::string schema(const char* file) {
  std::ifstream in(std::filesystem::path(NADAVIK_STORE_SCHEMA_DIR) / file);
  if (!in) throw std::runtime_error(std::string("test store: no schema ") + file);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

void buildStore(const std::filesystem::path& path, const std::string& sql) {
  sqlite3* db = nullptr;
  int rc = sqlite3_open(path.c_str(), &db);
  if (rc == SQLITE_OK) rc = sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr);
  std::string message = sqlite3_errmsg(db);
  sqlite3_close(db);
  if (rc != SQLITE_OK) throw std::runtime_error("test store: " + message);
}

}  // namespace

TestStores::TestStores() {
  std::string pattern = (std::filesystem::temp_directory_path() / "nvqueriesXXXXXX").string();
  if (!mkdtemp(pattern.data())) throw std::runtime_error("no temporary directory");
  dir_ = pattern;
  const std::string shared = schema("schema_shared.sql");
  buildStore(dir_ / "mrA.nvy", schema("schema_library.sql") + shared + kLibraryRows);
  buildStore(dir_ / "mrB.nvy", schema("schema_user.sql") + shared + kUserRows);
  gDbA = platform::defaultWorkspace().openDatabase(dir_ / "mrA.nvy", true, true, "");
  gDbB = platform::defaultWorkspace().openDatabase(dir_ / "mrB.nvy", true, false, "");
}

TestStores::~TestStores() {
  gDbA.reset();
  gDbB.reset();
  std::filesystem::remove_all(dir_);
}
