-- SPDX-License-Identifier: GPL-3.0-or-later
-- The tables of orb.mdb, the database beside the executable. docs/database.md describes them column by column.
-- The order of the columns is fixed: some statements of the program name none.

PRAGMA journal_mode = WAL;

BEGIN;

PRAGMA user_version = 1;

-- The current log, one row a sample. A measured value is the instrument's text, digit for digit.
CREATE TABLE DataMeasure (
    SeqNo INTEGER,
    RecTime TEXT,
    PVal1 TEXT, SVal1 TEXT,
    PVal2 TEXT, SVal2 TEXT,
    PVal3 TEXT, SVal3 TEXT,
    PVal4 TEXT, SVal4 TEXT,
    PVal5 TEXT, SVal5 TEXT,
    PVal6 TEXT, SVal6 TEXT,
    PVal7 TEXT, SVal7 TEXT,
    PVal8 TEXT, SVal8 TEXT,
    Reason3 TEXT,
    Comment TEXT,
    TimeTick TEXT,
    DiffLastTime TEXT
);

-- The saved logs, one row each. The function now() is the program's own.
CREATE TABLE DataMeasureM (
    LogID TEXT NOT NULL PRIMARY KEY,
    LogDate TEXT NOT NULL DEFAULT (now()),
    CHNum INTEGER,
    RecNum INTEGER
);

-- The samples of the saved logs.
CREATE TABLE DataMeasureD (
    LogID TEXT NOT NULL,
    SeqNo INTEGER,
    RecTime TEXT,
    PVal1 TEXT, SVal1 TEXT,
    PVal2 TEXT, SVal2 TEXT,
    PVal3 TEXT, SVal3 TEXT,
    PVal4 TEXT, SVal4 TEXT,
    PVal5 TEXT, SVal5 TEXT,
    PVal6 TEXT, SVal6 TEXT,
    PVal7 TEXT, SVal7 TEXT,
    PVal8 TEXT, SVal8 TEXT,
    Reason3 TEXT,
    Comment TEXT,
    TimeTick TEXT,
    DiffLastTime TEXT
);
CREATE INDEX DataMeasureDLogID ON DataMeasureD (LogID);

-- The stored programs: 120 cells and 13 chain boxes a case.
CREATE TABLE ProgramMemory (
    MemCase TEXT NOT NULL,
    MemNo INTEGER,
    MemData TEXT
);
CREATE INDEX ProgramMemoryCase ON ProgramMemory (MemCase);

CREATE TABLE ProgramChain (
    MemCase TEXT NOT NULL,
    ProgNo INTEGER,
    ProgData TEXT
);
CREATE INDEX ProgramChainCase ON ProgramChain (MemCase);

-- The current sequence. What is no number is refused, so that no typing error reaches the instrument.
CREATE TABLE ORBSeqHead (
    Item TEXT,
    "The Current Settings" NUMERIC NOT NULL
        CONSTRAINT "The Current Settings must be a number" CHECK ("The Current Settings" BETWEEN -1e15 AND 1e15),
    "Update" NUMERIC NOT NULL
        CONSTRAINT "Update must be a number" CHECK ("Update" BETWEEN -1e15 AND 1e15)
);

CREATE TABLE ORBSeqData (
    "Index" INTEGER NOT NULL
        CONSTRAINT "Index must be a number" CHECK ("Index" BETWEEN -1e15 AND 1e15),
    DurTime REAL NOT NULL
        CONSTRAINT "DurTime must be a number" CHECK (DurTime BETWEEN -1e15 AND 1e15),
    "Current" REAL NOT NULL
        CONSTRAINT "Current must be a number" CHECK ("Current" BETWEEN -1e15 AND 1e15),
    SlewrateUp REAL NOT NULL
        CONSTRAINT "SlewrateUp must be a number" CHECK (SlewrateUp BETWEEN -1e15 AND 1e15),
    SlewrateDown REAL NOT NULL
        CONSTRAINT "SlewrateDown must be a number" CHECK (SlewrateDown BETWEEN -1e15 AND 1e15)
);

COMMIT;
