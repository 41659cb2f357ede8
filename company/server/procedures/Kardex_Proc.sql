-- The stock card of one good: its movements in the order of date and row number, with the remainders after each.
CREATE PROCEDURE dbo.Kardex_Proc @GoodCode bigint AS
BEGIN
  SET NOCOUNT ON;
  SELECT c.Date, p.Name AS PerName, c.Comment, c.Anbar,
         CASE WHEN c.Tedad > 0 THEN c.Tedad ELSE 0 END AS Tedad_Varde,
         CASE WHEN c.Tedad < 0 THEN -c.Tedad ELSE 0 END AS Tedad_Sadere,
         c.Meghdar2, c.Bagh, c.RemainInAnbar,
         CASE WHEN c.Tedad > 0 THEN c.Gheymat ELSE 0 END AS Gheymat_Varede,
         CASE WHEN c.Tedad < 0 THEN c.Gheymat ELSE 0 END AS Gheymat_Sadere,
         CAST(ABS(c.Tedad) * c.Fi AS decimal(38,9)) AS Foroosh, c.Miangin,
         CAST(c.Bagh * c.Miangin AS decimal(38,9)) AS Mab_Bagh,
         CAST(c.RemainInAnbar * c.Miangin AS decimal(38,9)) AS Mab_RemainInAnbar,
         c.Radif, c.Percode AS PerCode, c.Type, c.OperationCode
  FROM (SELECT k.*,
               CAST(SUM(k.Tedad) OVER (ORDER BY k.Date, k.Radif ROWS UNBOUNDED PRECEDING) AS decimal(21,9)) AS Bagh,
               CAST(SUM(k.Tedad) OVER (PARTITION BY k.Anbar ORDER BY k.Date, k.Radif ROWS UNBOUNDED PRECEDING)
                    AS decimal(21,9)) AS RemainInAnbar
        FROM dbo.Kardex k WHERE k.Kala = @GoodCode) c
  LEFT JOIN dbo.Persons p ON p.Code = c.Percode
  ORDER BY c.Date, c.Radif;
END
GO
