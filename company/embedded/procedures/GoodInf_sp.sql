-- The goods with what came in, what went out and what is there, in the order of their codes. Which figures these
-- are without and with a period or a store is decided in stock_figures.h; criteria ask for what is shown.
--
-- @GrpCode: the goods of a group; 0: of all. @GoodExistType: 1 in stock, 2 short (below zero), 3 without a
-- movement (in the period and the store, where given), 4 nothing in stock, 5 below the minimum, 0 every good.
-- @SelectedCode, with @Inlist 1: the goods of that saved list, or with @invertList 1 the others; null and 0 are no
-- list. @EffectiveDate1, @EffectiveDate2: the period. @StoreCode: the figures of that store, or with @NotStoreCode
-- 1 of the others; a good that is not there is listed all the same.
--
-- Mogodi2: whole second units, towards zero; Joz: what they leave. Without a second unit everything
-- is left, so Joz is the stock. Stock: the price that RialiStock_SP prepared last, 0 when it prepared none.
-- A tag that no longer is has no colour.
-- parameter @GrpCode integer default 0
-- parameter @GoodExistType integer default 0
-- parameter @Inlist integer default 0
-- parameter @invertList integer default 0
-- parameter @SelectedCode integer default null
-- parameter @EffectiveDate1 text default null
-- parameter @EffectiveDate2 text default null
-- parameter @StoreCode integer default null
-- parameter @NotStoreCode integer default 0
-- divided by g.Code unless @Code
-- condition period @EffectiveDate1 or @EffectiveDate2
-- condition ofStore @StoreCode unless period or @NotStoreCode = 1 or @StoreCode = 0
-- condition ofOthers @StoreCode unless period or ofStore
-- condition workedOut period or ofOthers
-- criterion codes tags on g.Tags
-- criterion codes category_code on g.category_code
-- criterion equals Code integer on g.Code
-- criterion contains Name on g.Name
-- criterion contains AbbName on g.AbbName
-- criterion name UnitName1 of Units on g.Unit
-- criterion name UnitName2 of Units on g.Unit2
-- criterion equals Varede decimal on f.varede
-- criterion equals Sadere decimal on f.sadere
-- criterion equals Mogodi decimal on f.Mogodi
-- criterion range Code integer on g.Code
-- criterion range Mogodi decimal on f.Mogodi
-- criterion range Mogodi2 decimal on ifnull(dec_whole(f.Mogodi, nullif(g.Meghdar_Formool, 0)), 0)
-- criterion range gheymat_miangin decimal on f.gheymat_miangin
-- criterion range Jam_Kol decimal on dec_mul(f.Mogodi, f.gheymat_miangin)
-- criterion range OperationDate date on nullif(f.OperationDate, '')
-- column GrpCode integer
-- column Code integer
-- column Name text
-- column OperationDate text
-- column AbbName text
-- column Pos text
-- column Unit integer
-- column AvaBgPrd decimal
-- column CostBgPrd decimal
-- column CurAva integer
-- column Status integer
-- column varede decimal
-- column sadere decimal
-- column gheymat_miangin decimal
-- column Unit2 integer
-- column AvaBgPrd2 decimal
-- column Mogodi2 decimal
-- column Meghdar2 decimal
-- column kala_type text
-- column kala_index text
-- column kala_name text
-- column Meghdar_Formool decimal
-- column Store integer
-- column SMSCode text
-- column UnitName1 text named by SELECT Name FROM Units WHERE Code = ?1
-- column UnitName2 text named by SELECT Name FROM Units WHERE Code = ?1
-- column Jam_Kol decimal
-- column Position text
-- column Joz decimal
-- column MinAva decimal
-- column Mogodi decimal
-- column Mogodi_Ava_Diff decimal
-- column SumStock decimal
-- column Stock decimal
-- column category_code text
-- column Tags text
-- column t1 text named by SELECT c.ColorText FROM TagS t JOIN colors c ON c.code = t.color_code WHERE t.Code = ?1
-- column t2 text named by SELECT c.ColorText FROM TagS t JOIN colors c ON c.code = t.color_code WHERE t.Code = ?1
-- column t3 text named by SELECT c.ColorText FROM TagS t JOIN colors c ON c.code = t.color_code WHERE t.Code = ?1
SELECT g.GrpCode,
       g.Code,
       g.Name,
       f.OperationDate,
       g.AbbName,
       g.Pos,
       g.Unit,
       g.AvaBgPrd,
       g.CostBgPrd,
       g.CurAva,
       g.Status,
       f.varede,
       f.sadere,
       f.gheymat_miangin,
       g.Unit2,
       g.AvaBgPrd2,
       ifnull(dec_whole(f.Mogodi, nullif(g.Meghdar_Formool, 0)), 0),
       g.Meghdar2,
       g.kala_type,
       g.kala_index,
       g.kala_name,
       g.Meghdar_Formool,
       g.Store,
       g.SMSCode,
       g.Unit,
       g.Unit2,
       f.Jam_Kol,  -- unless workedOut or ofStore
       dec_mul(f.Mogodi, f.gheymat_miangin),  -- when workedOut or ofStore
       g.Position,
       ifnull(dec_rest(f.Mogodi, nullif(g.Meghdar_Formool, 0)), f.Mogodi),
       g.MinAva,
       f.Mogodi,
       dec_sub(f.Mogodi, g.MinAva),
       ifnull(dec_mul(f.Mogodi, r.Stock), 0),
       ifnull(r.Stock, 0),
       g.category_code,
       g.Tags,
       iif(g.Tags = '', NULL, code_at(g.Tags, 1)),
       iif(g.Tags = '', NULL, code_at(g.Tags, 2)),
       iif(g.Tags = '', NULL, code_at(g.Tags, 3))
