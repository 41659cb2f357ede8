-- Refreshes the stored stock of a good, or of every good, from the stock card.
-- Mogodi2 counts whole second units; the rest is the part that the lists show beside it.
-- parameter @GoodCode integer default 0
-- writes
DELETE FROM GoodStock WHERE @GoodCode = 0 OR Kala = @GoodCode;

INSERT INTO GoodStock(Kala, varede, sadere, Mogodi, Mogodi2, gheymat_miangin, Jam_Kol, OperationDate)
SELECT t.Code, t.varede, t.sadere, dec_sub(t.varede, t.sadere),
       ifnull(dec_whole(dec_sub(t.varede, t.sadere), nullif(t.Meghdar_Formool, 0)), 0),
       t.Miangin, dec_mul(dec_sub(t.varede, t.sadere), t.Miangin), t.LastDate
FROM (SELECT g.Code, g.Meghdar_Formool,
             ifnull((SELECT dec_sum(max(k.Tedad, 0)) FROM Kardex k WHERE k.Kala = g.Code), 0) AS varede,
             ifnull((SELECT dec_sum(max(-k.Tedad, 0)) FROM Kardex k WHERE k.Kala = g.Code), 0) AS sadere,
             ifnull((SELECT k.Miangin FROM Kardex k WHERE k.Kala = g.Code
                     ORDER BY k.Date DESC, k.Radif DESC LIMIT 1), 0) AS Miangin,
             ifnull((SELECT max(k.Date) FROM Kardex k WHERE k.Kala = g.Code), '') AS LastDate
      FROM GoodInf g
      WHERE @GoodCode = 0 OR g.Code = @GoodCode) t;

UPDATE GoodInf SET CurAva = (SELECT dec_trunc(s.Mogodi) FROM GoodStock s WHERE s.Kala = GoodInf.Code) / 1000000000
WHERE (@GoodCode = 0 OR Code = @GoodCode)
  AND (SELECT typeof(dec_trunc(s.Mogodi)) FROM GoodStock s WHERE s.Kala = GoodInf.Code) = 'integer';
