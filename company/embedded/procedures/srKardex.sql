-- The rows of every good's stock card that meet the criteria, good by good in the order of date and row number.
-- Prices are those of the stock card.
-- divided by k.Kala
-- include SearchDeclarations
-- include SearchedColumns
FROM Kardex k
WHERE {criteria}
  AND {goods}
ORDER BY k.Kala, k.Date, k.Radif
