-- Schema of the user store mrB.nvy: usage parameters, the user's own
-- phrases and compositions, patterns and pitch-shifted scales. Used by the
-- build (a fresh store in the data directory) and by the program when the
-- store is missing at start. Every usage parameter has its row from the
-- start with a Null value, so that the defaults apply on the first run.
-- The phrase, composition and pitch set tables follow from
-- schema_shared.sql, as the library store holds them too.
--
-- The store's schema version is kept in SQLite's user_version: 2 for this
-- schema; 0, the engine's default, is a store made before versions were
-- kept. A store of an older version is brought up to this one at start
-- (control/user_store.cpp); raise the number with every change of schema or
-- of the meaning of what is stored.
PRAGMA user_version = 2;

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

CREATE TABLE "User Patterns" (
  "PatternId" INTEGER,
  "PatternName" TEXT COLLATE NOCASE,
  "PatternPhrase" TEXT,
  "PatternMode" INTEGER
);
CREATE INDEX "PatternByName" ON "User Patterns" ("PatternName");
