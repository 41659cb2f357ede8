-- Over the good g, its combination v, the details p1 to p5 and their titles t1 to t5, and the movement d.
-- GoodInf_sp asks for goods otherwise: for any of several categories without those below, and list 0 is none.
  AND g.Code = @GoodCode -- when @GoodCode
  AND g.Code >= @FromGoodCode -- when @FromGoodCode
  AND g.Code <= @ToGoodCode -- when @ToGoodCode
  AND +g.GrpCode = @GoodGroupCode -- when @GoodGroupCode
  AND (trim(@GoodTags, ', ') = '' OR shares_code(g.Tags, @GoodTags)) -- when @GoodTags
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
