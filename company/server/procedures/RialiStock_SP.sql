-- Prepares the unit price of every good at a basis for the money reports that this session reads next:
-- -1 cost (the moving weighted average); 1, 2, 3 the highest, lowest and last purchase price; 11, 12, 13 the same of
-- sales; 5 a price level, its buying price with @BuyFlag 1 and its selling price with 0, level -100 being the consumer
-- price. A good without such a price gets 0; any other basis empties the valuation.
CREATE PROCEDURE dbo.RialiStock_SP @PriceBasis bigint = -1, @BuyFlag bigint = -1, @LevelCode bigint = -1 AS
BEGIN
  SET NOCOUNT ON;
  SET XACT_ABORT ON;
  DECLARE @type bigint = CASE WHEN @PriceBasis < 10 THEN 2 ELSE 1 END;
  BEGIN TRANSACTION;
  DELETE FROM dbo.SessionPrices WHERE Session = @@SPID;
  IF @PriceBasis = -1
    INSERT INTO dbo.SessionPrices(Session, Kala, Stock)
    SELECT @@SPID, g.Code, ISNULL((SELECT TOP 1 k.Miangin FROM dbo.Kardex k WHERE k.Kala = g.Code
                                   ORDER BY k.Date DESC, k.Radif DESC), 0)
    FROM dbo.GoodInf g;
  IF @PriceBasis IN (1, 2, 11, 12)
    INSERT INTO dbo.SessionPrices(Session, Kala, Stock)
    SELECT @@SPID, g.Code, ISNULL(CASE WHEN @PriceBasis % 10 = 1 THEN MAX(k.Fi) ELSE MIN(k.Fi) END, 0)
    FROM dbo.GoodInf g LEFT JOIN dbo.Kardex k ON k.Kala = g.Code AND k.Type = @type
    GROUP BY g.Code;
  IF @PriceBasis IN (3, 13)
    INSERT INTO dbo.SessionPrices(Session, Kala, Stock)
    SELECT @@SPID, g.Code, ISNULL((SELECT TOP 1 k.Fi FROM dbo.Kardex k WHERE k.Kala = g.Code AND k.Type = @type
                                   ORDER BY k.Date DESC, k.Radif DESC), 0)
    FROM dbo.GoodInf g;
  IF @PriceBasis = 5
    INSERT INTO dbo.SessionPrices(Session, Kala, Stock)
    SELECT @@SPID, g.Code, CASE WHEN @LevelCode = -100 THEN g.ConsumerPrice
                                ELSE ISNULL(CASE WHEN @BuyFlag = 0 THEN c.SellPrice ELSE c.BuyPrice END, 0) END
    FROM dbo.GoodInf g LEFT JOIN dbo.CostLevelPrices c ON c.Kala = g.Code AND c.LevelCode = @LevelCode;
  COMMIT;
END
GO
