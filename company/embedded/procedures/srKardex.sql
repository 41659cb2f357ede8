-- The rows of every good's stock card that meet the criteria, good by good in the order of date and row number.
-- Prices are those of the stock card.
-- include SearchDeclarations
-- include SearchedColumns
FROM Kardex k
WHERE {criteria}
ORDER BY k.Kala, k.Date, k.Radif
