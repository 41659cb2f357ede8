-- The movements of all goods by detail values, good by good in the order of date and row number.
CREATE PROCEDURE dbo.AllGoodDetailTransaction
  @TitleID bigint = NULL,
  @Title nvarchar(4000) = NULL,
  @OperationType bigint = NULL,
  @DetailID1 bigint = NULL,
  @Detail1Value1 nvarchar(4000) = NULL,
  @Detail1Value2 nvarchar(4000) = NULL,
  @DetailID2 bigint = NULL,
  @Detail2Value1 nvarchar(4000) = NULL,
  @Detail2Value2 nvarchar(4000) = NULL,
  @DetailID3 bigint = NULL,
  @Detail3Value1 nvarchar(4000) = NULL,
  @Detail3Value2 nvarchar(4000) = NULL,
  @DetailID4 bigint = NULL,
  @Detail4Value1 nvarchar(4000) = NULL,
  @Detail4Value2 nvarchar(4000) = NULL,
  @DetailID5 bigint = NULL,
  @Detail5Value1 nvarchar(4000) = NULL,
  @Detail5Value2 nvarchar(4000) = NULL,
  @GoodTags nvarchar(4000) = NULL,
  @GoodCategoryCode bigint = NULL,
  @GoodSelectedListCode bigint = NULL,
  @GoodSelectedListNot bigint = 0,
  @GoodCode bigint = NULL,
  @GoodGroupCode bigint = NULL,
  @FromGoodCode bigint = NULL,
  @ToGoodCode bigint = NULL,
  @FromGoodGroupCode bigint = NULL,
  @ToGoodGroupCode bigint = NULL,
  @FromAnbar bigint = NULL,
  @ToAnbar bigint = NULL,
  @Anbar bigint = NULL,
  @FromDate nvarchar(4000) = NULL,
  @ToDate nvarchar(4000) = NULL AS
