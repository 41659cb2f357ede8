-- The stock of each good at each combination of detail values, and with @StoreSeparation 1 in each store: the sum of
-- the movements that meet the criteria; in the order of good and combination. A combination without such a
-- movement has no row, one whose movements cancel out has a row of 0.
-- @HaveAmount 1: one row, without Type. 0: one row for each movement kind, its code in Type. With stores
-- totalled Anbar is 0 and AnbarName empty, and criteria on stores tell which stores are added up.
--
-- @TitleID: which column @Title searches: 1 Code, 2 Name, 3 AnbarName, 4 DetailValues, 5 SumDetailKardex.
-- Texts hold @Title, as a Persian reader compares; codes and quantities equal it, and a text that is no number
-- equals none. Another @TitleID, or none, asks nothing.
-- parameter @StoreSeparation integer default 0
-- parameter @HaveAmount integer default 1
-- parameter @TitleID integer default null
-- parameter @Title text default null
-- divided by g.Code unless @GoodCode
-- include GoodDetailParameters
-- parameter @FromAnbar integer default null
-- parameter @ToAnbar integer default null
-- parameter @Anbar integer default null
-- parameter @FromDate date default null
-- parameter @ToDate date default null
-- column Anbar integer
-- column AnbarName text
-- column Code integer
-- column Name text
-- column DetailValues text
-- column D1Value text
-- column D2Value text
-- column D3Value text
-- column D4Value text
-- column D5Value text
-- column SumDetailKardex decimal
-- column UnitName text
-- column DetailValueID integer
-- column Type integer
-- column Kala integer
WITH m AS (
SELECT g.Code AS Kala, v.ID AS ID, dec_sum(d.Amount1) AS Amount,
       d.Type AS Type, -- when @HaveAmount = 0
       NULL AS Type, -- unless @HaveAmount = 0
       d.Anbar AS Anbar -- when @StoreSeparation = 1
       NULL AS Anbar -- unless @StoreSeparation = 1
FROM GoodInf g
LEFT JOIN GoodDetails p1 ON p1.Kala = g.Code AND p1.Position = 1 -- when byValue
LEFT JOIN GoodDetails p2 ON p2.Kala = g.Code AND p2.Position = 2 -- when byValue
LEFT JOIN GoodDetails p3 ON p3.Kala = g.Code AND p3.Position = 3 -- when byValue
LEFT JOIN GoodDetails p4 ON p4.Kala = g.Code AND p4.Position = 4 -- when byValue
LEFT JOIN GoodDetails p5 ON p5.Kala = g.Code AND p5.Position = 5 -- when byValue
LEFT JOIN DetailTypes t1 ON t1.ID = p1.DetailID -- when @TitleID = 4
LEFT JOIN DetailTypes t2 ON t2.ID = p2.DetailID -- when @TitleID = 4
LEFT JOIN DetailTypes t3 ON t3.ID = p3.DetailID -- when @TitleID = 4
LEFT JOIN DetailTypes t4 ON t4.ID = p4.DetailID -- when @TitleID = 4
LEFT JOIN DetailTypes t5 ON t5.ID = p5.DetailID -- when @TitleID = 4
CROSS JOIN DetailKardex d ON d.Kala = g.Code -- when @FromDate or @ToDate unless byValue
CROSS JOIN DetailValues v ON v.ID = d.DetailValueID -- when @FromDate or @ToDate unless byValue
CROSS JOIN DetailValues v ON v.Kala = g.Code -- when byValue
CROSS JOIN DetailKardex d INDEXED BY DetailKardex_ByValue ON d.DetailValueID = v.ID AND d.Kala = g.Code -- when byValue
CROSS JOIN DetailValues v ON v.Kala = g.Code -- unless @FromDate or @ToDate or byValue
CROSS JOIN DetailKardex d INDEXED BY DetailKardex_ByValue ON d.DetailValueID = v.ID AND d.Kala = g.Code -- unless @FromDate or @ToDate or byValue
WHERE TRUE
  AND {goods}
-- include GoodDetailCriteria
GROUP BY g.Code, v.ID
       , d.Anbar -- when @StoreSeparation = 1
       , d.Type -- when @HaveAmount = 0
HAVING dec_sum(d.Amount1) = dec_try(@Title) -- when @TitleID = 5
)
SELECT ifnull(m.Anbar, 0),
       ifnull(s.Name, ''),
       g.Code,
       g.Name,
       detail_text(t1.Title, v.D1Value, t2.Title, v.D2Value, t3.Title, v.D3Value, t4.Title, v.D4Value, t5.Title, v.D5Value),
       v.D1Value,
       v.D2Value,
       v.D3Value,
       v.D4Value,
       v.D5Value,
       m.Amount,
       u.Name,
       m.ID,
       m.Type,
       g.Code
FROM m
CROSS JOIN GoodInf g ON g.Code = m.Kala
CROSS JOIN DetailValues v ON v.ID = m.ID
LEFT JOIN Stores s ON s.Code = m.Anbar
LEFT JOIN Units u ON u.Code = g.Unit
-- include GoodDetailTitles
ORDER BY m.Kala, m.ID, m.Anbar, m.Type
