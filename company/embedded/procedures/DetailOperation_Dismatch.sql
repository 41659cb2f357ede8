-- Rows of documents whose details do not add up to the row's quantity, of goods that keep details; in the order of
-- good, date, row number and store.
-- OperationAmount and DetailAmount are positive in the row's direction, as the document writes them;
-- details that go the other way are negative. Details in another store than their row's, or whose row is missing,
-- make a row of their own with OperationAmount 0.
--
-- Null asks nothing; ranges hold both ends; @StoreName asks for names that hold it, as a Persian reader compares.
-- parameter @GoodCode integer default null
-- parameter @Store integer default null
-- parameter @StoreName text default null
-- parameter @OperationCode integer default null
-- parameter @OperationRow integer default null
-- parameter @OperationAmount decimal default null
-- parameter @DetailAmount decimal default null
-- parameter @OperationType integer default null
-- parameter @FromDate date default null
-- parameter @ToDate date default null
-- parameter @FromOperationCode integer default null
-- parameter @ToOperationCode integer default null
-- parameter @FromOperationRow integer default null
-- parameter @ToOperationRow integer default null
-- parameter @FromOperationAmount decimal default null
-- parameter @ToOperationAmount decimal default null
-- parameter @FromDetailAmount decimal default null
-- parameter @ToDetailAmount decimal default null
-- column OperationDate text
-- column StoreCode integer
-- column StoreName text
-- column OperationTitle text
-- column OperationCode integer
-- column OperationRow integer
-- column OperationAmount decimal
-- column DetailAmount decimal
-- column OperationType integer
-- column GoodCode integer
SELECT m.Date,
       m.Anbar,
       s.Name,
       y.Name,
       m.OperationCode,
       m.OperationRow,
       m.OperationAmount,
       m.DetailAmount,
       m.Type,
       m.Kala
FROM detail_operation_mismatch m
LEFT JOIN Stores s ON s.Code = m.Anbar
LEFT JOIN MovementTypes y ON y.Type = m.Type
WHERE TRUE
  AND m.Kala = @GoodCode -- when @GoodCode
  AND m.Anbar = @Store -- when @Store
  AND m.Anbar IN (SELECT Code FROM Stores WHERE instr(fold_persian(Name), fold_persian(@StoreName)) > 0) -- when @StoreName
  AND m.OperationCode = @OperationCode -- when @OperationCode
  AND m.OperationRow = @OperationRow -- when @OperationRow
  AND m.OperationAmount = @OperationAmount -- when @OperationAmount
  AND m.DetailAmount = @DetailAmount -- when @DetailAmount
  AND m.Type = @OperationType -- when @OperationType
  AND m.Date >= @FromDate -- when @FromDate
  AND m.Date <= @ToDate -- when @ToDate
  AND m.OperationCode >= @FromOperationCode -- when @FromOperationCode
  AND m.OperationCode <= @ToOperationCode -- when @ToOperationCode
  AND m.OperationRow >= @FromOperationRow -- when @FromOperationRow
  AND m.OperationRow <= @ToOperationRow -- when @ToOperationRow
  AND dec_cmp(m.OperationAmount, @FromOperationAmount) >= 0 -- when @FromOperationAmount
  AND dec_cmp(m.OperationAmount, @ToOperationAmount) <= 0 -- when @ToOperationAmount
  AND dec_cmp(m.DetailAmount, @FromDetailAmount) >= 0 -- when @FromDetailAmount
  AND dec_cmp(m.DetailAmount, @ToDetailAmount) <= 0 -- when @ToDetailAmount
ORDER BY m.Kala, m.Date, m.Radif, m.Anbar
