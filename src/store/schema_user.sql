-- Schema of the user store mrB.nvy: usage parameters, the user's own
-- phrases and compositions, patterns and pitch-shifted scales. Used by the
-- build (a fresh store in the data directory) and by the program when the
-- store is missing at start. Every usage parameter has its row from the
-- start with a Null value, so that the defaults apply on the first run.

CREATE TABLE "User Parameters" (
  "Parameter Name" TEXT COLLATE NOCASE NOT NULL,
  "Parameter Value" TEXT,
  PRIMARY KEY ("Parameter Name")
);
INSERT INTO "User Parameters" ("Parameter Name", "Parameter Value") VALUES ('CurrTonicNoteId', NULL);
INSERT INTO "User Parameters" ("Parameter Name", "Parameter Value") VALUES ('CurrMusicSetId', NULL);
INSERT INTO "User Parameters" ("Parameter Name", "Parameter Value") VALUES ('KeyboardDisplay', NULL);
INSERT INTO "User Parameters" ("Parameter Name", "Parameter Value") VALUES ('FormL', NULL);
INSERT INTO "User Parameters" ("Parameter Name", "Parameter Value") VALUES ('FormT', NULL);
INSERT INTO "User Parameters" ("Parameter Name", "Parameter Value") VALUES ('FormW', NULL);
INSERT INTO "User Parameters" ("Parameter Name", "Parameter Value") VALUES ('FormH', NULL);
INSERT INTO "User Parameters" ("Parameter Name", "Parameter Value") VALUES ('FormState', NULL);
INSERT INTO "User Parameters" ("Parameter Name", "Parameter Value") VALUES ('SortingMode', NULL);
INSERT INTO "User Parameters" ("Parameter Name", "Parameter Value") VALUES ('NotationScript', NULL);
INSERT INTO "User Parameters" ("Parameter Name", "Parameter Value") VALUES ('LastTip', NULL);
INSERT INTO "User Parameters" ("Parameter Name", "Parameter Value") VALUES ('TipSignal', NULL);
INSERT INTO "User Parameters" ("Parameter Name", "Parameter Value") VALUES ('DelayC', NULL);
INSERT INTO "User Parameters" ("Parameter Name", "Parameter Value") VALUES ('DelayMO', NULL);
INSERT INTO "User Parameters" ("Parameter Name", "Parameter Value") VALUES ('DelayPC', NULL);
INSERT INTO "User Parameters" ("Parameter Name", "Parameter Value") VALUES ('DelayW', NULL);
INSERT INTO "User Parameters" ("Parameter Name", "Parameter Value") VALUES ('CurrDroneFactor', NULL);

CREATE TABLE "Scale Shift Specs" (
  "NPSetId" INTEGER NOT NULL,
  "NPSetName" TEXT COLLATE NOCASE,
  "InstrumentName" TEXT,
  "TonicNoteId" INTEGER,
  "BaseSPC" REAL,
  "NewSPC" REAL,
  PRIMARY KEY ("NPSetId")
);
CREATE INDEX "Set Name" ON "Scale Shift Specs" ("NPSetName");

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

CREATE TABLE "User Patterns" (
  "PatternId" INTEGER,
  "PatternName" TEXT COLLATE NOCASE,
  "PatternPhrase" TEXT,
  "PatternMode" INTEGER
);
CREATE INDEX "PatternByName" ON "User Patterns" ("PatternName");

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
