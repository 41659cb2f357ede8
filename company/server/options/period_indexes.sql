-- For reports on a period over all goods: its movements lie together, with all that these reports read of them.
CREATE INDEX Kardex_ByPeriod ON dbo.Kardex(Date, Anbar, Kala) INCLUDE (Type, Tedad, Gheymat);
GO
-- For the negative stock card: a good's movements in a store, in their order.
CREATE INDEX Kardex_ByStore ON dbo.Kardex(Anbar, Kala, Date, Radif) INCLUDE (Tedad);
GO