FROM GoodInf g
CROSS JOIN GoodStock f ON f.Kala = g.Code  -- unless workedOut or ofStore
CROSS JOIN (SELECT a.Kala, a.gheymat_miangin, ifnull(s.varede, 0) AS varede, ifnull(s.sadere, 0) AS sadere,  -- when ofStore
                   ifnull(s.Mogodi, 0) AS Mogodi, ifnull(s.OperationDate, '') AS OperationDate  -- when ofStore
            FROM GoodStock a  -- when ofStore
            LEFT JOIN GoodStoreStock s ON s.Kala = a.Kala AND s.Anbar = @StoreCode) f ON f.Kala = g.Code  -- when ofStore
CROSS JOIN stock_figures(g.Code, @EffectiveDate1, @EffectiveDate2, @StoreCode, @NotStoreCode) f  -- when workedOut
LEFT JOIN RialiStock r ON r.Kala = g.Code
WHERE {criteria}
  AND {goods}
  AND (ifnull(@GrpCode, 0) = 0 OR g.GrpCode = @GrpCode)  -- unless @GrpCode = 0
  AND (@Inlist IS NOT 1 OR @SelectedCode = 0 OR  -- when @SelectedCode
       (g.Code IN (SELECT l.Kala FROM SelectedListGoods l WHERE l.ListCode = @SelectedCode)) = (@invertList IS NOT 1))  -- when @SelectedCode
  AND CASE ifnull(@GoodExistType, 0)  -- unless @GoodExistType = 0
        WHEN 0 THEN 1  -- unless @GoodExistType = 0
        WHEN 1 THEN dec_cmp(f.Mogodi, 0) > 0  -- unless @GoodExistType = 0
        WHEN 2 THEN dec_cmp(f.Mogodi, 0) < 0  -- unless @GoodExistType = 0
        WHEN 3 THEN f.OperationDate = ''  -- unless @GoodExistType = 0
        WHEN 4 THEN f.Mogodi = 0  -- unless @GoodExistType = 0
        WHEN 5 THEN dec_cmp(f.Mogodi, g.MinAva) < 0  -- unless @GoodExistType = 0
      END  -- unless @GoodExistType = 0
ORDER BY g.Code
