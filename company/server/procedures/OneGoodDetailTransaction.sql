-- The movements of one good at one combination of detail values, by date and row number. @TitleID says which column @Title
-- searches; numbers are compared without their signs, as the window shows quantities without.
CREATE PROCEDURE dbo.OneGoodDetailTransaction
  @GoodCode bigint = NULL,
  @DetailValueID bigint = NULL,
  @TitleID bigint = NULL,
  @Title nvarchar(4000) = NULL,
  @PerCode bigint = NULL,
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
  DECLARE @number decimal(38,9) = ABS(dbo.NumberIn(@Title));
  SELECT d.Date, d.Anbar, s.Name AS AnbarName, p.Name AS fullname, d.Comment, d.Length, d.Width, d.Amount3, d.Amount1,
         d.Amount2, k.Fi AS KardexAmount, CAST(d.Amount1 * k.Fi AS decimal(38,9)) AS TotalAmount,
         d.Type AS OperationType, d.OperationCode
  FROM dbo.DetailKardex d
  LEFT JOIN dbo.Kardex k ON k.Kala = d.Kala AND k.Date = d.Date AND k.Radif = d.Radif
  LEFT JOIN dbo.Stores s ON s.Code = d.Anbar
  LEFT JOIN dbo.Persons p ON p.Code = d.Percode
  WHERE (@GoodCode IS NULL OR d.Kala = @GoodCode)
    AND (@DetailValueID IS NULL OR d.DetailValueID = @DetailValueID)
    AND (@PerCode IS NULL OR d.Percode = @PerCode)
    AND (@Anbar IS NULL OR d.Anbar = @Anbar)
    AND (@FromDate IS NULL OR d.Date >= @FromDate)
    AND (@ToDate IS NULL OR d.Date <= @ToDate)
    AND (@titleAsked <> 1 OR d.Percode IN (SELECT n.Code FROM dbo.SearchNames n
                                           WHERE n.Kind = 2 AND dbo.Holds(n.Name, @part) = 1))
    AND (@titleAsked <> 2 OR dbo.Holds(ISNULL(d.CommentSearch, N''), @part) = 1)
    AND (@titleAsked <> 3 OR ABS(d.Amount1) = @number)
    AND (@titleAsked <> 4 OR ABS(d.Amount2) = @number)
    AND (@titleAsked <> 5 OR ABS(d.Length) = @number)
    AND (@titleAsked <> 6 OR ABS(d.Width) = @number)
    AND (@titleAsked <> 7 OR ABS(d.Amount3) = @number)
    AND (@titleAsked <> 8 OR ABS(k.Fi) = @number)
    AND (@titleAsked <> 9 OR CAST(ABS(d.Amount1) * k.Fi AS decimal(38,9)) = @number)
  ORDER BY d.Date, d.Radif, d.Kala, d.DetailValueID
  OPTION (RECOMPILE);
END
GO
