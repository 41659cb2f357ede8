-- The tables of a company on a server. Names and columns are those of the embedded company, so that the statements of the
-- reports mean the same. Batches end with GO. Quantities are decimal(19,9), prices decimal(25,9): their products then fit
-- decimal(38,9) without losing a place on the way.
CREATE TABLE dbo.Meta([Key] nvarchar(100) COLLATE Latin1_General_BIN2 NOT NULL PRIMARY KEY, Value nvarchar(4000) NOT NULL);
GO
CREATE TABLE dbo.Units(Code bigint NOT NULL PRIMARY KEY, Name nvarchar(400) NOT NULL);
GO
CREATE TABLE dbo.GoodGrps(Code bigint NOT NULL PRIMARY KEY, Name nvarchar(400) NOT NULL);
GO
CREATE TABLE dbo.Stores(
  Code bigint NOT NULL PRIMARY KEY, Name nvarchar(400) NOT NULL, Address nvarchar(1000) NOT NULL DEFAULT N'');
GO
CREATE TABLE dbo.Persons(
  Code bigint NOT NULL PRIMARY KEY, Name nvarchar(400) NOT NULL, Phone nvarchar(400) NOT NULL DEFAULT N'',
  City nvarchar(400) NOT NULL DEFAULT N'');
GO
CREATE TABLE dbo.Categories(
  Code bigint NOT NULL PRIMARY KEY, Name nvarchar(400) NOT NULL, ParentCode bigint NOT NULL DEFAULT 0);
GO
CREATE TABLE dbo.colors(
  code bigint NOT NULL PRIMARY KEY, Title nvarchar(400) NOT NULL, ColorText nvarchar(40) NOT NULL,
  [H-img] nvarchar(40) NOT NULL);
GO
CREATE TABLE dbo.TagS(
  Code bigint NOT NULL PRIMARY KEY, Name nvarchar(400) NOT NULL, color_code bigint NOT NULL REFERENCES dbo.colors(code));
GO
CREATE TABLE dbo.GoodInf(
  GrpCode bigint NOT NULL REFERENCES dbo.GoodGrps(Code),
  Code bigint NOT NULL PRIMARY KEY,
  Name nvarchar(400) NOT NULL,
  AbbName nvarchar(400) NOT NULL DEFAULT N'',
  Pos nvarchar(400) NOT NULL DEFAULT N'',
  Unit bigint NOT NULL REFERENCES dbo.Units(Code),
  AvaBgPrd decimal(19,9) NOT NULL DEFAULT 0,
  CostBgPrd decimal(25,9) NOT NULL DEFAULT 0,
  CurAva bigint NOT NULL DEFAULT 0,
  Status bigint NOT NULL DEFAULT 0,
  Unit2 bigint NOT NULL DEFAULT 0 REFERENCES dbo.Units(Code),
  AvaBgPrd2 decimal(19,9) NOT NULL DEFAULT 0,
  Meghdar2 decimal(19,9) NULL,
  kala_type nvarchar(400) NOT NULL DEFAULT N'',
  kala_index nvarchar(400) NOT NULL DEFAULT N'',
  kala_name nvarchar(400) NOT NULL DEFAULT N'',
  Meghdar_Formool decimal(19,9) NULL,
  Store bigint NOT NULL DEFAULT 0,
  SMSCode nvarchar(400) NOT NULL DEFAULT N'',
  Position nvarchar(400) NOT NULL DEFAULT N'',
  MinAva decimal(19,9) NOT NULL DEFAULT 0,
  ConsumerPrice decimal(25,9) NOT NULL DEFAULT 0,
  UnitKind bigint NOT NULL DEFAULT 2 CHECK(UnitKind BETWEEN 1 AND 5),
  category_code nvarchar(400) NOT NULL DEFAULT N'',
  Tags nvarchar(400) NOT NULL DEFAULT N'');
GO
-- Names as they are searched, kept by triggers: Kind is the kind of entity as look-ups number it, Abb the folded
-- abbreviation of a good.
CREATE TABLE dbo.SearchNames(
  Kind int NOT NULL, Code bigint NOT NULL,
  Name nvarchar(400) COLLATE Latin1_General_BIN2 NOT NULL, Abb nvarchar(400) COLLATE Latin1_General_BIN2 NOT NULL,
  PRIMARY KEY(Kind, Code));
