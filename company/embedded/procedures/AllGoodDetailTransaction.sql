-- The movements of all goods by detail values, good by good in the order of date and row number.
-- Varede and Sadere are the quantity that came in and that went out. Amount is the unit price on the document's
-- row, TotalAmount that price times the quantity, without a sign; both are null where the row is missing.
-- DetailValues is the row's values as one text, "title: value - title: value". A movement of a good that has no
-- record is not shown.
--
-- @TitleID: which column @Title searches: 1 Code, 2 Name, 3 AnbarName, 4 DetailValues, 5 fullname, 6 Comment,
-- 7 Varede, 8 Sadere, 9 Amount, 10 TotalAmount. Texts hold @Title, as a Persian reader compares;
-- codes, quantities and amounts equal it, and a text that is no number equals none. Another @TitleID, or none,
-- asks nothing.
-- parameter @TitleID integer default null
-- parameter @Title text default null
-- parameter @OperationType integer default null
-- divided by g.Code unless @GoodCode
-- include GoodDetailParameters
-- parameter @FromGoodGroupCode integer default null
-- parameter @ToGoodGroupCode integer default null
-- parameter @FromAnbar integer default null
-- parameter @ToAnbar integer default null
-- parameter @Anbar integer default null
-- parameter @FromDate date default null
-- parameter @ToDate date default null
-- column OperationDate text
-- column Anbar integer
-- column AnbarName text named by SELECT Name FROM Stores WHERE Code = ?1
-- column Code integer
-- column Name text
-- column D1Value text
-- column D2Value text
-- column D3Value text
-- column D4Value text
-- column D5Value text
-- column DetailValues text
-- column fullname text named by SELECT Name FROM Persons WHERE Code = ?1
-- column Comment text
-- column Varede decimal
-- column Sadere decimal
-- column Amount decimal
-- column TotalAmount decimal
-- column UnitName text named by SELECT u.Name FROM GoodInf g JOIN Units u ON u.Code = g.Unit WHERE g.Code = ?1
-- column OperationType integer
-- column OperationCode integer
-- column DetailValueID integer
-- column Kala integer
SELECT d.Date,
       d.Anbar,
       d.Anbar,
       g.Code,
       g.Name,
       v.D1Value,
       v.D2Value,
       v.D3Value,
       v.D4Value,
       v.D5Value,
       detail_text(t1.Title, v.D1Value, t2.Title, v.D2Value, t3.Title, v.D3Value, t4.Title, v.D4Value, t5.Title, v.D5Value),
       d.Percode,
       d.Comment,
       max(d.Amount1, 0),
       max(-d.Amount1, 0),
       k.Fi,
       dec_mul(abs(d.Amount1), k.Fi),
       g.Code,
       d.Type,
       d.OperationCode,
       d.DetailValueID,
       g.Code
FROM GoodInf g
-- include GoodDetailTitles
CROSS JOIN DetailKardex d ON d.Kala = g.Code -- unless byValue
LEFT JOIN DetailValues v ON v.ID = d.DetailValueID -- unless byValue
CROSS JOIN DetailValues v ON v.Kala = g.Code -- when byValue
CROSS JOIN DetailKardex d INDEXED BY DetailKardex_ByValue ON d.DetailValueID = v.ID AND d.Kala = g.Code -- when byValue
LEFT JOIN Kardex k ON k.Kala = d.Kala AND k.Date = d.Date AND k.Radif = d.Radif
WHERE TRUE
  AND {goods}
-- include GoodDetailCriteria
  AND +g.GrpCode >= @FromGoodGroupCode -- when @FromGoodGroupCode
  AND +g.GrpCode <= @ToGoodGroupCode -- when @ToGoodGroupCode
  AND +d.Type = @OperationType -- when @OperationType
  AND d.Percode IN (SELECT Code FROM Persons WHERE instr(fold_persian(Name), fold_persian(@Title)) > 0) -- when @TitleID = 5
  AND instr(fold_persian(d.Comment), fold_persian(@Title)) > 0 -- when @TitleID = 6
  AND max(d.Amount1, 0) = dec_try(@Title) -- when @TitleID = 7
  AND max(-d.Amount1, 0) = dec_try(@Title) -- when @TitleID = 8
  AND k.Fi = dec_try(@Title) -- when @TitleID = 9
  AND dec_mul(abs(d.Amount1), k.Fi) = dec_try(@Title) -- when @TitleID = 10
ORDER BY g.Code, d.Date, d.Radif, d.DetailValueID
