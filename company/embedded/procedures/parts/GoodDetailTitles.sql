-- What the good keeps at its five positions, p1 to p5, and how that is called, t1 to t5.
LEFT JOIN GoodDetails p1 ON p1.Kala = g.Code AND p1.Position = 1
LEFT JOIN DetailTypes t1 ON t1.ID = p1.DetailID
LEFT JOIN GoodDetails p2 ON p2.Kala = g.Code AND p2.Position = 2
LEFT JOIN DetailTypes t2 ON t2.ID = p2.DetailID
LEFT JOIN GoodDetails p3 ON p3.Kala = g.Code AND p3.Position = 3
LEFT JOIN DetailTypes t3 ON t3.ID = p3.DetailID
LEFT JOIN GoodDetails p4 ON p4.Kala = g.Code AND p4.Position = 4
LEFT JOIN DetailTypes t4 ON t4.ID = p4.DetailID
LEFT JOIN GoodDetails p5 ON p5.Kala = g.Code AND p5.Position = 5
LEFT JOIN DetailTypes t5 ON t5.ID = p5.DetailID
