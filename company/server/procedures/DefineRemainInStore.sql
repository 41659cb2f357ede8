-- Refreshes the stored figures of a good in a store from the stock card; 0 stands for every good and for every store.
CREATE PROCEDURE dbo.DefineRemainInStore @GoodCode bigint = 0, @StoreCode bigint = 0 AS
BEGIN
  SET NOCOUNT ON;
  SET XACT_ABORT ON;
  BEGIN TRANSACTION;
  DELETE FROM dbo.GoodStoreStock
  WHERE (@GoodCode = 0 OR Kala = @GoodCode) AND (@StoreCode = 0 OR Anbar = @StoreCode);
  INSERT INTO dbo.GoodStoreStock(Kala, Anbar, Mogodi, varede, sadere, OperationDate)
  SELECT k.Kala, k.Anbar, SUM(k.Tedad), SUM(CASE WHEN k.Tedad > 0 THEN k.Tedad ELSE 0 END),
         SUM(CASE WHEN k.Tedad < 0 THEN -k.Tedad ELSE 0 END), MAX(k.Date)
  FROM dbo.Kardex k
  WHERE (@GoodCode = 0 OR k.Kala = @GoodCode) AND (@StoreCode = 0 OR k.Anbar = @StoreCode)
  GROUP BY k.Kala, k.Anbar;
  COMMIT;
END
GO
