-- The rows that drive a good's stock in a store below zero: outgoing rows after which the store holds less than
-- nothing of the good. The remainder runs over every row of the good in the store; of the rows found, those from
-- @First to @Second are shown (Jalali dates, both included; empty or null: open) that meet the criteria of srKardex.
-- @Reserved holds the first place, which callers leave empty.
-- parameter @Reserved text default ''
-- parameter @First text default ''
-- parameter @Second text default ''
-- parameter @Comment text default null
-- parameter @NotComment integer default 0
-- parameter @KalaName text default null
-- parameter @NotKalaName integer default 0
-- parameter @PerName text default null
-- parameter @NotPerName integer default 0
-- parameter @AnbarName text default null
-- parameter @NotAnbarName integer default 0
-- parameter @FromCode integer default null
-- parameter @ToCode integer default null
-- parameter @NotCode integer default 0
-- parameter @FromDate text default null
-- parameter @ToDate text default null
-- parameter @NotDate integer default 0
-- parameter @FromVarede decimal default null
-- parameter @ToVarede decimal default null
-- parameter @NotVarede integer default 0
-- parameter @FromSadere decimal default null
-- parameter @ToSadere decimal default null
-- parameter @NotSadere integer default 0
-- parameter @FromMab_Varede decimal default null
-- parameter @ToMab_Varede decimal default null
-- parameter @NotMab_Varede integer default 0
-- parameter @FromMab_Sadere decimal default null
-- parameter @ToMab_Sadere decimal default null
-- parameter @NotMab_Sadere integer default 0
-- parameter @FromGheymat_Varede decimal default null
-- parameter @ToGheymat_Varede decimal default null
-- parameter @NotGheymat_Varede integer default 0
-- parameter @FromGheymat_Sadere decimal default null
-- parameter @ToGheymat_Sadere decimal default null
-- parameter @NotGheymat_Sadere integer default 0
-- column Date text
-- column Code integer
-- column AbbName text
-- column PerName text
-- column KalaName text
-- column AnbarName text
-- column Comment text
-- column Varede decimal
-- column Sadere decimal
-- column Mab_Varede decimal
-- column Mab_Sadere decimal
-- column Gheymat_Varede decimal
-- column Gheymat_Sadere decimal
SELECT k.Date,
       k.Kala,
       g.AbbName,
       p.Name,
       g.Name,
       s.Name,
       k.Comment,
       max(k.Tedad, 0),
       max(-k.Tedad, 0),
       iif(k.Tedad > 0, k.Gheymat, 0),
       iif(k.Tedad < 0, k.Gheymat, 0),
       dec_mul(max(k.Tedad, 0), k.Gheymat),
       dec_mul(max(-k.Tedad, 0), k.Gheymat)
FROM negative_stock k
LEFT JOIN GoodInf g ON g.Code = k.Kala
LEFT JOIN Stores s ON s.Code = k.Anbar
LEFT JOIN Persons p ON p.Code = k.Percode
WHERE (ifnull(@First, '') = '' OR k.Date >= @First)
  AND (ifnull(@Second, '') = '' OR k.Date <= @Second)
  AND (@Comment IS NULL OR (instr(fold_persian(k.Comment), fold_persian(@Comment)) > 0) = (@NotComment = 0))
  AND (@KalaName IS NULL OR (k.Kala IN (SELECT Code FROM GoodInf WHERE instr(fold_persian(Name), fold_persian(@KalaName)) > 0)) = (@NotKalaName = 0))
  AND (@PerName IS NULL OR (k.Percode IN (SELECT Code FROM Persons WHERE instr(fold_persian(Name), fold_persian(@PerName)) > 0)) = (@NotPerName = 0))
  AND (@AnbarName IS NULL OR (k.Anbar IN (SELECT Code FROM Stores WHERE instr(fold_persian(Name), fold_persian(@AnbarName)) > 0)) = (@NotAnbarName = 0))
  AND (coalesce(@FromCode, @ToCode) IS NULL OR
       ((@FromCode IS NULL OR k.Kala >= @FromCode) AND (@ToCode IS NULL OR k.Kala <= @ToCode)) = (@NotCode = 0))
  AND (coalesce(@FromDate, @ToDate) IS NULL OR
       ((@FromDate IS NULL OR k.Date >= @FromDate) AND (@ToDate IS NULL OR k.Date <= @ToDate)) = (@NotDate = 0))
  AND (coalesce(@FromVarede, @ToVarede) IS NULL OR
       ((@FromVarede IS NULL OR dec_cmp(max(k.Tedad, 0), @FromVarede) >= 0) AND (@ToVarede IS NULL OR dec_cmp(max(k.Tedad, 0), @ToVarede) <= 0)) = (@NotVarede = 0))
  AND (coalesce(@FromSadere, @ToSadere) IS NULL OR
       ((@FromSadere IS NULL OR dec_cmp(max(-k.Tedad, 0), @FromSadere) >= 0) AND (@ToSadere IS NULL OR dec_cmp(max(-k.Tedad, 0), @ToSadere) <= 0)) = (@NotSadere = 0))
  AND (coalesce(@FromMab_Varede, @ToMab_Varede) IS NULL OR
       ((@FromMab_Varede IS NULL OR dec_cmp(iif(k.Tedad > 0, k.Gheymat, 0), @FromMab_Varede) >= 0) AND (@ToMab_Varede IS NULL OR dec_cmp(iif(k.Tedad > 0, k.Gheymat, 0), @ToMab_Varede) <= 0)) = (@NotMab_Varede = 0))
  AND (coalesce(@FromMab_Sadere, @ToMab_Sadere) IS NULL OR
       ((@FromMab_Sadere IS NULL OR dec_cmp(iif(k.Tedad < 0, k.Gheymat, 0), @FromMab_Sadere) >= 0) AND (@ToMab_Sadere IS NULL OR dec_cmp(iif(k.Tedad < 0, k.Gheymat, 0), @ToMab_Sadere) <= 0)) = (@NotMab_Sadere = 0))
  AND (coalesce(@FromGheymat_Varede, @ToGheymat_Varede) IS NULL OR
       ((@FromGheymat_Varede IS NULL OR dec_cmp(dec_mul(max(k.Tedad, 0), k.Gheymat), @FromGheymat_Varede) >= 0) AND (@ToGheymat_Varede IS NULL OR dec_cmp(dec_mul(max(k.Tedad, 0), k.Gheymat), @ToGheymat_Varede) <= 0)) = (@NotGheymat_Varede = 0))
  AND (coalesce(@FromGheymat_Sadere, @ToGheymat_Sadere) IS NULL OR
       ((@FromGheymat_Sadere IS NULL OR dec_cmp(dec_mul(max(-k.Tedad, 0), k.Gheymat), @FromGheymat_Sadere) >= 0) AND (@ToGheymat_Sadere IS NULL OR dec_cmp(dec_mul(max(-k.Tedad, 0), k.Gheymat), @ToGheymat_Sadere) <= 0)) = (@NotGheymat_Sadere = 0))
ORDER BY k.Kala, k.Date, k.Radif
