-- What came in and went out in a period, by operation: amounts: quantity times what one unit cost. One row a good that meets
-- the search and has movements in the period or, where it is asked for, a stock before it; by code. The direction is that of
-- the quantity; a type that goes the other way, or is unknown, is one of the others of its direction. A column that a mask
-- hides is 0, and what it would show is among the others.
CREATE PROCEDURE dbo.GoodKardex_Overall_Money
  @KalaCode nvarchar(4000) = N'',
  @KalaName nvarchar(4000) = N'',
  @AbbName nvarchar(4000) = N'',
  @anbarcode bigint = 0,
  @FromDate nvarchar(4000) = N'0000/00/00',
  @ToDate nvarchar(4000) = N'9999/99/99',
  @Reverst bigint = 0,
  @CalcBeforeDatePeriod bigint = 0,
  @script_Sadere_sayer bigint = 0,
  @script_Varede_sayer bigint = 0 AS
BEGIN
  SET NOCOUNT ON;
  DECLARE @code bigint = dbo.CodeIn(@KalaCode);
  DECLARE @codeAsked int = CASE WHEN ISNULL(DATALENGTH(@KalaCode), 0) = 0 THEN 0 ELSE 1 END;
  DECLARE @nameAsked int = CASE WHEN ISNULL(DATALENGTH(@KalaName), 0) = 0 THEN 0 ELSE 1 END;
  DECLARE @abbAsked int = CASE WHEN ISNULL(DATALENGTH(@AbbName), 0) = 0 THEN 0 ELSE 1 END;
  DECLARE @namePart nvarchar(4000) = dbo.FoldPersian(@KalaName);
  DECLARE @abbPart nvarchar(4000) = dbo.FoldPersian(@AbbName);
  DECLARE @from nvarchar(40) = CASE WHEN ISNULL(@FromDate, N'') IN (N'', N'0000/00/00') THEN NULL ELSE @FromDate END;
  DECLARE @to nvarchar(40) = CASE WHEN ISNULL(@ToDate, N'') IN (N'', N'9', N'9999/99/99') THEN NULL ELSE @ToDate END;
  DECLARE @store bigint = ISNULL(@anbarcode, 0);
  SELECT g.Code AS KalaCode, g.AbbName AS AbbName1, g.Name AS kalaname, @store AS Anbar,
         CAST(m.Before AS decimal(38,9)) AS sarjame_GhableDore,
         CAST(CASE WHEN @script_Varede_sayer & 32 <> 0 THEN 0 ELSE m.YearStart END AS decimal(38,9)) AS YearStart,
         CAST(CASE WHEN @script_Varede_sayer & 1 <> 0 THEN 0 ELSE m.Buy END AS decimal(38,9)) AS Buy,
         CAST(CASE WHEN @script_Varede_sayer & 2 <> 0 THEN 0 ELSE m.ReturnSell END AS decimal(38,9)) AS ReturnSell,
         CAST(CASE WHEN @script_Varede_sayer & 4 <> 0 THEN 0 ELSE m.MakeInput END AS decimal(38,9)) AS MakeInput,
         CAST(CASE WHEN @script_Varede_sayer & 8 <> 0 THEN 0 ELSE m.Resid END AS decimal(38,9)) AS Resid,
         CAST(CASE WHEN @script_Varede_sayer & 16 <> 0 THEN 0 ELSE m.kala_Daramad END AS decimal(38,9)) AS kala_Daramad,
         CAST(m.sayer_varade + CASE WHEN @script_Varede_sayer & 32 <> 0 THEN m.YearStart ELSE 0 END
              + CASE WHEN @script_Varede_sayer & 1 <> 0 THEN m.Buy ELSE 0 END
              + CASE WHEN @script_Varede_sayer & 2 <> 0 THEN m.ReturnSell ELSE 0 END
              + CASE WHEN @script_Varede_sayer & 4 <> 0 THEN m.MakeInput ELSE 0 END
              + CASE WHEN @script_Varede_sayer & 8 <> 0 THEN m.Resid ELSE 0 END
              + CASE WHEN @script_Varede_sayer & 16 <> 0 THEN m.kala_Daramad ELSE 0 END AS decimal(38,9)) AS sayer_varade,
         CAST(CASE WHEN @script_Sadere_sayer & 1 <> 0 THEN 0 ELSE m.Sell END AS decimal(38,9)) AS Sell,
         CAST(CASE WHEN @script_Sadere_sayer & 2 <> 0 THEN 0 ELSE m.ReturnBuy END AS decimal(38,9)) AS ReturnBuy,
         CAST(CASE WHEN @script_Sadere_sayer & 4 <> 0 THEN 0 ELSE m.MakeOutPut END AS decimal(38,9)) AS MakeOutPut,
         CAST(CASE WHEN @script_Sadere_sayer & 8 <> 0 THEN 0 ELSE m.Havale END AS decimal(38,9)) AS Havale,
         CAST(CASE WHEN @script_Sadere_sayer & 16 <> 0 THEN 0 ELSE m.kala_Hazine END AS decimal(38,9)) AS kala_Hazine,
         CAST(m.sayer_sadere + CASE WHEN @script_Sadere_sayer & 1 <> 0 THEN m.Sell ELSE 0 END
              + CASE WHEN @script_Sadere_sayer & 2 <> 0 THEN m.ReturnBuy ELSE 0 END
              + CASE WHEN @script_Sadere_sayer & 4 <> 0 THEN m.MakeOutPut ELSE 0 END
              + CASE WHEN @script_Sadere_sayer & 8 <> 0 THEN m.Havale ELSE 0 END
              + CASE WHEN @script_Sadere_sayer & 16 <> 0 THEN m.kala_Hazine ELSE 0 END AS decimal(38,9)) AS sayer_sadere,
         CAST(m.Before + m.YearStart + m.Buy + m.ReturnSell + m.MakeInput + m.Resid + m.kala_Daramad + m.sayer_varade
              - m.Sell - m.ReturnBuy - m.MakeOutPut - m.Havale - m.kala_Hazine - m.sayer_sadere AS decimal(38,9)) AS Remained
  FROM dbo.GoodInf g
  JOIN dbo.SearchNames n ON n.Kind = 6 AND n.Code = g.Code
  -- One sum an operation first, then its place in the row: a sum of its own for each column would be worked out for each movement.
  JOIN (SELECT t.Kala, MAX(CASE WHEN t.Slot > 0 THEN 1 ELSE 0 END) AS Moved,
               ISNULL(MAX(CASE WHEN t.Slot = 0 THEN t.Amount END), 0) AS Before,
               ISNULL(MAX(CASE WHEN t.Slot = 1 THEN t.Amount END), 0) AS YearStart,
               ISNULL(MAX(CASE WHEN t.Slot = 2 THEN t.Amount END), 0) AS Buy,
               ISNULL(MAX(CASE WHEN t.Slot = 3 THEN t.Amount END), 0) AS ReturnSell,
               ISNULL(MAX(CASE WHEN t.Slot = 4 THEN t.Amount END), 0) AS MakeInput,
               ISNULL(MAX(CASE WHEN t.Slot = 5 THEN t.Amount END), 0) AS Resid,
               ISNULL(MAX(CASE WHEN t.Slot = 6 THEN t.Amount END), 0) AS kala_Daramad,
               ISNULL(MAX(CASE WHEN t.Slot = 7 THEN t.Amount END), 0) AS sayer_varade,
               ISNULL(MAX(CASE WHEN t.Slot = 8 THEN -t.Amount END), 0) AS Sell,
               ISNULL(MAX(CASE WHEN t.Slot = 9 THEN -t.Amount END), 0) AS ReturnBuy,
               ISNULL(MAX(CASE WHEN t.Slot = 10 THEN -t.Amount END), 0) AS MakeOutPut,
               ISNULL(MAX(CASE WHEN t.Slot = 11 THEN -t.Amount END), 0) AS Havale,
               ISNULL(MAX(CASE WHEN t.Slot = 12 THEN -t.Amount END), 0) AS kala_Hazine,
               ISNULL(MAX(CASE WHEN t.Slot = 13 THEN -t.Amount END), 0) AS sayer_sadere
        FROM (SELECT w.Kala, w.Slot, SUM(w.Amount) AS Amount
              FROM (SELECT k.Kala, CAST(k.Tedad * k.Gheymat AS decimal(38,9)) AS Amount,
                           CASE WHEN k.Date < @from THEN 0
                                WHEN k.Tedad > 0 THEN
                                  CASE WHEN k.Type = 3 THEN 1 WHEN k.Type = 2 THEN 2 WHEN k.Type = 4 THEN 3
                                       WHEN k.Type IN (0, 8, 18, 20) THEN 4 WHEN k.Type IN (7, 22) THEN 5
                                       WHEN k.Type = 23 THEN 6 ELSE 7 END
                                WHEN k.Type IN (1, 12, 13) THEN 8 WHEN k.Type = 5 THEN 9 WHEN k.Type IN (9, 10, 19) THEN 10
                                WHEN k.Type IN (6, 21) THEN 11 WHEN k.Type = 11 THEN 12 ELSE 13 END AS Slot
                    FROM dbo.Kardex k
                    WHERE (@store = 0 OR k.Anbar = @store)
                      AND ((@from IS NULL OR k.Date >= @from) AND (@to IS NULL OR k.Date <= @to)
                           OR @from IS NOT NULL AND k.Date < @from AND ISNULL(@CalcBeforeDatePeriod, 0) <> 0)) w
              GROUP BY w.Kala, w.Slot) t
        GROUP BY t.Kala) m ON m.Kala = g.Code
  WHERE (m.Moved > 0 OR m.Before <> 0)
    AND (@codeAsked + @nameAsked + @abbAsked = 0
         OR CASE WHEN (@codeAsked = 0 OR g.Code = @code) AND (@nameAsked = 0 OR dbo.Holds(n.Name, @namePart) = 1)
                      AND (@abbAsked = 0 OR dbo.Holds(n.Abb, @abbPart) = 1) THEN 1 ELSE 0 END
            = CASE WHEN ISNULL(@Reverst, 0) = 0 THEN 1 ELSE 0 END)
  ORDER BY g.Code
  OPTION (RECOMPILE);
END
GO
