-- The rows that drive a good's stock in a store below zero: outgoing rows after which the store holds less than
-- nothing of the good. The remainder runs over every row of the good in the store; of the rows found, those from
-- @First to @Second are shown (Jalali dates, both included; empty or null: open) that meet the criteria of srKardex.
-- @Reserved holds the first place, which callers leave empty.
-- parameter @Reserved text default ''
-- parameter @First text default ''
-- parameter @Second text default ''
-- include SearchDeclarations
-- include SearchedColumns
FROM negative_stock k
WHERE (trim(ifnull(@First, '')) = '' OR k.Date >= @First)
  AND (trim(ifnull(@Second, '')) = '' OR k.Date <= @Second)
  AND {criteria}
ORDER BY k.Kala, k.Date, k.Radif
