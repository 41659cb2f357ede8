-- The rows that drive a good's stock in a store below zero: outgoing rows after which the store holds less than nothing of
-- the good. The remainder runs over every row of the good in the store; of the rows found, those from @First to @Second
-- (empty or null: open) are shown that meet the criteria of srKardex.
CREATE PROCEDURE dbo.srKardex_Negative
  @Reserved nvarchar(4000) = N'',
  @First nvarchar(4000) = N'',
  @Second nvarchar(4000) = N'',
  @Comment nvarchar(4000) = NULL,
  @NotComment bigint = 0,
  @KalaName nvarchar(4000) = NULL,
  @NotKalaName bigint = 0,
  @PerName nvarchar(4000) = NULL,
  @NotPerName bigint = 0,
  @AnbarName nvarchar(4000) = NULL,
  @NotAnbarName bigint = 0,
  @FromCode bigint = NULL,
  @ToCode bigint = NULL,
  @NotRangeCode bigint = 0,
  @FromDate nvarchar(4000) = NULL,
  @ToDate nvarchar(4000) = NULL,
  @NotRangeDate bigint = 0,
  @FromVarede decimal(38,9) = NULL,
  @ToVarede decimal(38,9) = NULL,
  @NotRangeVarede bigint = 0,
  @FromSadere decimal(38,9) = NULL,
  @ToSadere decimal(38,9) = NULL,
  @NotRangeSadere bigint = 0,
  @FromMab_Varede decimal(38,9) = NULL,
  @ToMab_Varede decimal(38,9) = NULL,
  @NotRangeMab_Varede bigint = 0,
  @FromMab_Sadere decimal(38,9) = NULL,
  @ToMab_Sadere decimal(38,9) = NULL,
  @NotRangeMab_Sadere bigint = 0,
  @FromGheymat_Varede decimal(38,9) = NULL,
  @ToGheymat_Varede decimal(38,9) = NULL,
  @NotRangeGheymat_Varede bigint = 0,
  @FromGheymat_Sadere decimal(38,9) = NULL,
  @ToGheymat_Sadere decimal(38,9) = NULL,
  @NotRangeGheymat_Sadere bigint = 0 AS
