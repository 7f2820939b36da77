-- A child of eight: first molars and incisors have come through, canines and molars are still milk teeth.

INSERT INTO cartella (PAZIENTE, Mancanti, POS_DIAGNOSI) VALUES
    (2, '1101110000111011' || '1101110000111011' || '0001111000' || '0001111000', '');

INSERT INTO prestazioni
    (ID, PAZIENTE, PADRE, Progressivo, stato, Terapia, Descrizione, Dottore, Tipo, ASPETTO, Colore,
     Data, DataFatto, Fatto, X, Y, Dente, Diagnosi)
VALUES
    (201, 2, 0, 0, 0, 'VIS', 'Visita di controllo', 'AR', 'DIA', NULL, 0,
     '2025-03-05', '2025-03-05', 1, 0, 0, 'GL', NULL),
    (202, 2, 0, 0, 0, 'TEL', 'Teleradiografia del cranio', 'AR', 'DIA', NULL, 0,
     '2025-03-05', NULL, 0, 0, 0, 'GL', 'MALO'),
    (203, 2, 0, 0, 0, 'SIG', 'Sigillatura dei solchi', 'IG', 'PED', NULL, 0,
     '2025-03-12', '2025-03-12', 1, 0, 0, '16', NULL),
    (204, 2, 0, 0, 0, 'SIG', 'Sigillatura dei solchi', 'IG', 'PED', NULL, 0,
     '2025-03-12', '2025-03-12', 1, 0, 0, '26', NULL),
    (205, 2, 0, 0, 0, 'SIG', 'Sigillatura dei solchi', 'IG', 'PED', NULL, 0,
     '2025-04-02', NULL, 0, 0, 0, '36', NULL),
    (206, 2, 0, 0, 0, 'SIG', 'Sigillatura dei solchi', 'IG', 'PED', NULL, 0,
     '2025-04-02', NULL, 0, 0, 0, '46', NULL),
    (207, 2, 0, 0, 0, 'OTT', 'Otturazione in composito, una superficie', 'CV', 'CON', NULL, 0,
     '2025-03-19', NULL, 0, 0, 0, '54', 'CAR2'),
    (208, 2, 0, 0, 0, 'PUL', 'Pulpotomia', 'CV', 'PED', 'URG', 0,
     '2025-03-10', '2025-03-10', 1, 0, 0, '85', 'PULP'),
    (209, 2, 0, 0, 0, 'OTT2', 'Otturazione in composito, due superfici', 'CV', 'CON', NULL, 0,
     '2025-03-24', NULL, 2, 0, 0, '85', 'CAR3'),
    (210, 2, 0, 0, 0, 'EST', 'Estrazione semplice', 'AR', 'CHI', NULL, 0,
     '2025-05-07', NULL, 0, 0, 0, '63', NULL),
    (211, 2, 0, 0, 0, 'RX', 'Radiografia endorale', 'AR', 'DIA', NULL, 0,
     '2025-03-05', '2025-03-05', 1, 0, 0, '74', NULL),
    (212, 2, 0, 0, 0, 'OTT', 'Otturazione in composito, una superficie', 'CV', 'CON', NULL, 0,
     '2025-03-31', NULL, 0, 0, 0, '74', 'CAR1'),
    (213, 2, 0, 0, 0, 'APP', 'Apparecchio mobile di espansione', 'CV', 'ORT', NULL, 0,
     '2025-06-16', NULL, 0, 0, 0, 'AS', 'AFFO'),
    (214, 2, 213, 1, 0, 'IMPR', 'Impronta digitale dell''arcata', 'CV', 'DIA', NULL, 0,
     '2025-06-03', NULL, 0, 0, 0, 'AS', NULL),
    (215, 2, 0, 0, 0, 'FLU', 'Applicazione topica di fluoro', 'IG', 'IGI', NULL, 0,
     '2025-03-12', '2025-03-12', 1, 0, 0, 'AI', NULL),
    (216, 2, 0, 0, 0, 'RIC', 'Ricostruzione dell''angolo incisale', 'CV', 'CON', NULL, 0,
     '2025-03-19', NULL, 0, 0, 0, '11 21', 'FRAT');
