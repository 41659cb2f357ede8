-- The movements of one good at one combination of detail values, in the order of date and row number.
-- Length, Width, Amount1, Amount2 and Amount3 are the measures of the row; which of them a good uses, and under which
-- names, follows from its unit kind. Amount1 and Amount2 carry the movement's sign. KardexAmount is the unit price on
-- the document's row, TotalAmount that price times Amount1, with its sign; both are null where the row is missing.
--
-- Criteria together leave what meets them all; null asks nothing, and the dates belong to their range. @TitleID:
-- which column @Title searches: 1 fullname, 2 Comment, 3 Amount1, 4 Amount2, 5 Length, 6 Width, 7 Amount3,
-- 8 KardexAmount, 9 TotalAmount. Texts hold @Title, as a Persian reader compares; quantities and
-- amounts equal it without regard to signs, as quantities are shown without; a text that is no number equals
-- none. Another @TitleID, or none, asks nothing.
-- parameter @GoodCode integer default null
-- parameter @DetailValueID integer default null
-- parameter @TitleID integer default null
-- parameter @Title text default null
-- parameter @PerCode integer default null
-- parameter @Anbar integer default null
-- parameter @FromDate date default null
-- parameter @ToDate date default null
-- column Date text
-- column Anbar integer
-- column AnbarName text named by SELECT Name FROM Stores WHERE Code = ?1
-- column fullname text named by SELECT Name FROM Persons WHERE Code = ?1
-- column Comment text
-- column Length decimal
-- column Width decimal
-- column Amount3 decimal
-- column Amount1 decimal
-- column Amount2 decimal
-- column KardexAmount decimal
-- column TotalAmount decimal
-- column OperationType integer
-- column OperationCode integer
SELECT d.Date,
       d.Anbar,
       d.Anbar,
       d.Percode,
       d.Comment,
       d.Length,
       d.Width,
       d.Amount3,
       d.Amount1,
       d.Amount2,
       k.Fi,
       dec_mul(d.Amount1, k.Fi),
       d.Type,
       d.OperationCode
FROM DetailKardex d INDEXED BY DetailKardex_ByValue -- when @DetailValueID
FROM DetailKardex d -- unless @DetailValueID
LEFT JOIN Kardex k ON k.Kala = d.Kala AND k.Date = d.Date AND k.Radif = d.Radif
WHERE TRUE
  AND d.Kala = @GoodCode -- when @GoodCode
  AND d.DetailValueID = @DetailValueID -- when @DetailValueID
  AND +d.Percode = @PerCode -- when @PerCode
  AND +d.Anbar = @Anbar -- when @Anbar
  AND d.Date >= @FromDate -- when @FromDate
  AND d.Date <= @ToDate -- when @ToDate
  AND d.Percode IN (SELECT Code FROM Persons WHERE instr(fold_persian(Name), fold_persian(@Title)) > 0) -- when @TitleID = 1
  AND instr(fold_persian(d.Comment), fold_persian(@Title)) > 0 -- when @TitleID = 2
  AND abs(d.Amount1) = dec_abs(dec_try(@Title)) -- when @TitleID = 3
  AND abs(d.Amount2) = dec_abs(dec_try(@Title)) -- when @TitleID = 4
  AND abs(d.Length) = dec_abs(dec_try(@Title)) -- when @TitleID = 5
  AND abs(d.Width) = dec_abs(dec_try(@Title)) -- when @TitleID = 6
  AND abs(d.Amount3) = dec_abs(dec_try(@Title)) -- when @TitleID = 7
  AND dec_abs(k.Fi) = dec_abs(dec_try(@Title)) -- when @TitleID = 8
  AND dec_mul(abs(d.Amount1), k.Fi) = dec_abs(dec_try(@Title)) -- when @TitleID = 9
ORDER BY d.Date, d.Radif, d.Kala, d.DetailValueID
