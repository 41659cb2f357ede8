-- The cells of a found row k, in the order in which SearchDeclarations names them.
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
