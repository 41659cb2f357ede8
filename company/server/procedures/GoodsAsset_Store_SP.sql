-- The stock of goods in every store side by side: one row a good that meets the search, by code. Columns stand for the first
-- fifty stores by code; a store that is not in @StoreCodes counts among the others, and its own figures are null. Without a
-- period the figures are the stored ones, else those of the movements from @FromDate to @ToDate, both included.
CREATE PROCEDURE dbo.GoodsAsset_Store_SP
  @CalcBefore bigint = 0,
  @Reverse bigint = 0,
  @StoreCodes nvarchar(4000) = N'-1,0,',
  @ToDate nvarchar(4000) = N'9',
  @FromDate nvarchar(4000) = N'',
  @GoodCode nvarchar(4000) = N'',
  @GoodName nvarchar(4000) = N'' AS
BEGIN
  SET NOCOUNT ON;
  DECLARE @code bigint = dbo.CodeIn(@GoodCode);
  DECLARE @codeAsked int = CASE WHEN ISNULL(DATALENGTH(@GoodCode), 0) = 0 THEN 0 ELSE 1 END;
  DECLARE @nameAsked int = CASE WHEN ISNULL(DATALENGTH(@GoodName), 0) = 0 THEN 0 ELSE 1 END;
  DECLARE @namePart nvarchar(4000) = dbo.FoldPersian(@GoodName);
  DECLARE @from nvarchar(40) = CASE WHEN ISNULL(@FromDate, N'') IN (N'', N'0000/00/00') THEN NULL ELSE @FromDate END;
  DECLARE @to nvarchar(40) = CASE WHEN ISNULL(@ToDate, N'') IN (N'', N'9', N'9999/99/99') THEN NULL ELSE @ToDate END;
  CREATE TABLE #stores(Place int NOT NULL PRIMARY KEY, Code bigint NOT NULL, Listed int NOT NULL);
  INSERT INTO #stores(Place, Code, Listed)
  SELECT s.Place, s.Code, 0 FROM (SELECT Code, ROW_NUMBER() OVER (ORDER BY Code) AS Place FROM dbo.Stores) s WHERE s.Place <= 50;
  -- The list: -1 at its head and 0 behind it are the groups that are always there.
  DECLARE @rest nvarchar(4000) = ISNULL(@StoreCodes, N'') + N',', @comma int, @entry int = 0, @listed bigint;
  WHILE CHARINDEX(N',', @rest) > 0
  BEGIN
    SET @comma = CHARINDEX(N',', @rest);
    SET @listed = dbo.CodeIn(SUBSTRING(@rest, 1, @comma - 1));
    SET @rest = SUBSTRING(@rest, @comma + 1, 4000);
    IF NOT (@entry = 0 AND @listed = -1 OR @entry = 1 AND @listed = 0) UPDATE #stores SET Listed = 1 WHERE Code = @listed;
    SET @entry = @entry + 1;
  END;
  -- Slot 0 is the other stores, -1 the stock before the period.
  CREATE TABLE #moves(Kala bigint NOT NULL, Slot int NOT NULL, Quantity decimal(21,9) NOT NULL);
  IF @from IS NULL AND @to IS NULL
    INSERT INTO #moves(Kala, Slot, Quantity)
    SELECT r.Kala, ISNULL(s.Place, 0), r.Mogodi
    FROM dbo.GoodStoreStock r LEFT JOIN #stores s ON s.Code = r.Anbar AND s.Listed = 1;
  ELSE
    INSERT INTO #moves(Kala, Slot, Quantity)
    SELECT k.Kala, ISNULL(s.Place, 0), SUM(k.Tedad)
    FROM dbo.Kardex k LEFT JOIN #stores s ON s.Code = k.Anbar AND s.Listed = 1
    WHERE (@from IS NULL OR k.Date >= @from) AND (@to IS NULL OR k.Date <= @to)
    GROUP BY k.Kala, ISNULL(s.Place, 0);
  IF ISNULL(@CalcBefore, 0) <> 0 AND @from IS NOT NULL
    INSERT INTO #moves(Kala, Slot, Quantity)
    SELECT k.Kala, -1, SUM(k.Tedad) FROM dbo.Kardex k WHERE k.Date < @from GROUP BY k.Kala;
  CREATE TABLE #goods(
    Code bigint NOT NULL PRIMARY KEY, Name nvarchar(400) NOT NULL, Ratio decimal(19,9) NOT NULL, Price decimal(25,9) NOT NULL);
  INSERT INTO #goods(Code, Name, Ratio, Price)
  SELECT g.Code, g.Name, ISNULL(g.Meghdar_Formool, 0), ISNULL(r.Stock, 0)
  FROM dbo.GoodInf g
  JOIN dbo.SearchNames n ON n.Kind = 6 AND n.Code = g.Code
  LEFT JOIN dbo.RialiStock r ON r.Kala = g.Code
  WHERE @codeAsked + @nameAsked = 0
     OR CASE WHEN (@codeAsked = 0 OR g.Code = @code) AND (@nameAsked = 0 OR dbo.Holds(n.Name, @namePart) = 1) THEN 1 ELSE 0 END
        = CASE WHEN ISNULL(@Reverse, 0) = 0 THEN 1 ELSE 0 END;
  -- Four columns of a group: the quantity, its whole second units, what they leave, and what it is worth.
  DECLARE @group nvarchar(1000) = N', <x> AS [<n>-1], CAST(CASE WHEN q.Ratio = 0 THEN 0 ELSE (<x> - <x> % q.Ratio) / q.Ratio END AS decimal(38,9)) AS [<n>-2], CAST(CASE WHEN q.Ratio = 0 THEN <x> ELSE <x> % q.Ratio END AS decimal(38,9)) AS [<n>-3]';
  DECLARE @cost nvarchar(1000) = N', CAST(<x> * q.Price AS decimal(38,9)) AS [<n>-Cost]';
  DECLARE @nothing nvarchar(1000) = N', CAST(NULL AS decimal(38,9)) AS [<n>-1], CAST(NULL AS decimal(38,9)) AS [<n>-2], CAST(NULL AS decimal(38,9)) AS [<n>-3], CAST(NULL AS decimal(38,9)) AS [<n>-Cost]';
  DECLARE @columns nvarchar(max) = N'', @sums nvarchar(max) = N'', @total nvarchar(max) = N'q.E0', @worth nvarchar(max) = N'CAST(q.E0 * q.Price AS decimal(38,9))';
  DECLARE @place int = 1, @places int = (SELECT COUNT(*) FROM #stores), @name nvarchar(10);
  IF ISNULL(@CalcBefore, 0) <> 0
    SET @columns = REPLACE(REPLACE(@group + @cost, N'<x>', N'q.B0'), N'<n>', N'B0');
  ELSE
    SET @columns = REPLACE(@nothing, N'<n>', N'B0');
  WHILE @place <= @places
  BEGIN
    SET @name = N'S' + CONVERT(nvarchar(10), @place);
    IF EXISTS (SELECT 1 FROM #stores WHERE Place = @place AND Listed = 1)
    BEGIN
      SET @columns = @columns + REPLACE(REPLACE(@group + @cost, N'<x>', N'q.' + @name), N'<n>', @name);
      SET @sums = @sums + N', CAST(SUM(CASE WHEN m.Slot = ' + CONVERT(nvarchar(10), @place) + N' THEN m.Quantity ELSE 0 END) AS decimal(21,9)) AS ' + @name;
      SET @total = @total + N' + q.' + @name;
      SET @worth = @worth + N' + CAST(q.' + @name + N' * q.Price AS decimal(38,9))';
    END;
    ELSE
      SET @columns = @columns + REPLACE(@nothing, N'<n>', @name);
    SET @place = @place + 1;
  END;
  SET @columns = @columns + REPLACE(REPLACE(@group + @cost, N'<x>', N'q.E0'), N'<n>', N'E0');
  SET @columns = @columns + REPLACE(REPLACE(@group, N'<x>', N'CAST(' + @total + N' AS decimal(21,9))'), N'<n>', N'A0')
               + N', CAST(' + @worth + N' AS decimal(38,9)) AS [A0-Cost]';
  EXEC (N'SELECT q.Code AS GoodCode, q.Name AS GoodName' + @columns
        + N' FROM (SELECT g.Code, g.Name, g.Ratio, g.Price,'
        + N' CAST(SUM(CASE WHEN m.Slot = -1 THEN m.Quantity ELSE 0 END) AS decimal(21,9)) AS B0,'
        + N' CAST(SUM(CASE WHEN m.Slot = 0 THEN m.Quantity ELSE 0 END) AS decimal(21,9)) AS E0' + @sums
        + N' FROM #goods g LEFT JOIN #moves m ON m.Kala = g.Code GROUP BY g.Code, g.Name, g.Ratio, g.Price) q ORDER BY q.Code');
END
GO
