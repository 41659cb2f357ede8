-- The movements of all goods by detail values, good by good in the order of date and row number.
-- Varede and Sadere are the quantity that came in and that went out. Amount is the unit price on the document's
-- row, TotalAmount that price times the quantity, without a sign; both are null where the row is missing.
-- DetailValues is the row's values as one text, "title: value - title: value". A movement of a good that has no
-- record is not shown.
--
-- Criteria together leave what meets them all; null asks nothing, and ranges hold both ends. @DetailID1 to
-- @DetailID5 ask for a detail's value at the position where the good keeps that detail, between ...Value1 and
-- ...Value2 (detail_functions.h tells how values compare); a good that does not keep the detail has no such
-- value. @GoodTags: codes joined with ","; goods with any of them; without a code it asks nothing.
-- @GoodCategoryCode: goods of the category or of one below it. @GoodSelectedListNot other than 0: the goods that
-- are not on the list @GoodSelectedListCode.
-- @TitleID: which column @Title searches: 1 Code, 2 Name, 3 AnbarName, 4 DetailValues, 5 fullname, 6 Comment,
-- 7 Varede, 8 Sadere, 9 Amount, 10 TotalAmount. Decided here: texts hold @Title, as a Persian reader compares;
-- codes, quantities and amounts equal it, and a text that is no number equals none. Another @TitleID, or none,
-- asks nothing.
-- parameter @TitleID integer default null
-- parameter @Title text default null
-- parameter @OperationType integer default null
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
-- parameter @FromGoodGroupCode integer default null
-- parameter @ToGoodGroupCode integer default null
-- parameter @FromAnbar integer default null
-- parameter @ToAnbar integer default null
-- parameter @Anbar integer default null
-- parameter @FromDate text default null
-- parameter @ToDate text default null
-- column OperationDate text
-- column Anbar integer
-- column AnbarName text
-- column Code integer
-- column Name text
-- column D1Value text
-- column D2Value text
-- column D3Value text
-- column D4Value text
-- column D5Value text
-- column DetailValues text
-- column fullname text
-- column Comment text
-- column Varede decimal
-- column Sadere decimal
-- column Amount decimal
-- column TotalAmount decimal
-- column UnitName text
-- column OperationType integer
-- column OperationCode integer
-- column DetailValueID integer
-- column Kala integer
SELECT d.Date,
       d.Anbar,
       s.Name,
       g.Code,
       g.Name,
       v.D1Value,
       v.D2Value,
       v.D3Value,
       v.D4Value,
       v.D5Value,
       detail_text(t1.Title, v.D1Value, t2.Title, v.D2Value, t3.Title, v.D3Value, t4.Title, v.D4Value, t5.Title, v.D5Value),
       p.Name,
       d.Comment,
       max(d.Amount1, 0),
       max(-d.Amount1, 0),
       k.Fi,
       dec_mul(abs(d.Amount1), k.Fi),
       u.Name,
       d.Type,
       d.OperationCode,
       d.DetailValueID,
       g.Code
FROM GoodInf g
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
CROSS JOIN DetailKardex d ON d.Kala = g.Code -- unless @DetailID1 or @DetailID2 or @DetailID3 or @DetailID4 or @DetailID5 or @TitleID = 4
LEFT JOIN DetailValues v ON v.ID = d.DetailValueID -- unless @DetailID1 or @DetailID2 or @DetailID3 or @DetailID4 or @DetailID5 or @TitleID = 4
CROSS JOIN DetailValues v ON v.Kala = g.Code -- when @DetailID1 or @DetailID2 or @DetailID3 or @DetailID4 or @DetailID5 or @TitleID = 4
CROSS JOIN DetailKardex d INDEXED BY DetailKardex_ByValue ON d.DetailValueID = v.ID AND d.Kala = g.Code -- when @DetailID1 or @DetailID2 or @DetailID3 or @DetailID4 or @DetailID5 or @TitleID = 4
LEFT JOIN Kardex k ON k.Kala = d.Kala AND k.Date = d.Date AND k.Radif = d.Radif
LEFT JOIN Stores s ON s.Code = d.Anbar
LEFT JOIN Persons p ON p.Code = d.Percode
WHERE TRUE
  AND g.Code = @GoodCode -- when @GoodCode
  AND g.Code >= @FromGoodCode -- when @FromGoodCode
  AND g.Code <= @ToGoodCode -- when @ToGoodCode
  AND +g.GrpCode = @GoodGroupCode -- when @GoodGroupCode
  AND +g.GrpCode >= @FromGoodGroupCode -- when @FromGoodGroupCode
  AND +g.GrpCode <= @ToGoodGroupCode -- when @ToGoodGroupCode
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
  AND +d.Type = @OperationType -- when @OperationType
  AND dec_of(g.Code) = dec_try(@Title) -- when @TitleID = 1
  AND instr(fold_persian(g.Name), fold_persian(@Title)) > 0 -- when @TitleID = 2
  AND d.Anbar IN (SELECT Code FROM Stores WHERE instr(fold_persian(Name), fold_persian(@Title)) > 0) -- when @TitleID = 3
  AND instr(fold_persian(detail_text(t1.Title, v.D1Value, t2.Title, v.D2Value, t3.Title, v.D3Value, t4.Title, v.D4Value, t5.Title, v.D5Value)), fold_persian(@Title)) > 0 -- when @TitleID = 4
  AND d.Percode IN (SELECT Code FROM Persons WHERE instr(fold_persian(Name), fold_persian(@Title)) > 0) -- when @TitleID = 5
  AND instr(fold_persian(d.Comment), fold_persian(@Title)) > 0 -- when @TitleID = 6
  AND max(d.Amount1, 0) = dec_try(@Title) -- when @TitleID = 7
  AND max(-d.Amount1, 0) = dec_try(@Title) -- when @TitleID = 8
  AND k.Fi = dec_try(@Title) -- when @TitleID = 9
  AND dec_mul(abs(d.Amount1), k.Fi) = dec_try(@Title) -- when @TitleID = 10
ORDER BY g.Code, d.Date, d.Radif, d.DetailValueID
