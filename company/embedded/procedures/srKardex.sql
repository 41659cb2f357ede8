-- The rows of every good's stock card that meet the criteria, good by good in the order of date and row number.
-- Prices are those of the stock card.
-- include SearchDeclarations
-- include SearchedColumns
FROM Kardex k
LEFT JOIN GoodInf g ON g.Code = k.Kala
LEFT JOIN Stores s ON s.Code = k.Anbar
LEFT JOIN Persons p ON p.Code = k.Percode
LEFT JOIN Units u ON u.Code = g.Unit
WHERE {criteria}
ORDER BY k.Kala, k.Date, k.Radif
