CREATE VIEW dbo.RialiStock AS SELECT p.Kala, p.Stock FROM dbo.SessionPrices p WHERE p.Session = @@SPID;
GO
CREATE VIEW dbo.GoodInf_VW AS
SELECT g.GrpCode, g.Code, g.Name, s.OperationDate, g.AbbName, g.Pos, g.Unit, g.AvaBgPrd, g.CostBgPrd, g.CurAva,
       g.Status, s.varede, s.sadere, s.gheymat_miangin, g.Unit2, g.AvaBgPrd2, s.Mogodi2, g.Meghdar2, g.kala_type,
       g.kala_index, g.kala_name, g.Meghdar_Formool, g.Store, g.SMSCode, u.Name AS UnitName1, u2.Name AS UnitName2,
       s.Jam_Kol, g.Position, g.MinAva, s.Mogodi, g.category_code, g.Tags
FROM dbo.GoodInf g
JOIN dbo.GoodStock s ON s.Kala = g.Code
JOIN dbo.Units u ON u.Code = g.Unit
JOIN dbo.Units u2 ON u2.Code = g.Unit2;
GO
-- The views that look-ups read; a database that keeps its masters otherwise serves look-ups by views of the same columns.
-- SearchName has the abbreviation too, but for a bar code of digits alone: a few digits of it would find too much.
CREATE VIEW dbo.StoreLookUp_VW AS
SELECT e.Code, e.Name, CONVERT(nvarchar(20), e.Code) AS CodeText,
       n.Name + N' ' + CASE WHEN e.AbbName LIKE N'%[^0-9]%' COLLATE Latin1_General_BIN2 THEN n.Abb ELSE N'' END AS SearchName
FROM dbo.Stores e JOIN dbo.SearchNames n ON n.Kind = 1 AND n.Code = e.Code;
GO
CREATE VIEW dbo.PersonLookUp_VW AS
SELECT e.Code, e.Name, CONVERT(nvarchar(20), e.Code) AS CodeText,
       n.Name + N' ' + CASE WHEN e.AbbName LIKE N'%[^0-9]%' COLLATE Latin1_General_BIN2 THEN n.Abb ELSE N'' END AS SearchName
FROM dbo.Persons e JOIN dbo.SearchNames n ON n.Kind = 2 AND n.Code = e.Code;
GO
CREATE VIEW dbo.GroupLookUp_VW AS
SELECT e.Code, e.Name, CONVERT(nvarchar(20), e.Code) AS CodeText, n.Name AS SearchName
FROM dbo.GoodGrps e JOIN dbo.SearchNames n ON n.Kind = 16 AND n.Code = e.Code;
GO
CREATE VIEW dbo.CategoryLookUp_VW AS
SELECT e.Code, e.Name, CONVERT(nvarchar(20), e.Code) AS CodeText, n.Name AS SearchName, e.ParentCode
FROM dbo.Categories e JOIN dbo.SearchNames n ON n.Kind = 17 AND n.Code = e.Code;
GO
CREATE VIEW dbo.UnitLookUp_VW AS
SELECT e.Code, e.Name, CONVERT(nvarchar(20), e.Code) AS CodeText, n.Name AS SearchName
FROM dbo.Units e JOIN dbo.SearchNames n ON n.Kind = 18 AND n.Code = e.Code;
GO
CREATE VIEW dbo.GoodLookUp_VW AS
SELECT g.Code, g.Name, CONVERT(nvarchar(20), g.Code) AS CodeText,
       n.Name + N' ' + CASE WHEN g.AbbName LIKE N'%[^0-9]%' COLLATE Latin1_General_BIN2 THEN n.Abb ELSE N'' END AS SearchName,
       u.Name AS Unit, u2.Name AS Unit2, g.AbbName, g.UnitKind, t1.Title AS D1Title, t2.Title AS D2Title, t3.Title AS D3Title, t4.Title AS D4Title,
       t5.Title AS D5Title
FROM dbo.GoodInf g
JOIN dbo.SearchNames n ON n.Kind = 6 AND n.Code = g.Code
JOIN dbo.Units u ON u.Code = g.Unit
JOIN dbo.Units u2 ON u2.Code = g.Unit2
LEFT JOIN dbo.GoodDetails p1 ON p1.Kala = g.Code AND p1.Position = 1
LEFT JOIN dbo.DetailTypes t1 ON t1.ID = p1.DetailID
LEFT JOIN dbo.GoodDetails p2 ON p2.Kala = g.Code AND p2.Position = 2
LEFT JOIN dbo.DetailTypes t2 ON t2.ID = p2.DetailID
LEFT JOIN dbo.GoodDetails p3 ON p3.Kala = g.Code AND p3.Position = 3
LEFT JOIN dbo.DetailTypes t3 ON t3.ID = p3.DetailID
LEFT JOIN dbo.GoodDetails p4 ON p4.Kala = g.Code AND p4.Position = 4
LEFT JOIN dbo.DetailTypes t4 ON t4.ID = p4.DetailID
LEFT JOIN dbo.GoodDetails p5 ON p5.Kala = g.Code AND p5.Position = 5
LEFT JOIN dbo.DetailTypes t5 ON t5.ID = p5.DetailID;
GO
CREATE VIEW dbo.TagLookUp_VW AS
SELECT t.Code, t.Name, ISNULL(c.ColorText, N'') AS Background
FROM dbo.TagS t LEFT JOIN dbo.colors c ON c.code = t.color_code;
GO
CREATE VIEW dbo.BusyGoodLookUp_VW AS
SELECT g.Code, g.Name, (SELECT COUNT_BIG(*) FROM dbo.Kardex k WHERE k.Kala = g.Code) AS Movements FROM dbo.GoodInf g;
GO
CREATE VIEW dbo.DocumentLookUp_VW AS
SELECT d.Kind, d.Code, d.Date, d.Percode, p.Name AS PersonName, s.Name AS StoreName, t.Name AS ToStoreName, d.Comment
FROM dbo.Documents d
LEFT JOIN dbo.Persons p ON p.Code = d.Percode
LEFT JOIN dbo.Stores s ON s.Code = d.Anbar
LEFT JOIN dbo.Stores t ON t.Code = d.ToAnbar;
GO
CREATE VIEW dbo.DocumentRowLookUp_VW AS
SELECT k.Type, k.OperationCode, k.OperationRow, k.Radif, k.Kala, g.Name AS KalaName, s.Name AS StoreName,
       m.Name AS MovementName, k.Tedad, u.Name AS UnitName, k.Fi
FROM dbo.Kardex k
JOIN dbo.GoodInf g ON g.Code = k.Kala
JOIN dbo.Units u ON u.Code = g.Unit
LEFT JOIN dbo.Stores s ON s.Code = k.Anbar
JOIN dbo.MovementTypes m ON m.Type = k.Type;
GO
CREATE VIEW dbo.GoodRecordLookUp_VW AS
SELECT g.Code, g.Name, gg.Name AS GroupName, u.Name AS UnitName, u2.Name AS Unit2Name, g.AbbName, g.Position,
       g.Meghdar_Formool, g.MinAva, g.ConsumerPrice, s.Mogodi, s.gheymat_miangin
FROM dbo.GoodInf g
JOIN dbo.GoodGrps gg ON gg.Code = g.GrpCode
JOIN dbo.Units u ON u.Code = g.Unit
JOIN dbo.Units u2 ON u2.Code = g.Unit2
JOIN dbo.GoodStock s ON s.Kala = g.Code;
GO
