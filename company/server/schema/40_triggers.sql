-- Keep the folded names and remarks, and the stock row of a new good. Rows that come with their folded remark keep it.
CREATE TRIGGER Stores_Search ON dbo.Stores AFTER INSERT, UPDATE, DELETE AS
BEGIN
  SET NOCOUNT ON;
  IF NOT EXISTS (SELECT 1 FROM inserted) AND NOT EXISTS (SELECT 1 FROM deleted) RETURN;
  IF EXISTS (SELECT 1 FROM inserted) AND NOT UPDATE(Name) AND NOT UPDATE(AbbName) RETURN;
  DELETE n FROM dbo.SearchNames n JOIN deleted d ON n.Kind = 1 AND n.Code = d.Code;
  INSERT INTO dbo.SearchNames(Kind, Code, Name, Abb) SELECT 1, i.Code, dbo.FoldPersian(i.Name), dbo.FoldPersian(i.AbbName) FROM inserted i;
END
GO
CREATE TRIGGER Persons_Search ON dbo.Persons AFTER INSERT, UPDATE, DELETE AS
BEGIN
  SET NOCOUNT ON;
  IF NOT EXISTS (SELECT 1 FROM inserted) AND NOT EXISTS (SELECT 1 FROM deleted) RETURN;
  IF EXISTS (SELECT 1 FROM inserted) AND NOT UPDATE(Name) AND NOT UPDATE(AbbName) RETURN;
  DELETE n FROM dbo.SearchNames n JOIN deleted d ON n.Kind = 2 AND n.Code = d.Code;
  INSERT INTO dbo.SearchNames(Kind, Code, Name, Abb) SELECT 2, i.Code, dbo.FoldPersian(i.Name), dbo.FoldPersian(i.AbbName) FROM inserted i;
END
GO
CREATE TRIGGER GoodInf_Search ON dbo.GoodInf AFTER INSERT, UPDATE, DELETE AS
BEGIN
  SET NOCOUNT ON;
  IF NOT EXISTS (SELECT 1 FROM inserted) AND NOT EXISTS (SELECT 1 FROM deleted) RETURN;
  IF EXISTS (SELECT 1 FROM inserted) AND NOT UPDATE(Name) AND NOT UPDATE(AbbName) RETURN;
  DELETE n FROM dbo.SearchNames n JOIN deleted d ON n.Kind = 6 AND n.Code = d.Code;
  INSERT INTO dbo.SearchNames(Kind, Code, Name, Abb) SELECT 6, i.Code, dbo.FoldPersian(i.Name), dbo.FoldPersian(i.AbbName) FROM inserted i;
  INSERT INTO dbo.GoodStock(Kala) SELECT i.Code FROM inserted i WHERE NOT EXISTS (SELECT 1 FROM dbo.GoodStock s WHERE s.Kala = i.Code);
END
GO
CREATE TRIGGER GoodGrps_Search ON dbo.GoodGrps AFTER INSERT, UPDATE, DELETE AS
BEGIN
  SET NOCOUNT ON;
  IF NOT EXISTS (SELECT 1 FROM inserted) AND NOT EXISTS (SELECT 1 FROM deleted) RETURN;
  IF EXISTS (SELECT 1 FROM inserted) AND NOT UPDATE(Name) RETURN;
  DELETE n FROM dbo.SearchNames n JOIN deleted d ON n.Kind = 16 AND n.Code = d.Code;
  INSERT INTO dbo.SearchNames(Kind, Code, Name, Abb) SELECT 16, i.Code, dbo.FoldPersian(i.Name), N'' FROM inserted i;
END
GO
CREATE TRIGGER Categories_Search ON dbo.Categories AFTER INSERT, UPDATE, DELETE AS
BEGIN
  SET NOCOUNT ON;
  IF NOT EXISTS (SELECT 1 FROM inserted) AND NOT EXISTS (SELECT 1 FROM deleted) RETURN;
  IF EXISTS (SELECT 1 FROM inserted) AND NOT UPDATE(Name) RETURN;
  DELETE n FROM dbo.SearchNames n JOIN deleted d ON n.Kind = 17 AND n.Code = d.Code;
  INSERT INTO dbo.SearchNames(Kind, Code, Name, Abb) SELECT 17, i.Code, dbo.FoldPersian(i.Name), N'' FROM inserted i;
END
GO
CREATE TRIGGER Units_Search ON dbo.Units AFTER INSERT, UPDATE, DELETE AS
BEGIN
  SET NOCOUNT ON;
  IF NOT EXISTS (SELECT 1 FROM inserted) AND NOT EXISTS (SELECT 1 FROM deleted) RETURN;
  IF EXISTS (SELECT 1 FROM inserted) AND NOT UPDATE(Name) RETURN;
  DELETE n FROM dbo.SearchNames n JOIN deleted d ON n.Kind = 18 AND n.Code = d.Code;
  INSERT INTO dbo.SearchNames(Kind, Code, Name, Abb) SELECT 18, i.Code, dbo.FoldPersian(i.Name), N'' FROM inserted i;
END
GO
CREATE TRIGGER Kardex_Search ON dbo.Kardex AFTER INSERT, UPDATE AS
BEGIN
  SET NOCOUNT ON;
  IF NOT UPDATE(Comment) RETURN;
  UPDATE k SET CommentSearch = CASE WHEN DATALENGTH(k.Comment) = 0 THEN NULL ELSE dbo.FoldPersian(k.Comment) END
  FROM dbo.Kardex k JOIN inserted i ON k.Kala = i.Kala AND k.Date = i.Date AND k.Radif = i.Radif
  WHERE k.CommentSearch IS NOT NULL AND EXISTS (SELECT 1 FROM deleted) OR k.CommentSearch IS NULL AND DATALENGTH(k.Comment) > 0;
END
GO
CREATE TRIGGER DetailKardex_Search ON dbo.DetailKardex AFTER INSERT, UPDATE AS
BEGIN
  SET NOCOUNT ON;
  IF NOT UPDATE(Comment) RETURN;
  UPDATE k SET CommentSearch = CASE WHEN DATALENGTH(k.Comment) = 0 THEN NULL ELSE dbo.FoldPersian(k.Comment) END
  FROM dbo.DetailKardex k JOIN inserted i ON k.Kala = i.Kala AND k.Date = i.Date AND k.Radif = i.Radif AND k.DetailValueID = i.DetailValueID
  WHERE k.CommentSearch IS NOT NULL AND EXISTS (SELECT 1 FROM deleted) OR k.CommentSearch IS NULL AND DATALENGTH(k.Comment) > 0;
END
GO
