-- The goods with what came in, what went out and what is there, in the order of their codes. Without a period or a store the
-- figures are the stored ones; with a store those stored of it, or with @NotStoreCode 1 of all others; with a period (both
-- ends included, an empty one open) they are added up from its movements, and the average is that after the good's last
-- movement up to the period's end.
CREATE PROCEDURE dbo.GoodInf_sp
  @GrpCode bigint = 0,
  @GoodExistType bigint = 0,
  @Inlist bigint = 0,
  @invertList bigint = 0,
  @SelectedCode bigint = NULL,
  @EffectiveDate1 nvarchar(4000) = NULL,
  @EffectiveDate2 nvarchar(4000) = NULL,
  @StoreCode bigint = NULL,
  @NotStoreCode bigint = 0,
  @tags nvarchar(4000) = NULL,
  @Nottags bigint = 0,
  @category_code nvarchar(4000) = NULL,
  @Notcategory_code bigint = 0,
  @Code bigint = NULL,
  @NotCode bigint = 0,
  @Name nvarchar(4000) = NULL,
  @NotName bigint = 0,
  @AbbName nvarchar(4000) = NULL,
  @NotAbbName bigint = 0,
  @UnitName1 nvarchar(4000) = NULL,
  @NotUnitName1 bigint = 0,
  @UnitName2 nvarchar(4000) = NULL,
  @NotUnitName2 bigint = 0,
  @Varede decimal(38,9) = NULL,
  @NotVarede bigint = 0,
  @Sadere decimal(38,9) = NULL,
  @NotSadere bigint = 0,
  @Mogodi decimal(38,9) = NULL,
  @NotMogodi bigint = 0,
  @FromCode bigint = NULL,
  @ToCode bigint = NULL,
  @NotRangeCode bigint = 0,
  @FromMogodi decimal(38,9) = NULL,
  @ToMogodi decimal(38,9) = NULL,
  @NotRangeMogodi bigint = 0,
  @FromMogodi2 decimal(38,9) = NULL,
  @ToMogodi2 decimal(38,9) = NULL,
  @NotRangeMogodi2 bigint = 0,
  @Fromgheymat_miangin decimal(38,9) = NULL,
  @Togheymat_miangin decimal(38,9) = NULL,
  @NotRangegheymat_miangin bigint = 0,
  @FromJam_Kol decimal(38,9) = NULL,
  @ToJam_Kol decimal(38,9) = NULL,
  @NotRangeJam_Kol bigint = 0,
  @FromOperationDate nvarchar(4000) = NULL,
  @ToOperationDate nvarchar(4000) = NULL,
  @NotRangeOperationDate bigint = 0 AS
