-- Refreshes the stored figures of a good in a store from the stock card; 0 stands for every good and for
-- every store. A good keeps a row for each store that it ever moved in.
-- parameter @GoodCode integer default 0
-- parameter @StoreCode integer default 0
-- writes
DELETE FROM GoodStoreStock
WHERE (@GoodCode = 0 OR Kala = @GoodCode) AND (@StoreCode = 0 OR Anbar = @StoreCode);

INSERT INTO GoodStoreStock(Kala, Anbar, Mogodi, varede, sadere, OperationDate)
SELECT Kala, Anbar, dec_sum(Tedad), dec_sum(max(Tedad, 0)), dec_sum(max(-Tedad, 0)), max(Date)
FROM Kardex
WHERE (@GoodCode = 0 OR Kala = @GoodCode) AND (@StoreCode = 0 OR Anbar = @StoreCode)
GROUP BY Kala, Anbar;
