-- Prepares the unit price of every good at a basis, for the money reports that are read next:
-- -1 cost (the moving weighted average); 1, 2, 3 the highest, lowest and last purchase price; 11, 12, 13 the
-- same of sales; 5 a price level, its buying price with @BuyFlag 1 and its selling price with 0, level -100
-- being the consumer price. A good without such a price gets 0; any other basis empties the valuation.
-- parameter @PriceBasis integer default -1
-- parameter @BuyFlag integer default -1
-- parameter @LevelCode integer default -1
-- writes
DELETE FROM RialiStock;

INSERT INTO RialiStock(Kala, Stock)
SELECT g.Code, ifnull((SELECT k.Miangin FROM Kardex k WHERE k.Kala = g.Code
                       ORDER BY k.Date DESC, k.Radif DESC LIMIT 1), 0)
FROM GoodInf g WHERE @PriceBasis = -1;

INSERT INTO RialiStock(Kala, Stock)
SELECT g.Code, ifnull(CASE WHEN @PriceBasis % 10 = 1 THEN dec_max(k.Fi) ELSE dec_min(k.Fi) END, 0)
FROM GoodInf g
LEFT JOIN Kardex k ON k.Kala = g.Code AND k.Type = CASE WHEN @PriceBasis < 10 THEN 2 ELSE 1 END
WHERE @PriceBasis IN (1, 2, 11, 12)
GROUP BY g.Code;

INSERT INTO RialiStock(Kala, Stock)
SELECT g.Code, ifnull((SELECT k.Fi FROM Kardex k
                       WHERE k.Kala = g.Code AND k.Type = CASE WHEN @PriceBasis < 10 THEN 2 ELSE 1 END
                       ORDER BY k.Date DESC, k.Radif DESC LIMIT 1), 0)
FROM GoodInf g WHERE @PriceBasis IN (3, 13);

INSERT INTO RialiStock(Kala, Stock)
SELECT g.Code, CASE WHEN @LevelCode = -100 THEN g.ConsumerPrice
                    ELSE ifnull(CASE WHEN @BuyFlag = 0 THEN c.SellPrice ELSE c.BuyPrice END, 0) END
FROM GoodInf g LEFT JOIN CostLevelPrices c ON c.Kala = g.Code AND c.LevelCode = @LevelCode
WHERE @PriceBasis = 5;
