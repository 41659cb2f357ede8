-- Refreshes the stored stock of a good, or of every good (0), from the stock card.
CREATE PROCEDURE dbo.UpdateMogodiKala @GoodCode bigint = 0 AS
BEGIN
  SET NOCOUNT ON;
  SET XACT_ABORT ON;
  BEGIN TRANSACTION;
  DELETE FROM dbo.GoodStock WHERE @GoodCode = 0 OR Kala = @GoodCode;
  INSERT INTO dbo.GoodStock(Kala, varede, sadere, Mogodi, Mogodi2, gheymat_miangin, Jam_Kol, OperationDate)
  SELECT t.Code, t.varede, t.sadere, t.Mogodi,
         CASE WHEN ISNULL(t.Ratio, 0) = 0 THEN 0 ELSE CAST((t.Mogodi - t.Mogodi % t.Ratio) / t.Ratio AS decimal(21,9)) END,
         t.Miangin, CAST(t.Mogodi * t.Miangin AS decimal(38,9)), t.LastDate
  FROM (SELECT g.Code, CAST(g.Meghdar_Formool AS decimal(21,9)) AS Ratio,
               CAST(ISNULL(m.varede, 0) AS decimal(21,9)) AS varede, CAST(ISNULL(m.sadere, 0) AS decimal(21,9)) AS sadere,
               CAST(ISNULL(m.varede, 0) - ISNULL(m.sadere, 0) AS decimal(21,9)) AS Mogodi,
               CAST(ISNULL((SELECT TOP 1 k.Miangin FROM dbo.Kardex k WHERE k.Kala = g.Code
                            ORDER BY k.Date DESC, k.Radif DESC), 0) AS decimal(25,9)) AS Miangin,
               ISNULL(m.LastDate, N'') AS LastDate
        FROM dbo.GoodInf g
        LEFT JOIN (SELECT k.Kala, SUM(CASE WHEN k.Tedad > 0 THEN k.Tedad ELSE 0 END) AS varede,
                          SUM(CASE WHEN k.Tedad < 0 THEN -k.Tedad ELSE 0 END) AS sadere, MAX(k.Date) AS LastDate
                   FROM dbo.Kardex k WHERE @GoodCode = 0 OR k.Kala = @GoodCode GROUP BY k.Kala) m ON m.Kala = g.Code
        WHERE @GoodCode = 0 OR g.Code = @GoodCode) t;
  UPDATE g SET CurAva = CAST(ROUND(s.Mogodi, 0, 1) AS bigint)
  FROM dbo.GoodInf g JOIN dbo.GoodStock s ON s.Kala = g.Code
  WHERE (@GoodCode = 0 OR g.Code = @GoodCode) AND ABS(s.Mogodi) < 9223372036 AND g.CurAva <> CAST(ROUND(s.Mogodi, 0, 1) AS bigint);
  COMMIT;
END
GO
