-- The stock of each good at each combination of detail values, and with @StoreSeparation 1 in each store: the sum of
-- the movements that meet the criteria; in the order of good and combination. A combination without such a
-- movement has no row, one whose movements cancel out has a row of 0.
-- @HaveAmount 1: one row, without Type. 0: one row for each movement kind, its code in Type. With stores
-- totalled Anbar is 0 and AnbarName empty, and criteria on stores tell which stores are added up.
--
-- Criteria together leave what meets them all; null asks nothing, and ranges hold both ends. @DetailID1 to
-- @DetailID5 ask for a detail's value at the position where the good keeps that detail, between ...Value1 and
-- ...Value2 (detail_functions.h tells how values compare); a good that does not keep the detail has no such
-- value. @GoodTags: codes joined with ","; goods with any of them; without a code it asks nothing.
-- @GoodCategoryCode: goods of the category or of one below it. @GoodSelectedListNot other than 0: the goods that
-- are not on the list @GoodSelectedListCode.
-- @TitleID: which column @Title searches: 1 Code, 2 Name, 3 AnbarName, 4 DetailValues, 5 SumDetailKardex. Decided
-- here: texts hold @Title, as a Persian reader compares; codes and quantities equal it, and a text that is no
-- number equals none. Another @TitleID, or none, asks nothing.
-- parameter @StoreSeparation integer default 0
-- parameter @HaveAmount integer default 1
-- parameter @TitleID integer default null
-- parameter @Title text default null
-- parameter @DetailID1 integer default null
-- parameter @Detail1Value1 text default null
-- parameter @Detail1Value2 text default null
-- parameter @DetailID2 integer default null
-- parameter @Detail2Value1 text default null
-- parameter @Detail2Value2 text default null
-- parameter @DetailID3 integer default null
-- parameter @Detail3Value1 text default null
-- parameter @Detail3Value2 text default null
-- parameter @DetailID4 integer default null
-- parameter @Detail4Value1 text default null
-- parameter @Detail4Value2 text default null
-- parameter @DetailID5 integer default null
-- parameter @Detail5Value1 text default null
-- parameter @Detail5Value2 text default null
-- parameter @GoodTags text default null
-- parameter @GoodCategoryCode integer default null
-- parameter @GoodSelectedListCode integer default null
-- parameter @GoodSelectedListNot integer default 0
-- parameter @GoodCode integer default null
-- parameter @GoodGroupCode integer default null
-- parameter @FromGoodCode integer default null
-- parameter @ToGoodCode integer default null
-- parameter @FromAnbar integer default null
-- parameter @ToAnbar integer default null
-- parameter @Anbar integer default null
-- parameter @FromDate text default null
-- parameter @ToDate text default null
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
LEFT JOIN GoodDetails p1 ON p1.Kala = g.Code AND p1.Position = 1 -- when @DetailID1 or @DetailID2 or @DetailID3 or @DetailID4 or @DetailID5 or @TitleID = 4
LEFT JOIN GoodDetails p2 ON p2.Kala = g.Code AND p2.Position = 2 -- when @DetailID1 or @DetailID2 or @DetailID3 or @DetailID4 or @DetailID5 or @TitleID = 4
LEFT JOIN GoodDetails p3 ON p3.Kala = g.Code AND p3.Position = 3 -- when @DetailID1 or @DetailID2 or @DetailID3 or @DetailID4 or @DetailID5 or @TitleID = 4
LEFT JOIN GoodDetails p4 ON p4.Kala = g.Code AND p4.Position = 4 -- when @DetailID1 or @DetailID2 or @DetailID3 or @DetailID4 or @DetailID5 or @TitleID = 4
LEFT JOIN GoodDetails p5 ON p5.Kala = g.Code AND p5.Position = 5 -- when @DetailID1 or @DetailID2 or @DetailID3 or @DetailID4 or @DetailID5 or @TitleID = 4
LEFT JOIN DetailTypes t1 ON t1.ID = p1.DetailID -- when @TitleID = 4
LEFT JOIN DetailTypes t2 ON t2.ID = p2.DetailID -- when @TitleID = 4
LEFT JOIN DetailTypes t3 ON t3.ID = p3.DetailID -- when @TitleID = 4
LEFT JOIN DetailTypes t4 ON t4.ID = p4.DetailID -- when @TitleID = 4
LEFT JOIN DetailTypes t5 ON t5.ID = p5.DetailID -- when @TitleID = 4
CROSS JOIN DetailKardex d ON d.Kala = g.Code -- when @FromDate or @ToDate unless @DetailID1 or @DetailID2 or @DetailID3 or @DetailID4 or @DetailID5 or @TitleID = 4
CROSS JOIN DetailValues v ON v.ID = d.DetailValueID -- when @FromDate or @ToDate unless @DetailID1 or @DetailID2 or @DetailID3 or @DetailID4 or @DetailID5 or @TitleID = 4
CROSS JOIN DetailValues v ON v.Kala = g.Code -- when @DetailID1 or @DetailID2 or @DetailID3 or @DetailID4 or @DetailID5 or @TitleID = 4
CROSS JOIN DetailKardex d INDEXED BY DetailKardex_ByValue ON d.DetailValueID = v.ID AND d.Kala = g.Code -- when @DetailID1 or @DetailID2 or @DetailID3 or @DetailID4 or @DetailID5 or @TitleID = 4
CROSS JOIN DetailValues v ON v.Kala = g.Code -- unless @FromDate or @ToDate or @DetailID1 or @DetailID2 or @DetailID3 or @DetailID4 or @DetailID5 or @TitleID = 4
CROSS JOIN DetailKardex d INDEXED BY DetailKardex_ByValue ON d.DetailValueID = v.ID AND d.Kala = g.Code -- unless @FromDate or @ToDate or @DetailID1 or @DetailID2 or @DetailID3 or @DetailID4 or @DetailID5 or @TitleID = 4
WHERE TRUE
  AND g.Code = @GoodCode -- when @GoodCode
  AND g.Code >= @FromGoodCode -- when @FromGoodCode
  AND g.Code <= @ToGoodCode -- when @ToGoodCode
  AND +g.GrpCode = @GoodGroupCode -- when @GoodGroupCode
  AND (trim(@GoodTags, ', ') = '' OR EXISTS (SELECT 1 FROM TagS t WHERE instr(',' || @GoodTags || ',', ',' || t.Code || ',') > 0 AND instr(g.Tags, ',' || t.Code || ',') > 0)) -- when @GoodTags
  AND EXISTS (WITH RECURSIVE below(Code) AS (VALUES(@GoodCategoryCode) UNION SELECT c.Code FROM below b JOIN Categories c ON c.ParentCode = b.Code) SELECT 1 FROM below b WHERE instr(g.category_code, ',' || b.Code || ',') > 0) -- when @GoodCategoryCode
  AND (g.Code IN (SELECT Kala FROM SelectedListGoods WHERE ListCode = @GoodSelectedListCode)) = (ifnull(@GoodSelectedListNot, 0) = 0) -- when @GoodSelectedListCode
  AND @DetailID1 IN (p1.DetailID, p2.DetailID, p3.DetailID, p4.DetailID, p5.DetailID) -- when @DetailID1
  AND detail_between((SELECT DetailType FROM DetailTypes WHERE ID = @DetailID1), CASE @DetailID1 WHEN p1.DetailID THEN v.D1Value WHEN p2.DetailID THEN v.D2Value WHEN p3.DetailID THEN v.D3Value WHEN p4.DetailID THEN v.D4Value WHEN p5.DetailID THEN v.D5Value END, @Detail1Value1, @Detail1Value2) -- when @DetailID1
  AND @DetailID2 IN (p1.DetailID, p2.DetailID, p3.DetailID, p4.DetailID, p5.DetailID) -- when @DetailID2
  AND detail_between((SELECT DetailType FROM DetailTypes WHERE ID = @DetailID2), CASE @DetailID2 WHEN p1.DetailID THEN v.D1Value WHEN p2.DetailID THEN v.D2Value WHEN p3.DetailID THEN v.D3Value WHEN p4.DetailID THEN v.D4Value WHEN p5.DetailID THEN v.D5Value END, @Detail2Value1, @Detail2Value2) -- when @DetailID2
  AND @DetailID3 IN (p1.DetailID, p2.DetailID, p3.DetailID, p4.DetailID, p5.DetailID) -- when @DetailID3
  AND detail_between((SELECT DetailType FROM DetailTypes WHERE ID = @DetailID3), CASE @DetailID3 WHEN p1.DetailID THEN v.D1Value WHEN p2.DetailID THEN v.D2Value WHEN p3.DetailID THEN v.D3Value WHEN p4.DetailID THEN v.D4Value WHEN p5.DetailID THEN v.D5Value END, @Detail3Value1, @Detail3Value2) -- when @DetailID3
  AND @DetailID4 IN (p1.DetailID, p2.DetailID, p3.DetailID, p4.DetailID, p5.DetailID) -- when @DetailID4
  AND detail_between((SELECT DetailType FROM DetailTypes WHERE ID = @DetailID4), CASE @DetailID4 WHEN p1.DetailID THEN v.D1Value WHEN p2.DetailID THEN v.D2Value WHEN p3.DetailID THEN v.D3Value WHEN p4.DetailID THEN v.D4Value WHEN p5.DetailID THEN v.D5Value END, @Detail4Value1, @Detail4Value2) -- when @DetailID4
  AND @DetailID5 IN (p1.DetailID, p2.DetailID, p3.DetailID, p4.DetailID, p5.DetailID) -- when @DetailID5
  AND detail_between((SELECT DetailType FROM DetailTypes WHERE ID = @DetailID5), CASE @DetailID5 WHEN p1.DetailID THEN v.D1Value WHEN p2.DetailID THEN v.D2Value WHEN p3.DetailID THEN v.D3Value WHEN p4.DetailID THEN v.D4Value WHEN p5.DetailID THEN v.D5Value END, @Detail5Value1, @Detail5Value2) -- when @DetailID5
  AND +d.Anbar = @Anbar -- when @Anbar
  AND +d.Anbar >= @FromAnbar -- when @FromAnbar
  AND +d.Anbar <= @ToAnbar -- when @ToAnbar
  AND d.Date >= @FromDate -- when @FromDate
  AND d.Date <= @ToDate -- when @ToDate
  AND dec_of(g.Code) = dec_try(@Title) -- when @TitleID = 1
  AND instr(fold_persian(g.Name), fold_persian(@Title)) > 0 -- when @TitleID = 2
  AND d.Anbar IN (SELECT Code FROM Stores WHERE instr(fold_persian(Name), fold_persian(@Title)) > 0) -- when @TitleID = 3
  AND instr(fold_persian(detail_text(t1.Title, v.D1Value, t2.Title, v.D2Value, t3.Title, v.D3Value, t4.Title, v.D4Value, t5.Title, v.D5Value)), fold_persian(@Title)) > 0 -- when @TitleID = 4
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
LEFT JOIN GoodDetails p1 ON p1.Kala = g.Code AND p1.Position = 1
LEFT JOIN DetailTypes t1 ON t1.ID = p1.DetailID
LEFT JOIN GoodDetails p2 ON p2.Kala = g.Code AND p2.Position = 2
LEFT JOIN DetailTypes t2 ON t2.ID = p2.DetailID
LEFT JOIN GoodDetails p3 ON p3.Kala = g.Code AND p3.Position = 3
LEFT JOIN DetailTypes t3 ON t3.ID = p3.DetailID
LEFT JOIN GoodDetails p4 ON p4.Kala = g.Code AND p4.Position = 4
LEFT JOIN DetailTypes t4 ON t4.ID = p4.DetailID
LEFT JOIN GoodDetails p5 ON p5.Kala = g.Code AND p5.Position = 5
LEFT JOIN DetailTypes t5 ON t5.ID = p5.DetailID
ORDER BY m.Kala, m.ID, m.Anbar, m.Type