GO
CREATE TABLE dbo.MovementTypes(
  Type bigint NOT NULL PRIMARY KEY, Kind bigint NOT NULL, Sign bigint NOT NULL, PriceIsCost bigint NOT NULL,
  Name nvarchar(400) NOT NULL);
GO
-- CommentSearch is the folded remark, null where there is none; kept by triggers.
CREATE TABLE dbo.Kardex(
  Kala bigint NOT NULL,
  Date nvarchar(10) COLLATE Latin1_General_BIN2 NOT NULL,
  Radif bigint NOT NULL,
  Anbar bigint NOT NULL,
  Percode bigint NOT NULL DEFAULT 0,
  Tedad decimal(19,9) NOT NULL,
  Meghdar2 decimal(19,9) NOT NULL DEFAULT 0,
  Gheymat decimal(25,9) NOT NULL,
  Fi decimal(25,9) NOT NULL,
  Miangin decimal(25,9) NOT NULL,
  Type bigint NOT NULL,
  OperationCode bigint NOT NULL,
  OperationRow bigint NOT NULL,
  Comment nvarchar(1000) NOT NULL DEFAULT N'',
  Code AS (Radif),
  CommentSearch nvarchar(1000) COLLATE Latin1_General_BIN2 NULL,
  CONSTRAINT PK_Kardex PRIMARY KEY(Kala, Date, Radif));
GO
CREATE TABLE dbo.Documents(
  Kind bigint NOT NULL,
  Code bigint NOT NULL,
  Date nvarchar(10) COLLATE Latin1_General_BIN2 NOT NULL,
  Percode bigint NOT NULL,
  Anbar bigint NOT NULL,
  ToAnbar bigint NOT NULL DEFAULT 0,
  Comment nvarchar(1000) NOT NULL DEFAULT N'',
  PRIMARY KEY(Kind, Code));
GO
CREATE TABLE dbo.DetailTypes(
  ID bigint NOT NULL PRIMARY KEY, Title nvarchar(400) NOT NULL, DetailType bigint NOT NULL,
  DateType bigint NOT NULL DEFAULT 0);
GO
CREATE TABLE dbo.DetailTypesItems(
  DetailID bigint NOT NULL REFERENCES dbo.DetailTypes(ID), Row bigint NOT NULL, Value nvarchar(400) NOT NULL,
  PRIMARY KEY(DetailID, Row));
GO
CREATE TABLE dbo.GoodDetails(
  Kala bigint NOT NULL REFERENCES dbo.GoodInf(Code), Position bigint NOT NULL CHECK(Position BETWEEN 1 AND 5),
  DetailID bigint NOT NULL REFERENCES dbo.DetailTypes(ID), PRIMARY KEY(Kala, Position));
GO
CREATE TABLE dbo.DetailValues(
  ID bigint NOT NULL PRIMARY KEY, Kala bigint NOT NULL REFERENCES dbo.GoodInf(Code),
  D1Value nvarchar(400) NOT NULL DEFAULT N'', D2Value nvarchar(400) NOT NULL DEFAULT N'',
  D3Value nvarchar(400) NOT NULL DEFAULT N'', D4Value nvarchar(400) NOT NULL DEFAULT N'',
  D5Value nvarchar(400) NOT NULL DEFAULT N'');
GO
CREATE TABLE dbo.DetailKardex(
  Kala bigint NOT NULL,
  Date nvarchar(10) COLLATE Latin1_General_BIN2 NOT NULL,
  Radif bigint NOT NULL,
  DetailValueID bigint NOT NULL REFERENCES dbo.DetailValues(ID),
  Anbar bigint NOT NULL,
  Percode bigint NOT NULL,
  Type bigint NOT NULL,
  OperationCode bigint NOT NULL,
  OperationRow bigint NOT NULL,
  Amount1 decimal(19,9) NOT NULL,
  Amount2 decimal(19,9) NOT NULL DEFAULT 0,
  Amount3 decimal(19,9) NOT NULL DEFAULT 0,
  Length decimal(19,9) NOT NULL DEFAULT 0,
  Width decimal(19,9) NOT NULL DEFAULT 0,
  Comment nvarchar(1000) NOT NULL DEFAULT N'',
  CommentSearch nvarchar(1000) COLLATE Latin1_General_BIN2 NULL,
  CONSTRAINT PK_DetailKardex PRIMARY KEY(Kala, Date, Radif, DetailValueID));
