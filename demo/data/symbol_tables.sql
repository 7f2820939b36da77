-- The symbols that can be placed on a chart, and where each patient has them.

-- "Grafico_ie" is a picture with a transparent ground. "Terapia" is the code in `listino` of the treatment that a
-- symbol stands for; empty for a finding. Scale in percent, Angle in degrees, Opacity up to 255: what a symbol has
-- when it is placed.
CREATE TABLE simboli (
    SIMB_ID    INTEGER PRIMARY KEY,
    Nome       TEXT    NOT NULL UNIQUE,
    Terapia    TEXT    NOT NULL DEFAULT '',
    Grafico_ie BLOB,
    Scale      REAL    NOT NULL DEFAULT 100,
    Angle      INTEGER NOT NULL DEFAULT 0,
    Opacity    INTEGER NOT NULL DEFAULT 255
);

-- "simb_id" is the row's own key, "id" the symbol's. X and Y are the left top corner in pixels of the drawing.
-- "IMMAGINE" is the row's own picture, for a symbol that the catalogue no longer has; "ID_VORNAL" the practice.
CREATE TABLE disegni (
    simb_id   INTEGER PRIMARY KEY,
    PAZIENTE  INTEGER NOT NULL REFERENCES pazienti (id),
    id        INTEGER NOT NULL,
    Nome      TEXT,
    Angle     INTEGER NOT NULL DEFAULT 0,
    Scale     REAL    NOT NULL DEFAULT 100,
    X         INTEGER NOT NULL DEFAULT 0,
    Y         INTEGER NOT NULL DEFAULT 0,
    Opacity   INTEGER NOT NULL DEFAULT 255,
    IMMAGINE  BLOB,
    ID_VORNAL INTEGER
);

CREATE INDEX disegni_paziente ON disegni (PAZIENTE, simb_id);
