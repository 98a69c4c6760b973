// The small library and user stores the store tests run on: the tables of
// the schema the tests touch, with rows chosen so that every order and
// filter of the catalogue tells its rows apart.
#include <sqlite3.h>
#include <stdlib.h>

#include <stdexcept>

#include "control/session.h"
#include "platform/store.h"
#include "tests/store/test_support.h"

namespace {

const char* kLibrary = R"(
CREATE TABLE "RagaNameList" ("Raga" TEXT NOT NULL, "Raga Index" INTEGER NOT NULL, "Level" INTEGER,
  PRIMARY KEY ("Raga"));
CREATE UNIQUE INDEX "RagaIndex" ON "RagaNameList" ("Raga Index");
INSERT INTO "RagaNameList" VALUES ('Yaman', 1, 1), ('Bhairav', 2, 1), ('Kafi', 3, 2),
  ('Bhimpalasi', 4, 2), ('Todi', 5, 3), ('Marwa', 6, 3), ('Orphan', 7, 1);

CREATE TABLE "Raga - Technical Information" ("Raga Index" INTEGER NOT NULL, "Thata" TEXT,
  "Jati" TEXT, "Vadi" TEXT, "Samvadi" TEXT, "VadiNum" INTEGER, "SamvadiNum" INTEGER,
  "Appropriate time" TEXT, "DroneType" INTEGER, PRIMARY KEY ("Raga Index"));
INSERT INTO "Raga - Technical Information" VALUES
  (1, 'Kalyan',  'Sampurna',       'G', 'N', 17, 23, 'Evening',   1),
  (2, 'Bhairav', 'Sampurna',       'd', 'D', 13, 20, 'Morning',   1),
  (3, 'Kafi',    'Sampurna',       'P', 'S', 19, 12, 'Night',     2),
  (4, 'Kafi',    'Audav-Sampurna', 'M', 'S', 10, 12, 'Afternoon', 2),
  (5, NULL,      'Sampurna',       'd', 'g', 13, 15, 'Morning',   1),
  (6, 'Marwa',   'Shadav',         'r', 'D', 14, 21, 'Evening',   3);

CREATE TABLE "Raga - Notes" ("Raga Index" INTEGER NOT NULL, "Raga Note Ids" TEXT,
  PRIMARY KEY ("Raga Index"));
INSERT INTO "Raga - Notes" VALUES (1, '0,2,4,6,7,9,11'), (2, '0,1,4,5,7,8,11'),
  (3, '0,2,3,5,7,9,10'), (4, '0,2,3,5,7,9,10'), (5, '0,1,3,6,7,8,11'), (6, '0,1,4,6,7,9,11');

CREATE TABLE "Raga - ALT Phrases" ("RagaIndex" INTEGER NOT NULL, "PhraseType" INTEGER NOT NULL,
  "NotesPhrase" TEXT, "DurationPhrase" TEXT, PRIMARY KEY ("RagaIndex", "PhraseType"));
INSERT INTO "Raga - ALT Phrases" VALUES (1, 1, 'N R G,G M D', '1 1 1,1 1 1'), (1, 3, 'S R G', '');

CREATE TABLE "Raga - Additional Information" ("Raga Index" INTEGER NOT NULL,
  "Add Info" TEXT NOT NULL, "Add Info Type" INTEGER NOT NULL, "Notation Index" INTEGER,
  PRIMARY KEY ("Raga Index", "Add Info", "Add Info Type"));
CREATE INDEX "AddInfoType" ON "Raga - Additional Information" ("Raga Index", "Add Info Type");
CREATE INDEX "CompositionId" ON "Raga - Additional Information" ("Notation Index");
INSERT INTO "Raga - Additional Information" VALUES (1, 'Kalyan', 1, 0), (1, 'Eri Aali', 2, 101),
  (1, 'Jab Deep Jale', 3, 0), (1, 'Man Mohana', 2, 0), (3, 'Bhimpalasi', 1, 0),
  (3, 'Kafi Bandish', 2, 102), (1, 'Bhupali', 1, 0);

CREATE TABLE "Tala - Technical Information" ("Tala Id" INTEGER NOT NULL,
  "Tala Name" TEXT NOT NULL, "Beat Count" INTEGER NOT NULL, PRIMARY KEY ("Tala Id"));
CREATE UNIQUE INDEX "TalaByName" ON "Tala - Technical Information" ("Tala Name");
INSERT INTO "Tala - Technical Information" VALUES (1, 'Teentaal', 16), (2, 'Ektaal', 12),
  (3, 'Jhaptaal', 10), (4, 'Rupak', 7);

CREATE TABLE "ThekaTypeBolsForTaal" ("Theka Type Id" INTEGER NOT NULL, "Tala Id" INTEGER NOT NULL,
  "Tala Bol Id" INTEGER NOT NULL, "Theka Bol Id" INTEGER NOT NULL,
  PRIMARY KEY ("Theka Type Id", "Tala Id", "Tala Bol Id"));
INSERT INTO "ThekaTypeBolsForTaal" VALUES (1, 3, 2, 22), (1, 3, 1, 21), (1, 3, 3, 23),
  (2, 3, 1, 99), (1, 1, 1, 11);

CREATE TABLE "Note Specifications" ("Instr Name" TEXT NOT NULL, "Note Id" INTEGER NOT NULL,
  "SamPerCyc" INTEGER, "Fractional Value" REAL, PRIMARY KEY ("Instr Name", "Note Id"));
INSERT INTO "Note Specifications" VALUES ('Harmonium', 2, 100, 0.5), ('Harmonium', 0, 120, 0.25),
  ('Harmonium', 1, 110, 0.0), ('Sitar', 0, 90, 0.1);

CREATE TABLE "Sample Values" ("Instr Name" TEXT NOT NULL, "Note Id" INTEGER NOT NULL,
  "Sample Id" INTEGER NOT NULL, "Sample Value" INTEGER,
  PRIMARY KEY ("Instr Name", "Note Id", "Sample Id"));
INSERT INTO "Sample Values" VALUES ('Harmonium', 1, 2, -5), ('Harmonium', 1, 0, 0),
  ('Harmonium', 1, 1, 7), ('Harmonium', 2, 0, 3), ('Sitar', 1, 0, 9);

CREATE TABLE "Reed Colors" ("Reed Number" INTEGER NOT NULL, "Color Code" INTEGER NOT NULL,
  PRIMARY KEY ("Reed Number"));
INSERT INTO "Reed Colors" VALUES (12, 1), (1, 1), (2, 2), (3, 1), (4, 2), (5, 1), (6, 1), (7, 2),
  (8, 1), (9, 2), (10, 1), (11, 2);

CREATE TABLE "Prompts" ("Prompt Id" INTEGER NOT NULL, "Prompt" TEXT, PRIMARY KEY ("Prompt Id"));
INSERT INTO "Prompts" VALUES (1, 'Choose a raga'), (3, 'Listen'), (4, 'Sing along');
)";

