-- The stock card of one good: its movements in the order of date and row number.
-- Bagh is the remainder over all stores, RemainInAnbar that within the row's store; their amounts are at the
-- average price that stands after the row. Foroosh is the row's amount on its document.
-- parameter @GoodCode integer
-- column Date text
-- column PerName text named by SELECT Name FROM Persons WHERE Code = ?1
-- column Comment text
-- column Anbar integer
-- column Tedad_Varde decimal
-- column Tedad_Sadere decimal
-- column Meghdar2 decimal
-- column Bagh decimal running
-- column RemainInAnbar decimal running within Anbar
-- column Gheymat_Varede decimal
-- column Gheymat_Sadere decimal
-- column Foroosh decimal
-- column Miangin decimal
-- column Mab_Bagh decimal product Bagh Miangin
-- column Mab_RemainInAnbar decimal product RemainInAnbar Miangin
-- column Radif integer
-- column PerCode integer
-- column Type integer
-- column OperationCode integer
SELECT k.Date,
       k.Percode,
       k.Comment,
       k.Anbar,
       max(k.Tedad, 0),
       max(-k.Tedad, 0),
       k.Meghdar2,
       k.Tedad,
       k.Tedad,
       CASE WHEN k.Tedad > 0 THEN k.Gheymat ELSE 0 END,
       CASE WHEN k.Tedad < 0 THEN k.Gheymat ELSE 0 END,
       dec_mul(abs(k.Tedad), k.Fi),
       k.Miangin,
       NULL,
       NULL,
       k.Radif,
       k.Percode,
       k.Type,
       k.OperationCode
FROM Kardex k
WHERE k.Kala = @GoodCode
ORDER BY k.Date, k.Radif
