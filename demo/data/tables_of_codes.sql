INSERT INTO pazienti (id, cognome, nome, nato, note) VALUES
    (1, 'Bellandi', 'Marta', '1974-03-18', 'Allergica alla penicillina. Bruxismo notturno.'),
    (2, 'Sartori', 'Luca', '2017-05-02', 'Dentizione mista, accompagnato dalla madre.'),
    (3, 'Fontanesi', 'Ettore', '1958-11-27', 'Cartella storica: trent''anni di cure.');

-- Dark text colours, all readable on the light ground: blue, green, violet, brown.
INSERT INTO operatori (Sigla, Colore, Font, Nome) VALUES
    ('AR', 10040064, '', 'Dott.ssa Anna Rinaldi'),
    ('BM', 3368448,  '', 'Dott. Bruno Morelli'),
    ('CV', 8388736,  '', 'Dott.ssa Chiara Vanni'),
    ('IG', 16512,    '', 'Elisa Gatti, igienista');

INSERT INTO tipologie (Sigla, Colore, Font, Nome) VALUES
    ('CON', 8404992, '',                'Conservativa'),
    ('END', 128,     'Arial,8,0100,',   'Endodonzia'),
    ('PRO', 6697728, 'Arial,8,1000,',   'Protesi'),
    ('CHI', 2097312, '',                'Chirurgia'),
    ('IMP', 8388608, 'Arial,8,1000,',   'Implantologia'),
    ('IGI', 25600,   '',                'Igiene e parodontologia'),
    ('ORT', 8388736, '',                'Ortodonzia'),
    ('PED', 26265,   '',                'Pedodonzia'),
    ('DIA', 5263440, 'Arial,8,0000,',   'Diagnostica');

INSERT INTO aspetto (ID, COLOREFONDO, COLORETESTO, BOLD, Descrizione) VALUES
    ('FAT', 14417368, 3695639,  '0', 'Prestazione eseguita'),
    ('ESC', 15263976, 6316128,  '0', 'Esclusa dal piano di cura'),
    ('NON', 13429759, 6908265,  '0', 'Non accettata dal paziente'),
    ('URG', 10079487, 139,      '1', 'Urgente'),
    ('GAR', 16770244, 9109504,  '0', 'In garanzia'),
    ('PRV', 0,        0,        '1', 'Provvisorio');

INSERT INTO diagnosi (Codice, Descrizione) VALUES
    ('CAR1', 'Carie iniziale dello smalto'),
    ('CAR2', 'Carie della dentina'),
    ('CAR3', 'Carie penetrante'),
    ('PULP', 'Pulpite irreversibile'),
    ('NECR', 'Necrosi pulpare con lesione apicale'),
    ('FRAT', 'Frattura coronale'),
    ('INCL', 'Dente incluso'),
    ('PARO', 'Parodontite cronica'),
    ('GENG', 'Gengivite da placca'),
    ('EDEN', 'Edentulia parziale'),
    ('MALO', 'Malocclusione di seconda classe'),
    ('AFFO', 'Affollamento anteriore');

INSERT INTO listino (Codice, Descrizione, Tipo, Ambito, Diagnosi) VALUES
    ('OTT',  'Otturazione in composito, una superficie',       'CON', 'D', 'CAR2'),
    ('OTT2', 'Otturazione in composito, due superfici',        'CON', 'D', 'CAR2'),
    ('RIC',  'Ricostruzione diretta con perno in fibra',       'CON', 'P', 'FRAT'),
    ('INT',  'Intarsio in ceramica',                           'CON', 'P', 'CAR3'),
    ('SIG',  'Sigillatura dei solchi',                         'PED', 'D', NULL),
    ('INC',  'Incappucciamento diretto della polpa',           'CON', 'D', 'CAR3'),
    ('CAN',  'Terapia canalare',                               'END', 'P', 'PULP'),
    ('RIT',  'Ritrattamento canalare',                         'END', 'P', 'NECR'),
    ('API',  'Apicectomia con otturazione retrograda',         'END', 'P', 'NECR'),
    ('PUL',  'Pulpotomia',                                     'PED', 'D', 'PULP'),
    ('COR',  'Corona in ceramica su zirconia',                 'PRO', 'P', 'FRAT'),
    ('PRV',  'Corona provvisoria in resina',                   'PRO', 'P', NULL),
    ('FAC',  'Faccetta in ceramica',                           'PRO', 'P', NULL),
    ('PON',  'Elemento di ponte',                              'PRO', 'P', 'EDEN'),
    ('EST',  'Estrazione semplice',                            'CHI', 'D', 'CAR3'),
    ('ESC',  'Estrazione chirurgica',                          'CHI', 'P', 'INCL'),
    ('IMP',  'Impianto osteointegrato',                        'IMP', 'P', 'EDEN'),
    ('GBR',  'Rigenerazione ossea guidata',                    'IMP', 'P', 'EDEN'),
    ('COI',  'Corona avvitata su impianto',                    'IMP', 'P', 'EDEN'),
    ('DEV',  'Prova di vitalità della polpa',                  'DIA', 'D', NULL),
    ('RX',   'Radiografia endorale',                           'DIA', 'D', NULL),
    ('CUR',  'Curettage e levigatura radicolare',              'IGI', 'P', 'PARO'),
    ('FLU',  'Applicazione topica di fluoro',                  'IGI', 'A', NULL),
    ('SBI',  'Sbiancamento professionale dell''arcata',        'IGI', 'A', NULL),
    ('SCH',  'Scheletrato dell''arcata',                       'PRO', 'A', 'EDEN'),
    ('APP',  'Apparecchio fisso multibracket',                 'ORT', 'A', 'AFFO'),
    ('IMPR', 'Impronta digitale dell''arcata',                 'DIA', 'A', NULL),
    ('VIS',  'Visita di controllo',                            'DIA', 'G', NULL),
    ('OPT',  'Ortopantomografia',                              'DIA', 'G', NULL),
    ('IGI',  'Seduta di igiene orale professionale',           'IGI', 'G', 'GENG'),
    ('BITE', 'Bite notturno',                                  'ORT', 'G', NULL),
    ('TEL',  'Teleradiografia del cranio',                     'DIA', 'G', 'MALO');
