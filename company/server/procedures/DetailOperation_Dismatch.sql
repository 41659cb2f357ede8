-- Rows of documents whose details do not add up to the row's quantity, of goods that keep details; in the order of good, date
-- and row number. Quantities are positive in the row's direction; details in another store than their row's, or whose row
-- is missing, make a row of their own with OperationAmount 0.
CREATE PROCEDURE dbo.DetailOperation_Dismatch
  @GoodCode bigint = NULL,
  @Store bigint = NULL,
  @StoreName nvarchar(4000) = NULL,
  @OperationCode bigint = NULL,
  @OperationRow bigint = NULL,
  @OperationAmount decimal(38,9) = NULL,
  @DetailAmount decimal(38,9) = NULL,
  @OperationType bigint = NULL,
  @FromDate nvarchar(4000) = NULL,
  @ToDate nvarchar(4000) = NULL,
  @FromOperationCode bigint = NULL,
  @ToOperationCode bigint = NULL,
  @FromOperationRow bigint = NULL,
  @ToOperationRow bigint = NULL,
  @FromOperationAmount decimal(38,9) = NULL,
  @ToOperationAmount decimal(38,9) = NULL,
  @FromDetailAmount decimal(38,9) = NULL,
  @ToDetailAmount decimal(38,9) = NULL AS
BEGIN
  SET NOCOUNT ON;
  -- An empty date is an open end.
  IF LTRIM(@FromDate) = N'' SET @FromDate = NULL;
  IF LTRIM(@ToDate) = N'' SET @ToDate = NULL;
  DECLARE @storePart nvarchar(4000) = dbo.FoldPersian(@StoreName);
  SELECT m.Date AS OperationDate, m.Anbar AS StoreCode, s.Name AS StoreName, y.Name AS OperationTitle, m.OperationCode,
         m.OperationRow, m.OperationAmount, m.DetailAmount, m.Type AS OperationType, m.Kala AS GoodCode
  FROM (SELECT e.Kala, e.Date, e.Radif, e.Anbar, e.Type, e.OperationCode, e.OperationRow,
               CAST(CASE WHEN e.Operation < 0 OR e.Operation = 0 AND e.Details < 0 THEN -e.Operation ELSE e.Operation END
                    AS decimal(38,9)) AS OperationAmount,
               CAST(CASE WHEN e.Operation < 0 OR e.Operation = 0 AND e.Details < 0 THEN -e.Details ELSE e.Details END
                    AS decimal(38,9)) AS DetailAmount
        FROM (SELECT u.Kala, u.Radif, u.Anbar, MIN(u.Date) AS Date,
                     MIN(u.Type) AS Type, MIN(u.OperationCode) AS OperationCode, MIN(u.OperationRow) AS OperationRow,
                     SUM(u.Operation) AS Operation, SUM(u.Details) AS Details
              FROM (SELECT k.Kala, k.Radif, k.Anbar, k.Date, k.Type, k.OperationCode, k.OperationRow, k.Tedad AS Operation,
                           CAST(0 AS decimal(19,9)) AS Details
                    FROM dbo.Kardex k
                    UNION ALL
                    SELECT x.Kala, x.Radif, x.Anbar, x.Date, x.Type, x.OperationCode, x.OperationRow,
                           CAST(0 AS decimal(19,9)), x.Amount1
                    FROM dbo.DetailKardex x) u
              WHERE EXISTS (SELECT 1 FROM dbo.GoodDetails gd WHERE gd.Kala = u.Kala)
                AND (@GoodCode IS NULL OR u.Kala = @GoodCode)
              GROUP BY u.Kala, u.Radif, u.Anbar) e
        WHERE e.Operation <> e.Details) m
  LEFT JOIN dbo.Stores s ON s.Code = m.Anbar
  LEFT JOIN dbo.MovementTypes y ON y.Type = m.Type
  WHERE (@Store IS NULL OR m.Anbar = @Store)
    AND (@StoreName IS NULL OR m.Anbar IN (SELECT n.Code FROM dbo.SearchNames n
                                           WHERE n.Kind = 1 AND dbo.Holds(n.Name, @storePart) = 1))
    AND (@OperationCode IS NULL OR m.OperationCode = @OperationCode)
    AND (@OperationRow IS NULL OR m.OperationRow = @OperationRow)
    AND (@OperationAmount IS NULL OR m.OperationAmount = @OperationAmount)
    AND (@DetailAmount IS NULL OR m.DetailAmount = @DetailAmount)
    AND (@OperationType IS NULL OR m.Type = @OperationType)
    AND (@FromDate IS NULL OR m.Date >= @FromDate)
    AND (@ToDate IS NULL OR m.Date <= @ToDate)
    AND (@FromOperationCode IS NULL OR m.OperationCode >= @FromOperationCode)
    AND (@ToOperationCode IS NULL OR m.OperationCode <= @ToOperationCode)
    AND (@FromOperationRow IS NULL OR m.OperationRow >= @FromOperationRow)
    AND (@ToOperationRow IS NULL OR m.OperationRow <= @ToOperationRow)
    AND (@FromOperationAmount IS NULL OR m.OperationAmount >= @FromOperationAmount)
    AND (@ToOperationAmount IS NULL OR m.OperationAmount <= @ToOperationAmount)
    AND (@FromDetailAmount IS NULL OR m.DetailAmount >= @FromDetailAmount)
    AND (@ToDetailAmount IS NULL OR m.DetailAmount <= @ToDetailAmount)
  ORDER BY m.Kala, m.Date, m.Radif, m.Anbar
  OPTION (RECOMPILE);
END
GO