GO
CREATE TABLE dbo.PlantedMismatches(
  Kala bigint NOT NULL, Anbar bigint NOT NULL, Date nvarchar(10) COLLATE Latin1_General_BIN2 NOT NULL,
  Radif bigint NOT NULL, Type bigint NOT NULL, OperationCode bigint NOT NULL, OperationRow bigint NOT NULL,
  OperationAmount decimal(19,9) NOT NULL, DetailAmount decimal(19,9) NOT NULL, PRIMARY KEY(Kala, Radif));
GO
CREATE TABLE dbo.SelectedLists(
  Code bigint NOT NULL PRIMARY KEY, Title nvarchar(400) NOT NULL, Enable bigint NOT NULL DEFAULT 0,
  DisplayType bigint NOT NULL DEFAULT 0, Type bigint NOT NULL DEFAULT 0);
GO
CREATE TABLE dbo.SelectedListGoods(
  ListCode bigint NOT NULL REFERENCES dbo.SelectedLists(Code), Kala bigint NOT NULL REFERENCES dbo.GoodInf(Code),
  PRIMARY KEY(ListCode, Kala));
GO
CREATE TABLE dbo.costlevel(
  Code bigint NOT NULL PRIMARY KEY, Name nvarchar(400) NOT NULL, CostType bigint NOT NULL DEFAULT 1);
GO
CREATE TABLE dbo.CostLevelPrices(
  LevelCode bigint NOT NULL REFERENCES dbo.costlevel(Code), Kala bigint NOT NULL REFERENCES dbo.GoodInf(Code),
  BuyPrice decimal(25,9) NOT NULL DEFAULT 0, SellPrice decimal(25,9) NOT NULL DEFAULT 0, PRIMARY KEY(LevelCode, Kala));
GO
-- Derived figures, refreshed by their procedures; verify compares them with the movements, so they carry no foreign keys. A
-- good always has its row in GoodStock (a trigger sees to it).
CREATE TABLE dbo.GoodStock(
  Kala bigint NOT NULL PRIMARY KEY,
  varede decimal(21,9) NOT NULL DEFAULT 0,
  sadere decimal(21,9) NOT NULL DEFAULT 0,
  Mogodi decimal(21,9) NOT NULL DEFAULT 0,
  Mogodi2 decimal(21,9) NOT NULL DEFAULT 0,
  gheymat_miangin decimal(25,9) NOT NULL DEFAULT 0,
  Jam_Kol decimal(38,9) NOT NULL DEFAULT 0,
  OperationDate nvarchar(10) COLLATE Latin1_General_BIN2 NOT NULL DEFAULT N'');
GO
CREATE TABLE dbo.GoodStoreStock(
  Kala bigint NOT NULL, Anbar bigint NOT NULL,
  Mogodi decimal(21,9) NOT NULL, varede decimal(21,9) NOT NULL DEFAULT 0, sadere decimal(21,9) NOT NULL DEFAULT 0,
  OperationDate nvarchar(10) COLLATE Latin1_General_BIN2 NOT NULL DEFAULT N'', PRIMARY KEY(Kala, Anbar));
GO
-- The unit prices that a session prepared last: each user asks at a basis of the own.
CREATE TABLE dbo.SessionPrices(
  Session int NOT NULL, Kala bigint NOT NULL, Stock decimal(25,9) NOT NULL DEFAULT 0, PRIMARY KEY(Session, Kala));
GO
CREATE TABLE dbo.Users(
  Code bigint NOT NULL PRIMARY KEY, Login nvarchar(200) COLLATE Latin1_General_BIN2 NOT NULL UNIQUE,
  Name nvarchar(400) NOT NULL, PasswordHash nvarchar(400) NOT NULL, EveryRight bigint NOT NULL DEFAULT 0);
GO
CREATE TABLE dbo.UserRights(
  UserCode bigint NOT NULL REFERENCES dbo.Users(Code), Part bigint NOT NULL, Permission bigint NOT NULL,
  PRIMARY KEY(UserCode, Part, Permission));
GO
CREATE INDEX GoodInf_ByGroup ON dbo.GoodInf(GrpCode);
GO
CREATE INDEX DetailValues_ByGood ON dbo.DetailValues(Kala);
GO
CREATE INDEX Kardex_ByDocument ON dbo.Kardex(Type, OperationCode);
GO
CREATE INDEX DetailKardex_ByDocument ON dbo.DetailKardex(Type, OperationCode);
GO
CREATE INDEX DetailKardex_ByValue ON dbo.DetailKardex(DetailValueID, Anbar, Type) INCLUDE (Amount1);
GO
