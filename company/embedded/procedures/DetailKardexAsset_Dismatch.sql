-- Goods whose stock on the stock card differs from the stock that their details tell: in all stores together, or
-- with @StoreSeparation 1 in each store. DiffAsset is KardexAsset less DetailAsset. Only goods that keep details are
-- compared; a difference in one store that another store makes up for is none in the total. In the order of good
-- and store.
--
-- Null asks nothing; texts ask for names that hold them, as a Persian reader compares; @FromDiffAsset and
-- @ToDiffAsset belong to their range. With stores totalled StoreCode is 0 and StoreTitle empty, and @Store and
-- @StoreName tell which stores are added up.
-- parameter @GoodGroupCode integer default null
-- parameter @StoreSeparation integer default 0
-- parameter @GoodCode integer default null
-- parameter @GoodName text default null
-- parameter @Store integer default null
-- parameter @StoreName text default null
-- parameter @FromDiffAsset decimal default null
-- parameter @ToDiffAsset decimal default null
-- column StoreCode integer
-- column StoreTitle text
-- column GoodCode integer
-- column GoodTitle text
-- column DiffAsset decimal
-- column KardexAsset decimal
-- column DetailAsset decimal
SELECT m.Anbar, -- when @StoreSeparation = 1
       s.Name, -- when @StoreSeparation = 1
SELECT 0, -- unless @StoreSeparation = 1
       '', -- unless @StoreSeparation = 1
       m.Kala,
       g.Name,
       dec_sub(dec_sum(m.KardexAsset), dec_sum(m.DetailAsset)),
       dec_sum(m.KardexAsset),
       dec_sum(m.DetailAsset)
FROM detail_asset m
LEFT JOIN GoodInf g ON g.Code = m.Kala
LEFT JOIN Stores s ON s.Code = m.Anbar
WHERE TRUE
  AND m.Kala = @GoodCode -- when @GoodCode
  AND m.Kala IN (SELECT Code FROM GoodInf WHERE GrpCode = @GoodGroupCode) -- when @GoodGroupCode
  AND m.Kala IN (SELECT Code FROM GoodInf WHERE instr(fold_persian(Name), fold_persian(@GoodName)) > 0) -- when @GoodName
  AND m.Anbar = @Store -- when @Store
  AND m.Anbar IN (SELECT Code FROM Stores WHERE instr(fold_persian(Name), fold_persian(@StoreName)) > 0) -- when @StoreName
GROUP BY m.Kala
       , m.Anbar -- when @StoreSeparation = 1
HAVING dec_sum(m.KardexAsset) <> dec_sum(m.DetailAsset)
  AND dec_cmp(dec_sub(dec_sum(m.KardexAsset), dec_sum(m.DetailAsset)), @FromDiffAsset) >= 0 -- when @FromDiffAsset
  AND dec_cmp(dec_sub(dec_sum(m.KardexAsset), dec_sum(m.DetailAsset)), @ToDiffAsset) <= 0 -- when @ToDiffAsset
