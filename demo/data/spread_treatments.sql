-- Spreads :quanti treatments of patient :paziente over all teeth and areas, by arithmetic alone, so that the
-- same call always gives the same rows. Zones take turns in a round of 100 rows, some more than once, as in
-- real mouths: a milk tooth or an arch once, a permanent tooth twice, a first or second molar three times,
-- the whole mouth six times.
INSERT INTO prestazioni
    (PAZIENTE, Terapia, Descrizione, Dottore, Tipo, ASPETTO, Colore,
     Data, DataFatto, Fatto, stato, Dente, Diagnosi)
WITH RECURSIVE
    conta (n) AS (
        SELECT 0 WHERE :quanti > 0
        UNION ALL
        SELECT n + 1 FROM conta WHERE n + 1 < :quanti
    ),
    cifra (d) AS (VALUES (1), (2), (3), (4), (5), (6), (7), (8)),
    zona (nome, ambito, turni) AS (
        SELECT CAST(q.d * 10 + p.d AS TEXT), CASE WHEN q.d > 4 THEN 'D' ELSE 'P' END,
               CASE WHEN q.d > 4 THEN 1 WHEN p.d IN (6, 7) THEN 3 ELSE 2 END
        FROM cifra AS q JOIN cifra AS p ON q.d < 5 OR p.d < 6
        UNION ALL VALUES ('GL', 'G', 6), ('AS', 'A', 1), ('AI', 'A', 1)
    ),
    -- 41 and 100 have no common divisor, so a round meets every place of the list once
    turno (nome, ambito, posto) AS (
        SELECT z.nome, z.ambito, row_number() OVER (ORDER BY z.nome, c.d) - 1
        FROM zona AS z JOIN cifra AS c ON c.d <= z.turni
    ),
    -- what may be done where: a permanent tooth takes both kinds of tooth treatment, a milk tooth one
    voce (ambito, posto, Codice, Descrizione, Tipo, Diagnosi) AS (
        SELECT z.ambito, row_number() OVER (PARTITION BY z.ambito ORDER BY l.Codice) - 1,
               l.Codice, l.Descrizione, l.Tipo, l.Diagnosi
        FROM (SELECT DISTINCT ambito FROM zona) AS z
        JOIN listino AS l ON l.Ambito = z.ambito OR (z.ambito = 'P' AND l.Ambito = 'D')
    ),
    scelta (ambito, voci) AS (SELECT ambito, count(*) FROM voce GROUP BY ambito)
SELECT :paziente, v.Codice, v.Descrizione,
       CASE WHEN v.Tipo = 'IGI' THEN 'IG' WHEN v.Tipo IN ('PRO', 'ORT') THEN 'BM'
            WHEN v.Tipo IN ('END', 'PED') THEN 'CV' WHEN c.n % 2 = 0 THEN 'AR' ELSE 'CV' END,
       v.Tipo,
       CASE WHEN c.n % 29 = 7 THEN 'URG' WHEN c.n % 31 = 11 THEN 'GAR' END,
       CASE WHEN c.n % 23 = 5 THEN 170 ELSE 0 END,
       date('2024-12-20', '-' || (c.n * 37 % 3650) || ' days'),
       CASE WHEN c.n % 3 = 0 THEN date('2024-12-27', '-' || (c.n * 37 % 3650) || ' days') END,
       CASE WHEN c.n % 3 = 0 THEN 1 WHEN c.n % 11 = 4 THEN 2 ELSE 0 END,
       CASE WHEN c.n % 37 = 13 THEN 1 WHEN c.n % 41 = 17 THEN 2 ELSE 0 END,
       z.nome, v.Diagnosi
FROM conta AS c
JOIN turno AS z ON z.posto = c.n * 41 % 100
JOIN scelta AS s ON s.ambito = z.ambito
JOIN voce AS v ON v.ambito = z.ambito AND v.posto = (c.n * 7 + c.n / 100) % s.voci
ORDER BY c.n;