BEGIN
  SET NOCOUNT ON;
  -- An empty date is an open end.
  IF LTRIM(@FromOperationDate) = N'' SET @FromOperationDate = NULL;
  IF LTRIM(@ToOperationDate) = N'' SET @ToOperationDate = NULL;
  DECLARE @tagsAsked int = CASE WHEN REPLACE(REPLACE(ISNULL(@tags, N''), N',', N''), N' ', N'') = N'' THEN 0 ELSE 1 END;
  DECLARE @category_codeAsked int = CASE WHEN REPLACE(REPLACE(ISNULL(@category_code, N''), N',', N''), N' ', N'') = N'' THEN 0 ELSE 1 END;
  DECLARE @NamePart nvarchar(4000) = dbo.FoldPersian(@Name);
  DECLARE @AbbNamePart nvarchar(4000) = dbo.FoldPersian(@AbbName);
  DECLARE @UnitName1Part nvarchar(4000) = dbo.FoldPersian(@UnitName1);
  DECLARE @UnitName2Part nvarchar(4000) = dbo.FoldPersian(@UnitName2);
  DECLARE @period int = CASE WHEN @EffectiveDate1 IS NULL AND @EffectiveDate2 IS NULL THEN 0 ELSE 1 END;
  DECLARE @from nvarchar(40) = CASE WHEN ISNULL(@EffectiveDate1, N'') IN (N'', N'0000/00/00') THEN NULL ELSE @EffectiveDate1 END;
  DECLARE @to nvarchar(40) = CASE WHEN ISNULL(@EffectiveDate2, N'') IN (N'', N'9', N'9999/99/99') THEN NULL ELSE @EffectiveDate2 END;
  DECLARE @store bigint = ISNULL(@StoreCode, 0);
  DECLARE @others int = CASE WHEN @NotStoreCode = 1 THEN 1 ELSE 0 END;
  CREATE TABLE #figures(
    Kala bigint NOT NULL PRIMARY KEY, varede decimal(21,9) NOT NULL, sadere decimal(21,9) NOT NULL,
    Mogodi decimal(21,9) NOT NULL, gheymat_miangin decimal(25,9) NOT NULL,
    OperationDate nvarchar(10) COLLATE Latin1_General_BIN2 NOT NULL);
  IF @period = 0 AND @store = 0
    INSERT INTO #figures(Kala, varede, sadere, Mogodi, gheymat_miangin, OperationDate)
    SELECT Kala, varede, sadere, Mogodi, gheymat_miangin, OperationDate FROM dbo.GoodStock;
  IF @period = 0 AND @store <> 0
    INSERT INTO #figures(Kala, varede, sadere, Mogodi, gheymat_miangin, OperationDate)
    SELECT g.Code, ISNULL(m.varede, 0), ISNULL(m.sadere, 0), ISNULL(m.Mogodi, 0), ISNULL(s.gheymat_miangin, 0),
           ISNULL(m.OperationDate, N'')
    FROM dbo.GoodInf g
    LEFT JOIN dbo.GoodStock s ON s.Kala = g.Code
    LEFT JOIN (SELECT r.Kala, SUM(r.varede) AS varede, SUM(r.sadere) AS sadere, SUM(r.Mogodi) AS Mogodi,
                      MAX(r.OperationDate) AS OperationDate
               FROM dbo.GoodStoreStock r
               WHERE (@others = 0 AND r.Anbar = @store) OR (@others = 1 AND r.Anbar <> @store)
               GROUP BY r.Kala) m ON m.Kala = g.Code;
  IF @period = 1
    INSERT INTO #figures(Kala, varede, sadere, Mogodi, gheymat_miangin, OperationDate)
    SELECT g.Code, ISNULL(m.varede, 0), ISNULL(m.sadere, 0), ISNULL(m.Mogodi, 0),
           ISNULL((SELECT TOP 1 k.Miangin FROM dbo.Kardex k WHERE k.Kala = g.Code AND (@to IS NULL OR k.Date <= @to)
                   ORDER BY k.Date DESC, k.Radif DESC), 0),
           ISNULL(m.OperationDate, N'')
    FROM dbo.GoodInf g
    LEFT JOIN (SELECT r.Kala, SUM(CASE WHEN r.Tedad > 0 THEN r.Tedad ELSE 0 END) AS varede,
                      SUM(CASE WHEN r.Tedad < 0 THEN -r.Tedad ELSE 0 END) AS sadere, SUM(r.Tedad) AS Mogodi,
                      MAX(r.Date) AS OperationDate
               FROM dbo.Kardex r
               WHERE (@from IS NULL OR r.Date >= @from) AND (@to IS NULL OR r.Date <= @to)
                 AND (@store = 0 OR (@others = 0 AND r.Anbar = @store) OR (@others = 1 AND r.Anbar <> @store))
               GROUP BY r.Kala) m ON m.Kala = g.Code;
  -- Few texts of codes stand at many goods, so each is read once.
  CREATE TABLE #tags(
    Tags nvarchar(400) COLLATE Latin1_General_BIN2 NOT NULL, t1 bigint NULL, t2 bigint NULL, t3 bigint NULL, Shares int NOT NULL);
  INSERT INTO #tags(Tags, t1, t2, t3, Shares)
  SELECT d.Tags, dbo.CodeAt(d.Tags, 1), dbo.CodeAt(d.Tags, 2), dbo.CodeAt(d.Tags, 3),
         CASE WHEN @tagsAsked = 1 THEN dbo.SharesCode(d.Tags, @tags) ELSE 0 END
  FROM (SELECT DISTINCT Tags COLLATE Latin1_General_BIN2 AS Tags FROM dbo.GoodInf WHERE Tags <> N'') d;
  CREATE TABLE #categories(Codes nvarchar(400) COLLATE Latin1_General_BIN2 NOT NULL, Shares int NOT NULL);
  IF @category_codeAsked = 1
    INSERT INTO #categories(Codes, Shares)
    SELECT d.Codes, dbo.SharesCode(d.Codes, @category_code)
    FROM (SELECT DISTINCT category_code COLLATE Latin1_General_BIN2 AS Codes FROM dbo.GoodInf WHERE category_code <> N'') d;
  SELECT g.GrpCode, g.Code, g.Name, f.OperationDate, g.AbbName, g.Pos, g.Unit, g.AvaBgPrd, g.CostBgPrd, g.CurAva, g.Status,
         f.varede, f.sadere, f.gheymat_miangin, g.Unit2, g.AvaBgPrd2, f.Mogodi2, g.Meghdar2, g.kala_type, g.kala_index,
         g.kala_name, g.Meghdar_Formool, g.Store, g.SMSCode, u.Name AS UnitName1, u2.Name AS UnitName2,
         CAST(f.Mogodi * f.gheymat_miangin AS decimal(38,9)) AS Jam_Kol, g.Position, f.Joz, g.MinAva, f.Mogodi,
         CAST(f.Mogodi - g.MinAva AS decimal(38,9)) AS Mogodi_Ava_Diff,
         CAST(ISNULL(f.Mogodi * r.Stock, 0) AS decimal(38,9)) AS SumStock, ISNULL(r.Stock, 0) AS Stock, g.category_code,
         g.Tags, c1.ColorText AS t1, c2.ColorText AS t2, c3.ColorText AS t3
  FROM dbo.GoodInf g
  JOIN (SELECT x.*, CAST(CASE WHEN ISNULL(y.Meghdar_Formool, 0) = 0 THEN 0
                              ELSE (x.Mogodi - x.Mogodi % y.Meghdar_Formool) / y.Meghdar_Formool END AS decimal(38,9)) AS Mogodi2,
               CAST(CASE WHEN ISNULL(y.Meghdar_Formool, 0) = 0 THEN x.Mogodi
                         ELSE x.Mogodi % y.Meghdar_Formool END AS decimal(38,9)) AS Joz
        FROM #figures x JOIN dbo.GoodInf y ON y.Code = x.Kala) f ON f.Kala = g.Code
  JOIN dbo.SearchNames n ON n.Kind = 6 AND n.Code = g.Code
  LEFT JOIN dbo.Units u ON u.Code = g.Unit
  LEFT JOIN dbo.SearchNames nu ON nu.Kind = 18 AND nu.Code = g.Unit
  LEFT JOIN dbo.Units u2 ON u2.Code = g.Unit2
  LEFT JOIN dbo.SearchNames nu2 ON nu2.Kind = 18 AND nu2.Code = g.Unit2
  LEFT JOIN dbo.RialiStock r ON r.Kala = g.Code
  LEFT JOIN #tags t ON t.Tags = g.Tags COLLATE Latin1_General_BIN2
  LEFT JOIN #categories c ON c.Codes = g.category_code COLLATE Latin1_General_BIN2
  LEFT JOIN dbo.TagS t1 ON t1.Code = t.t1
  LEFT JOIN dbo.colors c1 ON c1.code = t1.color_code
  LEFT JOIN dbo.TagS t2 ON t2.Code = t.t2
  LEFT JOIN dbo.colors c2 ON c2.code = t2.color_code
  LEFT JOIN dbo.TagS t3 ON t3.Code = t.t3
  LEFT JOIN dbo.colors c3 ON c3.code = t3.color_code
  WHERE (ISNULL(@GrpCode, 0) = 0 OR g.GrpCode = @GrpCode)
    AND (@SelectedCode IS NULL OR ISNULL(@Inlist, 0) <> 1 OR @SelectedCode = 0
         OR CASE WHEN g.Code IN (SELECT l.Kala FROM dbo.SelectedListGoods l WHERE l.ListCode = @SelectedCode) THEN 1 ELSE 0 END
            = CASE WHEN @invertList = 1 THEN 0 ELSE 1 END)
    AND (ISNULL(@GoodExistType, 0) = 0 OR (@GoodExistType = 1 AND f.Mogodi > 0) OR (@GoodExistType = 2 AND f.Mogodi < 0)
         OR (@GoodExistType = 3 AND f.OperationDate = N'') OR (@GoodExistType = 4 AND f.Mogodi = 0)
         OR (@GoodExistType = 5 AND f.Mogodi < g.MinAva))
    AND (@tagsAsked = 0 OR CASE WHEN t.Shares = 1 THEN 1 ELSE 0 END
           = CASE WHEN @Nottags = 1 THEN 0 ELSE 1 END)
    AND (@category_codeAsked = 0 OR CASE WHEN c.Shares = 1 THEN 1 ELSE 0 END
           = CASE WHEN @Notcategory_code = 1 THEN 0 ELSE 1 END)
    AND (@Code IS NULL OR CASE WHEN g.Code = @Code THEN 1 ELSE 0 END
           = CASE WHEN @NotCode = 1 THEN 0 ELSE 1 END)
    AND (@Name IS NULL OR CASE WHEN dbo.Holds(n.Name, @NamePart) = 1 THEN 1 ELSE 0 END
           = CASE WHEN @NotName = 1 THEN 0 ELSE 1 END)
    AND (@AbbName IS NULL OR CASE WHEN dbo.Holds(n.Abb, @AbbNamePart) = 1 THEN 1 ELSE 0 END
           = CASE WHEN @NotAbbName = 1 THEN 0 ELSE 1 END)
    AND (@UnitName1 IS NULL OR CASE WHEN dbo.Holds(nu.Name, @UnitName1Part) = 1 THEN 1 ELSE 0 END
           = CASE WHEN @NotUnitName1 = 1 THEN 0 ELSE 1 END)
    AND (@UnitName2 IS NULL OR CASE WHEN dbo.Holds(nu2.Name, @UnitName2Part) = 1 THEN 1 ELSE 0 END
           = CASE WHEN @NotUnitName2 = 1 THEN 0 ELSE 1 END)
    AND (@Varede IS NULL OR CASE WHEN f.varede = @Varede THEN 1 ELSE 0 END
           = CASE WHEN @NotVarede = 1 THEN 0 ELSE 1 END)
    AND (@Sadere IS NULL OR CASE WHEN f.sadere = @Sadere THEN 1 ELSE 0 END
           = CASE WHEN @NotSadere = 1 THEN 0 ELSE 1 END)
    AND (@Mogodi IS NULL OR CASE WHEN f.Mogodi = @Mogodi THEN 1 ELSE 0 END
           = CASE WHEN @NotMogodi = 1 THEN 0 ELSE 1 END)
    AND (@FromCode IS NULL AND @ToCode IS NULL OR CASE WHEN (@FromCode IS NULL OR g.Code >= @FromCode) AND (@ToCode IS NULL OR g.Code <= @ToCode) THEN 1 ELSE 0 END
           = CASE WHEN @NotRangeCode = 1 THEN 0 ELSE 1 END)
    AND (@FromMogodi IS NULL AND @ToMogodi IS NULL OR CASE WHEN (@FromMogodi IS NULL OR f.Mogodi >= @FromMogodi) AND (@ToMogodi IS NULL OR f.Mogodi <= @ToMogodi) THEN 1 ELSE 0 END
           = CASE WHEN @NotRangeMogodi = 1 THEN 0 ELSE 1 END)
    AND (@FromMogodi2 IS NULL AND @ToMogodi2 IS NULL OR CASE WHEN (@FromMogodi2 IS NULL OR f.Mogodi2 >= @FromMogodi2) AND (@ToMogodi2 IS NULL OR f.Mogodi2 <= @ToMogodi2) THEN 1 ELSE 0 END
           = CASE WHEN @NotRangeMogodi2 = 1 THEN 0 ELSE 1 END)
    AND (@Fromgheymat_miangin IS NULL AND @Togheymat_miangin IS NULL OR CASE WHEN (@Fromgheymat_miangin IS NULL OR f.gheymat_miangin >= @Fromgheymat_miangin) AND (@Togheymat_miangin IS NULL OR f.gheymat_miangin <= @Togheymat_miangin) THEN 1 ELSE 0 END
           = CASE WHEN @NotRangegheymat_miangin = 1 THEN 0 ELSE 1 END)
    AND (@FromJam_Kol IS NULL AND @ToJam_Kol IS NULL OR CASE WHEN (@FromJam_Kol IS NULL OR CAST(f.Mogodi * f.gheymat_miangin AS decimal(38,9)) >= @FromJam_Kol) AND (@ToJam_Kol IS NULL OR CAST(f.Mogodi * f.gheymat_miangin AS decimal(38,9)) <= @ToJam_Kol) THEN 1 ELSE 0 END
           = CASE WHEN @NotRangeJam_Kol = 1 THEN 0 ELSE 1 END)
    AND (@FromOperationDate IS NULL AND @ToOperationDate IS NULL OR CASE WHEN (@FromOperationDate IS NULL OR NULLIF(f.OperationDate, N'') >= @FromOperationDate) AND (@ToOperationDate IS NULL OR NULLIF(f.OperationDate, N'') <= @ToOperationDate) THEN 1 ELSE 0 END
           = CASE WHEN @NotRangeOperationDate = 1 THEN 0 ELSE 1 END)
  ORDER BY g.Code
  OPTION (RECOMPILE);
END
GO
