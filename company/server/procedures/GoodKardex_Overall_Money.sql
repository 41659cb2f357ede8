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
  JOIN (SELECT k.Kala, SUM(CASE WHEN k.Inside = 1 THEN 1 ELSE 0 END) AS Moved,
               SUM(CASE WHEN k.Inside = 0 THEN k.Amount ELSE 0 END) AS Before,
               SUM(CASE WHEN k.Tedad > 0 AND k.Type IN (3) THEN k.Figure ELSE 0 END) AS YearStart,
               SUM(CASE WHEN k.Tedad > 0 AND k.Type IN (2) THEN k.Figure ELSE 0 END) AS Buy,
               SUM(CASE WHEN k.Tedad > 0 AND k.Type IN (4) THEN k.Figure ELSE 0 END) AS ReturnSell,
               SUM(CASE WHEN k.Tedad > 0 AND k.Type IN (0, 8, 18, 20) THEN k.Figure ELSE 0 END) AS MakeInput,
               SUM(CASE WHEN k.Tedad > 0 AND k.Type IN (7, 22) THEN k.Figure ELSE 0 END) AS Resid,
               SUM(CASE WHEN k.Tedad > 0 AND k.Type IN (23) THEN k.Figure ELSE 0 END) AS kala_Daramad,
               SUM(CASE WHEN k.Tedad > 0 AND k.Type NOT IN (3, 2, 4, 0, 8, 18, 20, 7, 22, 23) THEN k.Figure ELSE 0 END) AS sayer_varade,
               SUM(CASE WHEN k.Tedad <= 0 AND k.Type IN (1, 12, 13) THEN -k.Figure ELSE 0 END) AS Sell,
               SUM(CASE WHEN k.Tedad <= 0 AND k.Type IN (5) THEN -k.Figure ELSE 0 END) AS ReturnBuy,
               SUM(CASE WHEN k.Tedad <= 0 AND k.Type IN (9, 10, 19) THEN -k.Figure ELSE 0 END) AS MakeOutPut,
               SUM(CASE WHEN k.Tedad <= 0 AND k.Type IN (6, 21) THEN -k.Figure ELSE 0 END) AS Havale,
               SUM(CASE WHEN k.Tedad <= 0 AND k.Type IN (11) THEN -k.Figure ELSE 0 END) AS kala_Hazine,
               SUM(CASE WHEN k.Tedad <= 0 AND k.Type NOT IN (1, 12, 13, 5, 9, 10, 19, 6, 21, 11) THEN -k.Figure ELSE 0 END) AS sayer_sadere
        FROM (SELECT w.Kala, w.Tedad, w.Type, w.Inside, w.Amount, CASE WHEN w.Inside = 1 THEN w.Amount ELSE 0 END AS Figure
              FROM (SELECT k.Kala, k.Tedad, k.Type, CAST(k.Tedad * k.Gheymat AS decimal(38,9)) AS Amount,
                           CASE WHEN @from IS NULL OR k.Date >= @from THEN 1 ELSE 0 END AS Inside
                    FROM dbo.Kardex k
                    WHERE (@store = 0 OR k.Anbar = @store)
                      AND ((@from IS NULL OR k.Date >= @from) AND (@to IS NULL OR k.Date <= @to)
                           OR @from IS NOT NULL AND k.Date < @from AND ISNULL(@CalcBeforeDatePeriod, 0) <> 0)) w) k
        GROUP BY k.Kala) m ON m.Kala = g.Code
  WHERE (m.Moved > 0 OR m.Before <> 0)
    AND (@codeAsked + @nameAsked + @abbAsked = 0
         OR CASE WHEN (@codeAsked = 0 OR g.Code = @code) AND (@nameAsked = 0 OR dbo.Holds(n.Name, @namePart) = 1)
                      AND (@abbAsked = 0 OR dbo.Holds(n.Abb, @abbPart) = 1) THEN 1 ELSE 0 END
            = CASE WHEN ISNULL(@Reverst, 0) = 0 THEN 1 ELSE 0 END)
  ORDER BY g.Code
  OPTION (RECOMPILE);
END
GO
