-- An adult with a bit of everything: each direction of the labels, stacks, stored positions, treatments on
-- several teeth, child rows, and every state. Keys follow the order in which the chart lists the rows.

INSERT INTO cartella (PAZIENTE, Mancanti, POS_DIAGNOSI) VALUES
    -- wisdom teeth and 36 are gone; 12 and 45 never formed, so the milk teeth 52 and 85 are still there
    (1, '1000001000000001' || '1001000000000101' || '1110111111' || '0111111111', '');

INSERT INTO prestazioni
    (ID, PAZIENTE, PADRE, Progressivo, stato, Terapia, Descrizione, Dottore, Tipo, ASPETTO, Colore,
     Data, DataFatto, Fatto, X, Y, Dente, Diagnosi)
VALUES
    -- whole mouth; a caption wider than a tooth's label may be, which stays whole here
    (101, 1, 0, 0, 0, 'VIS', 'Visita di controllo', 'AR', 'DIA', NULL, 0,
     '2025-01-14', '2025-01-14', 1, 0, 0, 'GL', NULL),
    (102, 1, 0, 0, 0, 'PANORAMICA', 'Ortopantomografia digitale', 'AR', 'DIA', NULL, 0,
     '2025-01-14', '2025-01-14', 1, 0, 0, 'GL', NULL),
    (103, 1, 0, 0, 0, 'IGI', 'Seduta di igiene orale professionale', 'IG', 'IGI', NULL, 0,
     '2025-02-03', NULL, 0, 0, 0, 'GL', 'GENG'),
    -- a crown with its steps as child rows, the first of them done
    (104, 1, 0, 0, 0, 'COR', 'Corona in ceramica su zirconia', 'BM', 'PRO', NULL, 0,
     '2025-02-10', NULL, 0, 0, 0, '16', 'FRAT'),
    (105, 1, 104, 1, 0, 'PREP', 'Preparazione del moncone', 'BM', 'PRO', NULL, 0,
     '2025-02-10', '2025-02-10', 1, 0, 0, '16', NULL),
    (106, 1, 104, 2, 0, 'IMPR', 'Impronta digitale', 'BM', 'PRO', NULL, 0,
     '2025-02-24', NULL, 0, 0, 0, '16', NULL),
    (107, 1, 104, 3, 0, 'CEM', 'Cementazione definitiva', 'BM', 'PRO', NULL, 0,
     '2025-03-10', NULL, 0, 0, 0, '16', NULL),
    -- a stack of four on one upper tooth
    (108, 1, 0, 0, 0, 'RX', 'Radiografia endorale', 'AR', 'DIA', NULL, 0,
     '2025-01-14', '2025-01-14', 1, 0, 0, '26', NULL),
    (109, 1, 0, 0, 0, 'CAN', 'Terapia canalare', 'CV', 'END', 'URG', 0,
     '2025-01-20', NULL, 2, 0, 0, '26', 'PULP'),
    (110, 1, 0, 0, 0, 'RIC', 'Ricostruzione diretta con perno in fibra', 'CV', 'CON', NULL, 0,
     '2025-02-17', NULL, 0, 0, 0, '26', 'PULP'),
    (111, 1, 0, 0, 0, 'CORONA ZR', 'Corona in ceramica su zirconia', 'BM', 'PRO', NULL, 0,
     '2025-03-03', NULL, 0, 0, 0, '26', 'FRAT'),
    -- a bridge over several upper teeth
    (112, 1, 0, 0, 0, 'PON', 'Ponte in ceramica di tre elementi', 'BM', 'PRO', NULL, 0,
     '2025-03-17', NULL, 0, 0, 0, '13 14 15', 'EDEN'),
    (113, 1, 0, 0, 0, 'OTT', 'Otturazione in composito, una superficie', 'CV', 'CON', NULL, 0,
     '2025-01-27', '2025-01-27', 1, 0, 0, '11', 'CAR2'),
    (114, 1, 0, 0, 0, 'FAC', 'Faccetta in ceramica', 'BM', 'PRO', NULL, 0,
     '2025-04-07', NULL, 0, 0, 0, '11', NULL),
    -- turned down by the patient, and taken out of the plan
    (115, 1, 0, 0, 2, 'FAC', 'Faccetta in ceramica', 'BM', 'PRO', NULL, 0,
     '2025-04-07', NULL, 0, 0, 0, '21', NULL),
    (116, 1, 0, 0, 1, 'EST', 'Estrazione semplice', 'AR', 'CHI', NULL, 0,
     '2025-01-14', NULL, 0, 0, 0, '17', 'CAR3'),
    -- an old treatment that the chart no longer shows
    (117, 1, 0, 0, 4, 'OTT', 'Vecchia otturazione in amalgama', 'AR', 'CON', NULL, 0,
     '1998-06-11', '1998-06-11', 1, 0, 0, '46', NULL),
    -- dragged into the free space beside 28 by the user
    (118, 1, 0, 0, 0, 'DEV', 'Prova di vitalità della polpa', 'AR', 'DIA', NULL, 0,
     '2025-01-14', '2025-01-14', 1, 1062, 178, '27', NULL),
    -- lower teeth
    (119, 1, 0, 0, 0, 'IMP', 'Impianto osteointegrato', 'AR', 'IMP', NULL, 0,
     '2025-05-12', NULL, 0, 0, 0, '36', 'EDEN'),
    (120, 1, 119, 1, 0, 'INS', 'Inserimento della vite', 'AR', 'IMP', NULL, 0,
     '2025-05-12', NULL, 0, 0, 0, '36', NULL),
    (121, 1, 0, 0, 0, 'COI', 'Corona avvitata su impianto', 'BM', 'IMP', NULL, 0,
     '2025-09-15', NULL, 0, 0, 0, '36', 'EDEN'),
    (122, 1, 0, 0, 0, 'OTT2', 'Otturazione in composito, due superfici', 'CV', 'CON', 'GAR', 0,
     '2025-02-03', NULL, 2, 0, 0, '46', 'CAR2'),
    (123, 1, 0, 0, 0, 'CUR', 'Curettage e levigatura radicolare', 'IG', 'IGI', NULL, 0,
     '2025-02-20', NULL, 0, 0, 0, '43 42 41 31 32 33', 'PARO'),
    -- a colour of its own, stronger than the operator's
    (124, 1, 0, 0, 0, 'EST', 'Estrazione semplice', 'AR', 'CHI', NULL, 170,
     '2025-02-27', NULL, 0, 0, 0, '35', 'CAR3'),
    -- whole arches
    (125, 1, 0, 0, 0, 'SBI', 'Sbiancamento professionale dell''arcata', 'IG', 'IGI', NULL, 0,
     '2025-06-09', NULL, 0, 0, 0, 'AS', NULL),
    (126, 1, 0, 0, 0, 'IMPR', 'Impronta digitale dell''arcata', 'BM', 'DIA', NULL, 0,
     '2025-03-03', '2025-03-03', 1, 0, 0, 'AS', NULL),
    (127, 1, 0, 0, 0, 'SBI', 'Sbiancamento professionale dell''arcata', 'IG', 'IGI', NULL, 0,
     '2025-06-09', NULL, 0, 0, 0, 'AI', NULL),
    (128, 1, 0, 0, 0, 'SCH', 'Scheletrato dell''arcata', 'BM', 'PRO', NULL, 0,
     '2025-07-01', NULL, 0, 0, 0, 'AI', 'EDEN'),
    -- dragged beyond the drawing's left edge
    (129, 1, 0, 0, 0, 'BITE', 'Bite notturno', 'BM', 'ORT', NULL, 0,
     '2025-04-22', NULL, 0, -25, 300, 'GL', NULL),
    -- the two milk teeth that stayed
    (130, 1, 0, 0, 0, 'RX', 'Radiografia endorale', 'AR', 'DIA', NULL, 0,
     '2025-01-14', '2025-01-14', 1, 0, 0, '52', NULL),
    (131, 1, 0, 0, 0, 'RX', 'Radiografia endorale', 'AR', 'DIA', NULL, 0,
     '2025-01-14', '2025-01-14', 1, 0, 0, '85', NULL);
