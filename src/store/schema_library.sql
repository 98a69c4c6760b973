-- Schema of the library store mrA.nvy: ragas, talas, phrases, compositions,
-- prompts, tips, screen layout and sound seeds. The build tool nvstore-build
-- runs this file and then schema_shared.sql (the tables the user store holds
-- too) on an empty store and fills it from the content sources; the program
-- opens the result read-only.
-- Key columns use plain rowid tables with a PRIMARY KEY constraint, which the
-- store engine finds under the index name "PrimaryKey"; the other indexes
-- carry the names the program seeks them by. Names that are sought compare
-- without regard to letter case, as the program's look-ups expect.

CREATE TABLE "RagaNameList" (
  "Raga" TEXT COLLATE NOCASE NOT NULL,
  "Raga Index" INTEGER NOT NULL,
  "Level" INTEGER,
  PRIMARY KEY ("Raga")
);
CREATE UNIQUE INDEX "RagaIndex" ON "RagaNameList" ("Raga Index");

CREATE TABLE "Raga - Technical Information" (
  "Raga Index" INTEGER NOT NULL,
  "Thata" TEXT,
  "Jati" TEXT,
  "Vadi" TEXT,
  "Samvadi" TEXT,
  "VadiNum" INTEGER,
  "SamvadiNum" INTEGER,
  "Appropriate time" TEXT,
  -- Hours from dawn (3 am) to the first clock time of "Appropriate time",
  -- 0 to 23, or 24 when it names none: the grid sorts by time on this, so
  -- that the times follow the clock from dawn and not the alphabet.
  "TimeNum" INTEGER,
  "DroneType" INTEGER,
  "OPRSetId" INTEGER,
  "Notes" TEXT,
  "AarohaAlt" TEXT,
  "AvrohaAlt" TEXT,
  "AaDuration" TEXT,
  "AvDuration" TEXT,
  "Pakad" TEXT,
  "PakadDuration" TEXT,
  PRIMARY KEY ("Raga Index")
);

CREATE TABLE "Raga - Notes" (
  "Raga Index" INTEGER NOT NULL,
  "Raga Note Ids" TEXT,
  PRIMARY KEY ("Raga Index")
);

CREATE TABLE "Tala - Technical Information" (
  "Tala Id" INTEGER NOT NULL,
  "Tala Name" TEXT COLLATE NOCASE NOT NULL,
  "Beat Count" INTEGER NOT NULL,
  "Vibhag Beats" TEXT,
  "Vibhag Marks" TEXT,
  PRIMARY KEY ("Tala Id")
);
CREATE UNIQUE INDEX "TalaByName" ON "Tala - Technical Information" ("Tala Name");

CREATE TABLE "ThekaTypeBolsForTaal" (
  "Theka Type Id" INTEGER NOT NULL,
  "Tala Id" INTEGER NOT NULL,
  "Tala Bol Id" INTEGER NOT NULL,
  "Theka Bol Id" INTEGER NOT NULL,
  PRIMARY KEY ("Tala Id", "Theka Type Id", "Tala Bol Id")
);

CREATE TABLE "ThataScales" (
  "ThataName" TEXT COLLATE NOCASE NOT NULL,
  "ThataScale" TEXT,
  PRIMARY KEY ("ThataName")
);

CREATE TABLE "IllustrationsList" (
  "Illustration Id" INTEGER NOT NULL,
  "IllustrationName" TEXT,
  PRIMARY KEY ("Illustration Id")
);

CREATE TABLE "Prompts" (
  "Prompt Id" INTEGER NOT NULL,
  "Prompt" TEXT,
  PRIMARY KEY ("Prompt Id")
);

CREATE TABLE "NVTips" (
  "Tip Id" INTEGER NOT NULL,
  "Tip" TEXT,
  PRIMARY KEY ("Tip Id")
);

CREATE TABLE "NVForms" (
  "Form Name" TEXT COLLATE NOCASE NOT NULL,
  "Form Id" INTEGER,
  "TotalControlCount" INTEGER
);
CREATE UNIQUE INDEX "Form Name" ON "NVForms" ("Form Name");

CREATE TABLE "NVFormControls" (
  "Form Id" INTEGER NOT NULL,
  "Control Index" INTEGER NOT NULL,
  "LocRatX" REAL,
  "LocRatY" REAL,
  "SizRatWidth" REAL,
  "SizRatHeight" REAL,
  PRIMARY KEY ("Form Id", "Control Index")
);

CREATE TABLE "Note Specifications" (
  "Instr Name" TEXT COLLATE NOCASE NOT NULL,
  "Note Id" INTEGER NOT NULL,
  "SamPerCyc" INTEGER,
  "Fractional Value" REAL,
  PRIMARY KEY ("Instr Name", "Note Id")
);

CREATE TABLE "Sample Values" (
  "Instr Name" TEXT COLLATE NOCASE NOT NULL,
  "Note Id" INTEGER NOT NULL,
  "Sample Id" INTEGER NOT NULL,
  "Sample Value" INTEGER,
  PRIMARY KEY ("Instr Name", "Note Id", "Sample Id")
);

CREATE TABLE "ONPRSets" (
  "TonicNoteId" INTEGER NOT NULL,
  "InstrumentType" INTEGER NOT NULL,
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
  PRIMARY KEY ("TonicNoteId", "InstrumentType")
);

CREATE TABLE "Reed Colors" (
  "Reed Number" INTEGER NOT NULL,
  "Color Code" INTEGER NOT NULL,
  PRIMARY KEY ("Reed Number")
);

-- One row: the version stamp, written when the store is built
-- (nvstore-build --stamp-version); the program only reads it.
CREATE TABLE "NVVersion" (
  "Version" TEXT
);