BEGIN
  SET NOCOUNT ON;
  -- An empty date is an open end.
  IF LTRIM(@FromDate) = N'' SET @FromDate = NULL;
  IF LTRIM(@ToDate) = N'' SET @ToDate = NULL;
  DECLARE @CommentPart nvarchar(4000) = dbo.FoldPersian(@Comment);
  DECLARE @KalaNamePart nvarchar(4000) = dbo.FoldPersian(@KalaName);
  DECLARE @PerNamePart nvarchar(4000) = dbo.FoldPersian(@PerName);
  DECLARE @AnbarNamePart nvarchar(4000) = dbo.FoldPersian(@AnbarName);
  SELECT k.Date, k.Kala AS Code, g.AbbName, p.Name AS PerName, g.Name AS KalaName, s.Name AS AnbarName, k.Comment,
         CASE WHEN k.Tedad > 0 THEN k.Tedad ELSE 0 END AS Varede,
         CASE WHEN k.Tedad < 0 THEN -k.Tedad ELSE 0 END AS Sadere,
         CASE WHEN k.Tedad > 0 THEN k.Gheymat ELSE 0 END AS Mab_Varede,
         CASE WHEN k.Tedad < 0 THEN k.Gheymat ELSE 0 END AS Mab_Sadere,
         CASE WHEN k.Tedad > 0 THEN CAST(k.Tedad * k.Gheymat AS decimal(38,9)) ELSE 0 END AS Gheymat_Varede,
         CASE WHEN k.Tedad < 0 THEN CAST(-k.Tedad * k.Gheymat AS decimal(38,9)) ELSE 0 END AS Gheymat_Sadere,
         k.Type, k.OperationCode, u.Name AS UnitName
  FROM (SELECT c.Kala, c.Date, c.Radif, c.Anbar, c.Percode, c.Tedad, c.Gheymat, c.Comment, c.CommentSearch, c.Type, c.OperationCode,
               SUM(c.Tedad) OVER (PARTITION BY c.Kala, c.Anbar ORDER BY c.Date, c.Radif ROWS UNBOUNDED PRECEDING) AS Remains
        FROM dbo.Kardex c) k
  LEFT JOIN dbo.GoodInf g ON g.Code = k.Kala
  LEFT JOIN dbo.Stores s ON s.Code = k.Anbar
  LEFT JOIN dbo.Persons p ON p.Code = k.Percode
  LEFT JOIN dbo.Units u ON u.Code = g.Unit
  WHERE k.Tedad < 0 AND k.Remains < 0
    AND (ISNULL(@First, N'') = N'' OR k.Date >= @First)
    AND (ISNULL(@Second, N'') = N'' OR k.Date <= @Second)
    AND (@Comment IS NULL OR CASE WHEN dbo.Holds(CASE WHEN DATALENGTH(k.Comment) = 0 THEN N'' ELSE k.CommentSearch END, @CommentPart) = 1 THEN 1 ELSE 0 END
           = CASE WHEN @NotComment = 1 THEN 0 ELSE 1 END)
    AND (@KalaName IS NULL OR CASE WHEN k.Kala IN (SELECT n.Code FROM dbo.SearchNames n WHERE n.Kind = 6 AND dbo.Holds(n.Name, @KalaNamePart) = 1) THEN 1 ELSE 0 END
           = CASE WHEN @NotKalaName = 1 THEN 0 ELSE 1 END)
    AND (@PerName IS NULL OR CASE WHEN k.Percode IN (SELECT n.Code FROM dbo.SearchNames n WHERE n.Kind = 2 AND dbo.Holds(n.Name, @PerNamePart) = 1) THEN 1 ELSE 0 END
           = CASE WHEN @NotPerName = 1 THEN 0 ELSE 1 END)
    AND (@AnbarName IS NULL OR CASE WHEN k.Anbar IN (SELECT n.Code FROM dbo.SearchNames n WHERE n.Kind = 1 AND dbo.Holds(n.Name, @AnbarNamePart) = 1) THEN 1 ELSE 0 END
           = CASE WHEN @NotAnbarName = 1 THEN 0 ELSE 1 END)
    AND (@FromCode IS NULL AND @ToCode IS NULL OR CASE WHEN (@FromCode IS NULL OR k.Kala >= @FromCode) AND (@ToCode IS NULL OR k.Kala <= @ToCode) THEN 1 ELSE 0 END
           = CASE WHEN @NotRangeCode = 1 THEN 0 ELSE 1 END)
    AND (@FromDate IS NULL AND @ToDate IS NULL OR CASE WHEN (@FromDate IS NULL OR k.Date >= @FromDate) AND (@ToDate IS NULL OR k.Date <= @ToDate) THEN 1 ELSE 0 END
           = CASE WHEN @NotRangeDate = 1 THEN 0 ELSE 1 END)
    AND (@FromVarede IS NULL AND @ToVarede IS NULL OR CASE WHEN (@FromVarede IS NULL OR CASE WHEN k.Tedad > 0 THEN k.Tedad ELSE 0 END >= @FromVarede) AND (@ToVarede IS NULL OR CASE WHEN k.Tedad > 0 THEN k.Tedad ELSE 0 END <= @ToVarede) THEN 1 ELSE 0 END
           = CASE WHEN @NotRangeVarede = 1 THEN 0 ELSE 1 END)
    AND (@FromSadere IS NULL AND @ToSadere IS NULL OR CASE WHEN (@FromSadere IS NULL OR CASE WHEN k.Tedad < 0 THEN -k.Tedad ELSE 0 END >= @FromSadere) AND (@ToSadere IS NULL OR CASE WHEN k.Tedad < 0 THEN -k.Tedad ELSE 0 END <= @ToSadere) THEN 1 ELSE 0 END
           = CASE WHEN @NotRangeSadere = 1 THEN 0 ELSE 1 END)
    AND (@FromMab_Varede IS NULL AND @ToMab_Varede IS NULL OR CASE WHEN (@FromMab_Varede IS NULL OR CASE WHEN k.Tedad > 0 THEN k.Gheymat ELSE 0 END >= @FromMab_Varede) AND (@ToMab_Varede IS NULL OR CASE WHEN k.Tedad > 0 THEN k.Gheymat ELSE 0 END <= @ToMab_Varede) THEN 1 ELSE 0 END
           = CASE WHEN @NotRangeMab_Varede = 1 THEN 0 ELSE 1 END)
    AND (@FromMab_Sadere IS NULL AND @ToMab_Sadere IS NULL OR CASE WHEN (@FromMab_Sadere IS NULL OR CASE WHEN k.Tedad < 0 THEN k.Gheymat ELSE 0 END >= @FromMab_Sadere) AND (@ToMab_Sadere IS NULL OR CASE WHEN k.Tedad < 0 THEN k.Gheymat ELSE 0 END <= @ToMab_Sadere) THEN 1 ELSE 0 END
           = CASE WHEN @NotRangeMab_Sadere = 1 THEN 0 ELSE 1 END)
    AND (@FromGheymat_Varede IS NULL AND @ToGheymat_Varede IS NULL OR CASE WHEN (@FromGheymat_Varede IS NULL OR CASE WHEN k.Tedad > 0 THEN CAST(k.Tedad * k.Gheymat AS decimal(38,9)) ELSE 0 END >= @FromGheymat_Varede) AND (@ToGheymat_Varede IS NULL OR CASE WHEN k.Tedad > 0 THEN CAST(k.Tedad * k.Gheymat AS decimal(38,9)) ELSE 0 END <= @ToGheymat_Varede) THEN 1 ELSE 0 END
           = CASE WHEN @NotRangeGheymat_Varede = 1 THEN 0 ELSE 1 END)
    AND (@FromGheymat_Sadere IS NULL AND @ToGheymat_Sadere IS NULL OR CASE WHEN (@FromGheymat_Sadere IS NULL OR CASE WHEN k.Tedad < 0 THEN CAST(-k.Tedad * k.Gheymat AS decimal(38,9)) ELSE 0 END >= @FromGheymat_Sadere) AND (@ToGheymat_Sadere IS NULL OR CASE WHEN k.Tedad < 0 THEN CAST(-k.Tedad * k.Gheymat AS decimal(38,9)) ELSE 0 END <= @ToGheymat_Sadere) THEN 1 ELSE 0 END
           = CASE WHEN @NotRangeGheymat_Sadere = 1 THEN 0 ELSE 1 END)
  ORDER BY k.Kala, k.Date, k.Radif
  OPTION (RECOMPILE);
END
GO
