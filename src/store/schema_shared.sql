-- Tables both stores hold: the library's phrases and compositions and the
-- user's own ones, and the scales of named pitch sets. The build runs this
-- file after each store's own schema (schema_library.sql, schema_user.sql);
-- the program does the same when it makes a missing user store.

CREATE TABLE "Raga - ALT Phrases" (
  "RagaIndex" INTEGER NOT NULL,
  "PhraseType" INTEGER NOT NULL,
  "NotesPhrase" TEXT,
  "DurationPhrase" TEXT,
  PRIMARY KEY ("RagaIndex", "PhraseType")
);

CREATE TABLE "Raga - Additional Information" (
  "Raga Index" INTEGER NOT NULL,
  "Add Info" TEXT COLLATE NOCASE NOT NULL,
  "Add Info Type" INTEGER NOT NULL,
  "Notation Index" INTEGER,
  PRIMARY KEY ("Raga Index", "Add Info", "Add Info Type")
);
CREATE INDEX "AddInfoType" ON "Raga - Additional Information" ("Raga Index", "Add Info Type");
CREATE INDEX "CompositionId" ON "Raga - Additional Information" ("Notation Index");

CREATE TABLE "Raga - Composition Notations" (
  "Notation Index" INTEGER NOT NULL,
  "Composition Part" INTEGER NOT NULL,
  "Raga Index" INTEGER,
  "CompositionMukhada" TEXT,
  "CompositionType" TEXT,
  "CompositionTempo" TEXT,
  "CompositionText" TEXT,
  "Syllables" TEXT,
  "SyllableDuration" TEXT,
  "Notation" TEXT,
  "NotesDuration" TEXT,
  "Tala Id" INTEGER,
  "Starting Beat" INTEGER,
  "Playing Speed" INTEGER,
  PRIMARY KEY ("Notation Index", "Composition Part")
);

CREATE TABLE "ONPR" (
  "NPSetId" INTEGER NOT NULL,
  "InstrumentType" INTEGER NOT NULL,
  "NPSetName" TEXT,
  "TonicNoteId" INTEGER,
  "00" REAL,
  "01" REAL,
  "02" REAL,
  "03" REAL,
  "04" REAL,
  "05" REAL,
  "06" REAL,
  "07" REAL,
  "08" REAL,
  "09" REAL,
  "10" REAL,
  "11" REAL,
  "12" REAL,
  "13" REAL,
  "14" REAL,
  "15" REAL,
  "16" REAL,
  "17" REAL,
  "18" REAL,
  "19" REAL,
  "20" REAL,
  "21" REAL,
  "22" REAL,
  "23" REAL,
  "24" REAL,
  "25" REAL,
  "26" REAL,
  PRIMARY KEY ("NPSetId", "InstrumentType")
);