BEGIN
  SET NOCOUNT ON;
  -- An empty date is an open end.
  IF LTRIM(@FromDate) = N'' SET @FromDate = NULL;
  IF LTRIM(@ToDate) = N'' SET @ToDate = NULL;
  DECLARE @titleAsked bigint = ISNULL(@TitleID, 0);
  DECLARE @part nvarchar(4000) = dbo.FoldPersian(@Title);
  DECLARE @number decimal(38,9) = dbo.NumberIn(@Title);
  DECLARE @tagsAsked int = CASE WHEN REPLACE(REPLACE(ISNULL(@GoodTags, N''), N',', N''), N' ', N'') = N'' THEN 0 ELSE 1 END;
  DECLARE @type1 bigint = (SELECT DetailType FROM dbo.DetailTypes WHERE ID = @DetailID1);
  DECLARE @type2 bigint = (SELECT DetailType FROM dbo.DetailTypes WHERE ID = @DetailID2);
  DECLARE @type3 bigint = (SELECT DetailType FROM dbo.DetailTypes WHERE ID = @DetailID3);
  DECLARE @type4 bigint = (SELECT DetailType FROM dbo.DetailTypes WHERE ID = @DetailID4);
  DECLARE @type5 bigint = (SELECT DetailType FROM dbo.DetailTypes WHERE ID = @DetailID5);
  -- The category and those below it.
  CREATE TABLE #below(Code bigint NOT NULL PRIMARY KEY);
  IF @GoodCategoryCode IS NOT NULL
  BEGIN
    INSERT INTO #below(Code) VALUES(@GoodCategoryCode);
    WHILE @@ROWCOUNT > 0
      INSERT INTO #below(Code)
      SELECT c.Code FROM dbo.Categories c
      WHERE c.ParentCode IN (SELECT b.Code FROM #below b) AND c.Code NOT IN (SELECT b.Code FROM #below b);
  END;
  SELECT d.Date AS OperationDate, d.Anbar, s.Name AS AnbarName, g.Code, g.Name, v.D1Value, v.D2Value, v.D3Value, v.D4Value,
         v.D5Value,
         -- DetailJoined of the five, written out: a call for each value of each row costs more than all the rest.
         SUBSTRING(CASE WHEN ISNULL(DATALENGTH(v.D1Value), 0) = 0 THEN N'' ELSE N' - ' + CASE WHEN ISNULL(DATALENGTH(t1.Title), 0) = 0 THEN N'' ELSE t1.Title + N': ' END + v.D1Value END
           + CASE WHEN ISNULL(DATALENGTH(v.D2Value), 0) = 0 THEN N'' ELSE N' - ' + CASE WHEN ISNULL(DATALENGTH(t2.Title), 0) = 0 THEN N'' ELSE t2.Title + N': ' END + v.D2Value END
           + CASE WHEN ISNULL(DATALENGTH(v.D3Value), 0) = 0 THEN N'' ELSE N' - ' + CASE WHEN ISNULL(DATALENGTH(t3.Title), 0) = 0 THEN N'' ELSE t3.Title + N': ' END + v.D3Value END
           + CASE WHEN ISNULL(DATALENGTH(v.D4Value), 0) = 0 THEN N'' ELSE N' - ' + CASE WHEN ISNULL(DATALENGTH(t4.Title), 0) = 0 THEN N'' ELSE t4.Title + N': ' END + v.D4Value END
           + CASE WHEN ISNULL(DATALENGTH(v.D5Value), 0) = 0 THEN N'' ELSE N' - ' + CASE WHEN ISNULL(DATALENGTH(t5.Title), 0) = 0 THEN N'' ELSE t5.Title + N': ' END + v.D5Value END, 4, 4000) AS DetailValues,
         p.Name AS fullname, d.Comment, CASE WHEN d.Amount1 > 0 THEN d.Amount1 ELSE 0 END AS Varede,
         CASE WHEN d.Amount1 < 0 THEN -d.Amount1 ELSE 0 END AS Sadere, k.Fi AS Amount,
         CAST(ABS(d.Amount1) * k.Fi AS decimal(38,9)) AS TotalAmount, u.Name AS UnitName, d.Type AS OperationType,
         d.OperationCode, d.DetailValueID, g.Code AS Kala
  FROM dbo.GoodInf g
  JOIN dbo.SearchNames n ON n.Kind = 6 AND n.Code = g.Code
  JOIN dbo.DetailKardex d ON d.Kala = g.Code
  LEFT JOIN dbo.DetailValues v ON v.ID = d.DetailValueID
  LEFT JOIN dbo.Units u ON u.Code = g.Unit
  LEFT JOIN dbo.GoodDetails p1 ON p1.Kala = g.Code AND p1.Position = 1
  LEFT JOIN dbo.DetailTypes t1 ON t1.ID = p1.DetailID
  LEFT JOIN dbo.GoodDetails p2 ON p2.Kala = g.Code AND p2.Position = 2
  LEFT JOIN dbo.DetailTypes t2 ON t2.ID = p2.DetailID
  LEFT JOIN dbo.GoodDetails p3 ON p3.Kala = g.Code AND p3.Position = 3
  LEFT JOIN dbo.DetailTypes t3 ON t3.ID = p3.DetailID
  LEFT JOIN dbo.GoodDetails p4 ON p4.Kala = g.Code AND p4.Position = 4
  LEFT JOIN dbo.DetailTypes t4 ON t4.ID = p4.DetailID
  LEFT JOIN dbo.GoodDetails p5 ON p5.Kala = g.Code AND p5.Position = 5
  LEFT JOIN dbo.DetailTypes t5 ON t5.ID = p5.DetailID
  LEFT JOIN dbo.Kardex k ON k.Kala = d.Kala AND k.Date = d.Date AND k.Radif = d.Radif
  LEFT JOIN dbo.Stores s ON s.Code = d.Anbar
  LEFT JOIN dbo.Persons p ON p.Code = d.Percode
  WHERE (@GoodCode IS NULL OR g.Code = @GoodCode)
    AND (@FromGoodCode IS NULL OR g.Code >= @FromGoodCode)
    AND (@ToGoodCode IS NULL OR g.Code <= @ToGoodCode)
    AND (@GoodGroupCode IS NULL OR g.GrpCode = @GoodGroupCode)
    AND (@tagsAsked = 0 OR dbo.SharesCode(g.Tags, @GoodTags) = 1)
    AND (@GoodCategoryCode IS NULL OR EXISTS (SELECT 1 FROM #below b WHERE CHARINDEX(N',' + CONVERT(nvarchar(20), b.Code) + N',', g.category_code) > 0))
    AND (@GoodSelectedListCode IS NULL
         OR CASE WHEN g.Code IN (SELECT l.Kala FROM dbo.SelectedListGoods l WHERE l.ListCode = @GoodSelectedListCode) THEN 1 ELSE 0 END
            = CASE WHEN ISNULL(@GoodSelectedListNot, 0) = 0 THEN 1 ELSE 0 END)
    AND (@DetailID1 IS NULL OR dbo.DetailBetween(@type1,
             CASE @DetailID1 WHEN p1.DetailID THEN v.D1Value WHEN p2.DetailID THEN v.D2Value WHEN p3.DetailID THEN v.D3Value
             WHEN p4.DetailID THEN v.D4Value WHEN p5.DetailID THEN v.D5Value END,
             @Detail1Value1, @Detail1Value2) = 1)
    AND (@DetailID2 IS NULL OR dbo.DetailBetween(@type2,
             CASE @DetailID2 WHEN p1.DetailID THEN v.D1Value WHEN p2.DetailID THEN v.D2Value WHEN p3.DetailID THEN v.D3Value
             WHEN p4.DetailID THEN v.D4Value WHEN p5.DetailID THEN v.D5Value END,
             @Detail2Value1, @Detail2Value2) = 1)
    AND (@DetailID3 IS NULL OR dbo.DetailBetween(@type3,
             CASE @DetailID3 WHEN p1.DetailID THEN v.D1Value WHEN p2.DetailID THEN v.D2Value WHEN p3.DetailID THEN v.D3Value
             WHEN p4.DetailID THEN v.D4Value WHEN p5.DetailID THEN v.D5Value END,
             @Detail3Value1, @Detail3Value2) = 1)
    AND (@DetailID4 IS NULL OR dbo.DetailBetween(@type4,
             CASE @DetailID4 WHEN p1.DetailID THEN v.D1Value WHEN p2.DetailID THEN v.D2Value WHEN p3.DetailID THEN v.D3Value
             WHEN p4.DetailID THEN v.D4Value WHEN p5.DetailID THEN v.D5Value END,
             @Detail4Value1, @Detail4Value2) = 1)
    AND (@DetailID5 IS NULL OR dbo.DetailBetween(@type5,
             CASE @DetailID5 WHEN p1.DetailID THEN v.D1Value WHEN p2.DetailID THEN v.D2Value WHEN p3.DetailID THEN v.D3Value
             WHEN p4.DetailID THEN v.D4Value WHEN p5.DetailID THEN v.D5Value END,
             @Detail5Value1, @Detail5Value2) = 1)
    AND (@Anbar IS NULL OR d.Anbar = @Anbar)
    AND (@FromAnbar IS NULL OR d.Anbar >= @FromAnbar)
    AND (@ToAnbar IS NULL OR d.Anbar <= @ToAnbar)
    AND (@FromDate IS NULL OR d.Date >= @FromDate)
    AND (@ToDate IS NULL OR d.Date <= @ToDate)
    AND (@titleAsked <> 1 OR g.Code = @number)
    AND (@titleAsked <> 2 OR dbo.Holds(n.Name, @part) = 1)
    AND (@titleAsked <> 3 OR d.Anbar IN (SELECT sn.Code FROM dbo.SearchNames sn WHERE sn.Kind = 1 AND dbo.Holds(sn.Name, @part) = 1))
    AND (@titleAsked <> 4 OR dbo.Holds(dbo.FoldPersian(dbo.DetailJoined(dbo.DetailJoined(dbo.DetailJoined(dbo.DetailJoined(dbo.DetailJoined(N'', t1.Title, v.D1Value), t2.Title, v.D2Value), t3.Title, v.D3Value), t4.Title, v.D4Value), t5.Title, v.D5Value)), @part) = 1)
    AND (@FromGoodGroupCode IS NULL OR g.GrpCode >= @FromGoodGroupCode)
    AND (@ToGoodGroupCode IS NULL OR g.GrpCode <= @ToGoodGroupCode)
    AND (@OperationType IS NULL OR d.Type = @OperationType)
    AND (@titleAsked <> 5 OR d.Percode IN (SELECT pn.Code FROM dbo.SearchNames pn WHERE pn.Kind = 2 AND dbo.Holds(pn.Name, @part) = 1))
    AND (@titleAsked <> 6 OR dbo.Holds(ISNULL(d.CommentSearch, N''), @part) = 1)
    AND (@titleAsked <> 7 OR CASE WHEN d.Amount1 > 0 THEN d.Amount1 ELSE 0 END = @number)
    AND (@titleAsked <> 8 OR CASE WHEN d.Amount1 < 0 THEN -d.Amount1 ELSE 0 END = @number)
    AND (@titleAsked <> 9 OR k.Fi = @number)
    AND (@titleAsked <> 10 OR CAST(ABS(d.Amount1) * k.Fi AS decimal(38,9)) = @number)
  ORDER BY g.Code, d.Date, d.Radif, d.DetailValueID
  OPTION (RECOMPILE);
END
GO