const char* kUser = R"(
CREATE TABLE "Scale Shift Specs" ("NPSetId" INTEGER NOT NULL, "NPSetName" TEXT,
  "InstrumentName" TEXT, "TonicNoteId" INTEGER, "BaseSPC" REAL, "NewSPC" REAL,
  PRIMARY KEY ("NPSetId"));
CREATE INDEX "Set Name" ON "Scale Shift Specs" ("NPSetName");
INSERT INTO "Scale Shift Specs" VALUES (13, 'Zeta', 'Harmonium', 3, 100, 98.5),
  (14, 'Alpha', 'Harmonium', 3, 100, 101), (15, 'Mid', 'Sitar', 5, 90, 90.5);

CREATE TABLE "Raga - ALT Phrases" ("RagaIndex" INTEGER NOT NULL, "PhraseType" INTEGER NOT NULL,
  "NotesPhrase" TEXT, "DurationPhrase" TEXT, PRIMARY KEY ("RagaIndex", "PhraseType"));
INSERT INTO "Raga - ALT Phrases" VALUES (5, 2, 'S R,R G,G M', '1 1,1 1,1 1');

CREATE TABLE "Raga - Additional Information" ("Raga Index" INTEGER NOT NULL,
  "Add Info" TEXT NOT NULL, "Add Info Type" INTEGER NOT NULL, "Notation Index" INTEGER,
  PRIMARY KEY ("Raga Index", "Add Info", "Add Info Type"));
CREATE INDEX "AddInfoType" ON "Raga - Additional Information" ("Raga Index", "Add Info Type");
CREATE INDEX "CompositionId" ON "Raga - Additional Information" ("Notation Index");
INSERT INTO "Raga - Additional Information" VALUES (1, 'My Song', 2, 201),
  (5, 'Todi Tune', 2, 202), (1, 'Draft', 2, 0);
)";

void buildStore(const std::filesystem::path& path, const char* sql) {
  sqlite3* db = nullptr;
  int rc = sqlite3_open(path.c_str(), &db);
  if (rc == SQLITE_OK) rc = sqlite3_exec(db, sql, nullptr, nullptr, nullptr);
  std::string message = sqlite3_errmsg(db);
  sqlite3_close(db);
  if (rc != SQLITE_OK) throw std::runtime_error("test store: " + message);
}

}  // namespace

TestStores::TestStores() {
  std::string pattern = (std::filesystem::temp_directory_path() / "nvqueriesXXXXXX").string();
  if (!mkdtemp(pattern.data())) throw std::runtime_error("no temporary directory");
  dir_ = pattern;
  buildStore(dir_ / "mrA.nvy", kLibrary);
  buildStore(dir_ / "mrB.nvy", kUser);
  gDbA = platform::defaultWorkspace().openDatabase(dir_ / "mrA.nvy", true, true, "");
  gDbB = platform::defaultWorkspace().openDatabase(dir_ / "mrB.nvy", true, false, "");
}

TestStores::~TestStores() {
  gDbA.reset();
  gDbB.reset();
  std::filesystem::remove_all(dir_);
}
