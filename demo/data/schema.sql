-- Tables of the sample practice. Colours are integers with red in the low byte; 0 means not set.

CREATE TABLE pazienti (
    id      INTEGER PRIMARY KEY,
    cognome TEXT NOT NULL,
    nome    TEXT NOT NULL,
    nato    DATE,
    note    TEXT
);

-- One row per treatment. A row whose PADRE is 0 has a label of its own; the steps of a treatment are its
-- child rows, which follow it in key order and count up in "Progressivo".
CREATE TABLE prestazioni (
    ID          INTEGER PRIMARY KEY,
    PAZIENTE    INTEGER NOT NULL REFERENCES pazienti (id),
    PADRE       INTEGER NOT NULL DEFAULT 0,
    Progressivo INTEGER NOT NULL DEFAULT 0,
    stato       INTEGER NOT NULL DEFAULT 0,  -- 0 planned, 1 excluded, 2 not accepted, 4 not on the chart
    Terapia     TEXT    NOT NULL,
    Descrizione TEXT,
    Dottore     TEXT,
    Tipo        TEXT,
    ASPETTO     TEXT,
    Colore      INTEGER NOT NULL DEFAULT 0,
    Data        DATE,
    DataFatto   DATE,
    Fatto       INTEGER NOT NULL DEFAULT 0,  -- 0 open, 1 done, 2 under way
    X           INTEGER NOT NULL DEFAULT 0,
    Y           INTEGER NOT NULL DEFAULT 0,
    Dente       TEXT    NOT NULL DEFAULT 'GL',
    Diagnosi    TEXT
);

CREATE INDEX prestazioni_paziente ON prestazioni (PAZIENTE, ID);
CREATE INDEX prestazioni_padre ON prestazioni (PADRE);

-- Drawings of the teeth.
CREATE TABLE sfondi (
    ID         INTEGER PRIMARY KEY,
    NOME       TEXT NOT NULL,
    grafico_ie BLOB,
    Zone       BLOB,
    Dialoghi   BLOB
);

-- The patient's chart: one character per tooth in "Mancanti", '1' for a missing one.
CREATE TABLE cartella (
    PAZIENTE     INTEGER PRIMARY KEY REFERENCES pazienti (id),
    Mancanti     TEXT,
    POS_DIAGNOSI TEXT
);

CREATE TABLE aspetto (
    ID          TEXT PRIMARY KEY NOT NULL,
    COLOREFONDO INTEGER NOT NULL DEFAULT 0,
    COLORETESTO INTEGER NOT NULL DEFAULT 0,
    BOLD        TEXT,
    Descrizione TEXT
);

-- "Font" reads: name,size in points,bold italic underline strikeout as four flags,
CREATE TABLE operatori (
    Sigla  TEXT PRIMARY KEY NOT NULL,
    Colore INTEGER NOT NULL DEFAULT 0,
    Font   TEXT,
    Nome   TEXT
);

CREATE TABLE tipologie (
    Sigla  TEXT PRIMARY KEY NOT NULL,
    Colore INTEGER NOT NULL DEFAULT 0,
    Font   TEXT,
    Nome   TEXT
);

CREATE TABLE diagnosi (
    Codice      TEXT PRIMARY KEY NOT NULL,
    Descrizione TEXT
);

-- Price list of treatments. "Ambito": D any tooth, P permanent tooth, A arch, G whole mouth.
CREATE TABLE listino (
    Codice      TEXT PRIMARY KEY NOT NULL,
    Descrizione TEXT NOT NULL,
    Tipo        TEXT NOT NULL REFERENCES tipologie (Sigla),
    Ambito      TEXT NOT NULL,
    Diagnosi    TEXT
);
