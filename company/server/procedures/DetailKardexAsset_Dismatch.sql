-- Goods that keep details and whose stock on the stock card differs from the stock that their details tell: in all stores
-- together, or with @StoreSeparation 1 in each store; in the order of good and store.
CREATE PROCEDURE dbo.DetailKardexAsset_Dismatch
  @GoodGroupCode bigint = NULL,
  @StoreSeparation bigint = 0,
  @GoodCode bigint = NULL,
  @GoodName nvarchar(4000) = NULL,
  @Store bigint = NULL,
  @StoreName nvarchar(4000) = NULL,
  @FromDiffAsset decimal(38,9) = NULL,
  @ToDiffAsset decimal(38,9) = NULL AS
BEGIN
  SET NOCOUNT ON;
  DECLARE @goodPart nvarchar(4000) = dbo.FoldPersian(@GoodName);
  DECLARE @storePart nvarchar(4000) = dbo.FoldPersian(@StoreName);
  SELECT ISNULL(d.Anbar, 0) AS StoreCode, CASE WHEN @StoreSeparation = 1 THEN s.Name ELSE N'' END AS StoreTitle,
         d.Kala AS GoodCode, g.Name AS GoodTitle, CAST(d.KardexAsset - d.DetailAsset AS decimal(38,9)) AS DiffAsset,
         CAST(d.KardexAsset AS decimal(38,9)) AS KardexAsset, CAST(d.DetailAsset AS decimal(38,9)) AS DetailAsset
  FROM (SELECT m.Kala, CASE WHEN @StoreSeparation = 1 THEN m.Anbar END AS Anbar, SUM(m.KardexAsset) AS KardexAsset,
               SUM(m.DetailAsset) AS DetailAsset
        FROM (SELECT k.Kala, k.Anbar, k.Tedad AS KardexAsset, CAST(0 AS decimal(19,9)) AS DetailAsset FROM dbo.Kardex k
              UNION ALL
              SELECT x.Kala, x.Anbar, CAST(0 AS decimal(19,9)), x.Amount1 FROM dbo.DetailKardex x) m
        WHERE EXISTS (SELECT 1 FROM dbo.GoodDetails gd WHERE gd.Kala = m.Kala)
          AND (@GoodCode IS NULL OR m.Kala = @GoodCode)
          AND (@GoodGroupCode IS NULL OR m.Kala IN (SELECT q.Code FROM dbo.GoodInf q WHERE q.GrpCode = @GoodGroupCode))
          AND (@GoodName IS NULL OR m.Kala IN (SELECT n.Code FROM dbo.SearchNames n
                                               WHERE n.Kind = 6 AND dbo.Holds(n.Name, @goodPart) = 1))
          AND (@Store IS NULL OR m.Anbar = @Store)
          AND (@StoreName IS NULL OR m.Anbar IN (SELECT n.Code FROM dbo.SearchNames n
                                                 WHERE n.Kind = 1 AND dbo.Holds(n.Name, @storePart) = 1))
        GROUP BY m.Kala, CASE WHEN @StoreSeparation = 1 THEN m.Anbar END) d
  LEFT JOIN dbo.GoodInf g ON g.Code = d.Kala
  LEFT JOIN dbo.Stores s ON s.Code = d.Anbar
  WHERE d.KardexAsset <> d.DetailAsset
    AND (@FromDiffAsset IS NULL OR d.KardexAsset - d.DetailAsset >= @FromDiffAsset)
    AND (@ToDiffAsset IS NULL OR d.KardexAsset - d.DetailAsset <= @ToDiffAsset)
  ORDER BY d.Kala, d.Anbar
  OPTION (RECOMPILE);
END
GO
