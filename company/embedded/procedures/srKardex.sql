-- The rows of every good's stock card that meet the criteria, good by good in the order of date and row number.
-- Prices are those of the stock card.
-- criterion contains Comment on k.Comment
-- criterion name KalaName of GoodInf on k.Kala
-- criterion name PerName of Persons on k.Percode
-- criterion name AnbarName of Stores on k.Anbar
-- criterion range Code integer on k.Kala
-- criterion range Date text on k.Date
-- criterion range Varede decimal on max(k.Tedad, 0)
-- criterion range Sadere decimal on max(-k.Tedad, 0)
-- criterion range Mab_Varede decimal on iif(k.Tedad > 0, k.Gheymat, 0)
-- criterion range Mab_Sadere decimal on iif(k.Tedad < 0, k.Gheymat, 0)
-- criterion range Gheymat_Varede decimal on dec_mul(max(k.Tedad, 0), k.Gheymat)
-- criterion range Gheymat_Sadere decimal on dec_mul(max(-k.Tedad, 0), k.Gheymat)
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
FROM Kardex k
LEFT JOIN GoodInf g ON g.Code = k.Kala
LEFT JOIN Stores s ON s.Code = k.Anbar
LEFT JOIN Persons p ON p.Code = k.Percode
WHERE {criteria}
ORDER BY k.Kala, k.Date, k.Radif
