-- The tables of a company. A DECIMAL cell is an INTEGER of billionths, or, where that does not fit 64 bits, a
-- BLOB of 16 bytes (128 bits, little-endian two's complement). A QUANTITY cell is always INTEGER and within 4.6e18,
-- so that two of them add up without leaving 64 bits.

CREATE TABLE Meta(Key TEXT PRIMARY KEY, Value TEXT NOT NULL) WITHOUT ROWID;

CREATE TABLE Units(Code INTEGER PRIMARY KEY, Name TEXT NOT NULL);
CREATE TABLE GoodGrps(Code INTEGER PRIMARY KEY, Name TEXT NOT NULL);
-- AbbName: a short name that is searched too; of goods, stores and persons whose code was a text elsewhere, that text.
CREATE TABLE Stores(
  Code INTEGER PRIMARY KEY, Name TEXT NOT NULL, Address TEXT NOT NULL DEFAULT '', AbbName TEXT NOT NULL DEFAULT '');
CREATE TABLE Persons(
  Code INTEGER PRIMARY KEY, Name TEXT NOT NULL, Phone TEXT NOT NULL DEFAULT '', City TEXT NOT NULL DEFAULT '',
  AbbName TEXT NOT NULL DEFAULT '');
CREATE TABLE Categories(Code INTEGER PRIMARY KEY, Name TEXT NOT NULL, ParentCode INTEGER NOT NULL DEFAULT 0);

-- ColorText is a colour as grids take it ("$00BBGGRR"); H-img the same colour for pictures ("#RRGGBB").
CREATE TABLE colors(code INTEGER PRIMARY KEY, Title TEXT NOT NULL, ColorText TEXT NOT NULL, "H-img" TEXT NOT NULL);
CREATE TABLE TagS(Code INTEGER PRIMARY KEY, Name TEXT NOT NULL, color_code INTEGER NOT NULL REFERENCES colors(code));

-- Meghdar2: second units that one first unit makes are 1 / Meghdar_Formool; both null without a second unit.
-- Unit2 0 is the nameless unit. UnitKind (1 to 5): which of the measures of a detail row the good uses.
-- Tags and category_code hold codes joined with ",", with a "," at both ends when not empty.
CREATE TABLE GoodInf(
  GrpCode INTEGER NOT NULL REFERENCES GoodGrps(Code),
  Code INTEGER PRIMARY KEY,
  Name TEXT NOT NULL,
  AbbName TEXT NOT NULL DEFAULT '',
  Pos TEXT NOT NULL DEFAULT '',
  Unit INTEGER NOT NULL REFERENCES Units(Code),
  AvaBgPrd DECIMAL NOT NULL DEFAULT 0,
  CostBgPrd DECIMAL NOT NULL DEFAULT 0,
  CurAva INTEGER NOT NULL DEFAULT 0,
  Status INTEGER NOT NULL DEFAULT 0,
  Unit2 INTEGER NOT NULL DEFAULT 0 REFERENCES Units(Code),
  AvaBgPrd2 DECIMAL NOT NULL DEFAULT 0,
  Meghdar2 DECIMAL,
  kala_type TEXT NOT NULL DEFAULT '',
  kala_index TEXT NOT NULL DEFAULT '',
  kala_name TEXT NOT NULL DEFAULT '',
  Meghdar_Formool DECIMAL,
  Store INTEGER NOT NULL DEFAULT 0,
  SMSCode TEXT NOT NULL DEFAULT '',
  Position TEXT NOT NULL DEFAULT '',
  MinAva DECIMAL NOT NULL DEFAULT 0,
  ConsumerPrice DECIMAL NOT NULL DEFAULT 0,
  UnitKind INTEGER NOT NULL DEFAULT 2 CHECK(UnitKind BETWEEN 1 AND 5),
  category_code TEXT NOT NULL DEFAULT '',
  Tags TEXT NOT NULL DEFAULT '');

-- The movement types of the stock card. Kind is the kind of document; Sign the direction that the operation
-- gives; PriceIsCost tells that the price on an incoming row is what the goods cost, and so moves the average.
CREATE TABLE MovementTypes(
  Type INTEGER PRIMARY KEY, Kind INTEGER NOT NULL, Sign INTEGER NOT NULL, PriceIsCost INTEGER NOT NULL,
  Name TEXT NOT NULL);

-- The stock card of every good. Rows of one date are ordered by Radif, which no two rows share.
-- Tedad: quantity, positive incoming; Meghdar2: the same in the second unit, same sign.
-- Gheymat: what one unit cost (outgoing and unpriced incoming rows: the average before the row).
-- Fi: unit price on the document. Miangin: moving weighted average after the row.
CREATE TABLE Kardex(
  Kala INTEGER NOT NULL,
  Date TEXT NOT NULL,
  Radif INTEGER NOT NULL,
  Anbar INTEGER NOT NULL,
  Percode INTEGER NOT NULL DEFAULT 0,
  Tedad QUANTITY NOT NULL CHECK(typeof(Tedad) = 'integer' AND Tedad BETWEEN -4600000000000000000 AND 4600000000000000000),
  Meghdar2 QUANTITY NOT NULL DEFAULT 0 CHECK(typeof(Meghdar2) = 'integer'),
  Gheymat DECIMAL NOT NULL CHECK(typeof(Gheymat) <> 'real'),
  Fi DECIMAL NOT NULL CHECK(typeof(Fi) <> 'real'),
  Miangin DECIMAL NOT NULL CHECK(typeof(Miangin) <> 'real'),
  Type INTEGER NOT NULL,
  OperationCode INTEGER NOT NULL,
  OperationRow INTEGER NOT NULL,
  Comment TEXT NOT NULL DEFAULT '',
  Code INTEGER AS (Radif),
  PRIMARY KEY(Kala, Date, Radif)) WITHOUT ROWID;

-- Headers of the documents; their rows are the stock card's rows of the kind's types and this number.
CREATE TABLE Documents(
  Kind INTEGER NOT NULL,
  Code INTEGER NOT NULL,
  Date TEXT NOT NULL,
  Percode INTEGER NOT NULL,
  Anbar INTEGER NOT NULL,
  ToAnbar INTEGER NOT NULL DEFAULT 0,
  Comment TEXT NOT NULL DEFAULT '',
  PRIMARY KEY(Kind, Code)) WITHOUT ROWID;

-- Details. DetailType: 1 pick list, 2 typed with a list, 3 and 4 numbers, 5 date, 6 typed value.
-- DateType: 1 Jalali for dates, else 0.
CREATE TABLE DetailTypes(
  ID INTEGER PRIMARY KEY, Title TEXT NOT NULL, DetailType INTEGER NOT NULL, DateType INTEGER NOT NULL DEFAULT 0);
CREATE TABLE DetailTypesItems(
  DetailID INTEGER NOT NULL REFERENCES DetailTypes(ID), Row INTEGER NOT NULL, Value TEXT NOT NULL,
  PRIMARY KEY(DetailID, Row)) WITHOUT ROWID;
-- Which detail a good keeps at each of its five positions.
CREATE TABLE GoodDetails(
  Kala INTEGER NOT NULL REFERENCES GoodInf(Code), Position INTEGER NOT NULL CHECK(Position BETWEEN 1 AND 5),
  DetailID INTEGER NOT NULL REFERENCES DetailTypes(ID), PRIMARY KEY(Kala, Position)) WITHOUT ROWID;
-- The combinations of detail values that a good has, by position.
CREATE TABLE DetailValues(
  ID INTEGER PRIMARY KEY, Kala INTEGER NOT NULL REFERENCES GoodInf(Code),
  D1Value TEXT NOT NULL DEFAULT '', D2Value TEXT NOT NULL DEFAULT '', D3Value TEXT NOT NULL DEFAULT '',
  D4Value TEXT NOT NULL DEFAULT '', D5Value TEXT NOT NULL DEFAULT '');
-- Movements of a combination. Radif, Type, OperationCode and OperationRow are those of the stock-card row that
-- they split; Amount1 and Amount2 carry its sign; Length, Width and Amount3 are measures, positive.
CREATE TABLE DetailKardex(
  Kala INTEGER NOT NULL,
  Date TEXT NOT NULL,
  Radif INTEGER NOT NULL,
  DetailValueID INTEGER NOT NULL REFERENCES DetailValues(ID),
  Anbar INTEGER NOT NULL,
  Percode INTEGER NOT NULL,
  Type INTEGER NOT NULL,
  OperationCode INTEGER NOT NULL,
  OperationRow INTEGER NOT NULL,
  Amount1 QUANTITY NOT NULL CHECK(typeof(Amount1) = 'integer'),
  Amount2 QUANTITY NOT NULL DEFAULT 0 CHECK(typeof(Amount2) = 'integer'),
  Amount3 QUANTITY NOT NULL DEFAULT 0 CHECK(typeof(Amount3) = 'integer'),
  Length QUANTITY NOT NULL DEFAULT 0 CHECK(typeof(Length) = 'integer'),
  Width QUANTITY NOT NULL DEFAULT 0 CHECK(typeof(Width) = 'integer'),
  Comment TEXT NOT NULL DEFAULT '',
  PRIMARY KEY(Kala, Date, Radif, DetailValueID)) WITHOUT ROWID;
-- Where the demo company's details were made to disagree with the document's row.
CREATE TABLE PlantedMismatches(
  Kala INTEGER NOT NULL, Anbar INTEGER NOT NULL, Date TEXT NOT NULL, Radif INTEGER NOT NULL, Type INTEGER NOT NULL,
  OperationCode INTEGER NOT NULL, OperationRow INTEGER NOT NULL,
  OperationAmount QUANTITY NOT NULL, DetailAmount QUANTITY NOT NULL, PRIMARY KEY(Kala, Radif)) WITHOUT ROWID;

-- Saved lists of goods; lists of goods have Type 0.
CREATE TABLE SelectedLists(
  Code INTEGER PRIMARY KEY, Title TEXT NOT NULL, Enable INTEGER NOT NULL DEFAULT 0,
  DisplayType INTEGER NOT NULL DEFAULT 0, Type INTEGER NOT NULL DEFAULT 0);
CREATE TABLE SelectedListGoods(
  ListCode INTEGER NOT NULL REFERENCES SelectedLists(Code), Kala INTEGER NOT NULL REFERENCES GoodInf(Code),
  PRIMARY KEY(ListCode, Kala)) WITHOUT ROWID;

-- Price levels; those of goods have CostType 1. -1 and -2 are levels of the company itself.
CREATE TABLE costlevel(Code INTEGER PRIMARY KEY, Name TEXT NOT NULL, CostType INTEGER NOT NULL DEFAULT 1);
CREATE TABLE CostLevelPrices(
  LevelCode INTEGER NOT NULL REFERENCES costlevel(Code), Kala INTEGER NOT NULL REFERENCES GoodInf(Code),
  BuyPrice DECIMAL NOT NULL DEFAULT 0, SellPrice DECIMAL NOT NULL DEFAULT 0,
  PRIMARY KEY(LevelCode, Kala)) WITHOUT ROWID;

-- Derived figures, refreshed by their procedures. A good always has its row in GoodStock.
-- Mogodi2: whole second units in stock.
CREATE TABLE GoodStock(
  Kala INTEGER PRIMARY KEY REFERENCES GoodInf(Code),
  varede DECIMAL NOT NULL DEFAULT 0,
  sadere DECIMAL NOT NULL DEFAULT 0,
  Mogodi DECIMAL NOT NULL DEFAULT 0,
  Mogodi2 DECIMAL NOT NULL DEFAULT 0,
  gheymat_miangin DECIMAL NOT NULL DEFAULT 0,
  Jam_Kol DECIMAL NOT NULL DEFAULT 0,
  OperationDate TEXT NOT NULL DEFAULT '');
CREATE TRIGGER GoodInf_Stock AFTER INSERT ON GoodInf BEGIN
  INSERT OR IGNORE INTO GoodStock(Kala) VALUES(new.Code);
END;
CREATE TABLE GoodStoreStock(
  Kala INTEGER NOT NULL REFERENCES GoodInf(Code), Anbar INTEGER NOT NULL REFERENCES Stores(Code),
  Mogodi DECIMAL NOT NULL, varede DECIMAL NOT NULL DEFAULT 0, sadere DECIMAL NOT NULL DEFAULT 0,
  OperationDate TEXT NOT NULL DEFAULT '', PRIMARY KEY(Kala, Anbar)) WITHOUT ROWID;
-- What reports over a period count of each good's movements (packed_movements.h); it follows from Kardex. Place: the good's
-- code times 64, and further from cell to cell.
CREATE TABLE PackedMovements(Place INTEGER PRIMARY KEY, Data BLOB NOT NULL);
-- The unit price of each good at the basis that was asked for last.
CREATE TABLE RialiStock(Kala INTEGER PRIMARY KEY REFERENCES GoodInf(Code), Stock DECIMAL NOT NULL DEFAULT 0);

CREATE VIEW GoodInf_VW AS
  SELECT g.GrpCode, g.Code, g.Name, s.OperationDate, g.AbbName, g.Pos, g.Unit, g.AvaBgPrd, g.CostBgPrd, g.CurAva,
         g.Status, s.varede, s.sadere, s.gheymat_miangin, g.Unit2, g.AvaBgPrd2, s.Mogodi2, g.Meghdar2, g.kala_type,
         g.kala_index, g.kala_name, g.Meghdar_Formool, g.Store, g.SMSCode, u.Name AS UnitName1, u2.Name AS UnitName2,
         s.Jam_Kol, g.Position, g.MinAva, s.Mogodi, g.category_code, g.Tags
  FROM GoodInf g
  JOIN GoodStock s ON s.Kala = g.Code
  JOIN Units u ON u.Code = g.Unit
  JOIN Units u2 ON u2.Code = g.Unit2;

-- The movements that were taken in from files, so that none is taken in twice: a hash of each batch, when it came
-- ("yyyy-mm-ddThh:mm:ssZ", Gregorian) and its rows.
CREATE TABLE Batches(Hash TEXT PRIMARY KEY, AddedAt TEXT NOT NULL, Movements INTEGER NOT NULL) WITHOUT ROWID;

CREATE TABLE Users(
  Code INTEGER PRIMARY KEY, Login TEXT NOT NULL UNIQUE, Name TEXT NOT NULL, PasswordHash TEXT NOT NULL,
  EveryRight INTEGER NOT NULL DEFAULT 0, SeesPrices INTEGER NOT NULL DEFAULT 1);
CREATE TABLE UserRights(
  UserCode INTEGER NOT NULL REFERENCES Users(Code), Part INTEGER NOT NULL, Permission INTEGER NOT NULL,
  PRIMARY KEY(UserCode, Part, Permission)) WITHOUT ROWID;
-- Failed sign-ins since the last good one, by what was typed as login; LastFailure in seconds since 1970.
CREATE TABLE SignInFailures(
  Login TEXT PRIMARY KEY, Failures INTEGER NOT NULL, LastFailure INTEGER NOT NULL) WITHOUT ROWID;

INSERT INTO MovementTypes(Type, Kind, Sign, PriceIsCost, Name) VALUES
  (0, 1, 1, 1, 'کالای تولیدی در تولید آنالیز ثابت'),
  (1, 2, -1, 0, 'فروش'),
  (2, 3, 1, 1, 'خرید'),
  (3, 4, 1, 1, 'موجودی اول دوره'),
  (4, 5, 1, 0, 'برگشت از فروش'),
  (5, 6, -1, 0, 'برگشت از خرید'),
  (6, 7, -1, 0, 'حواله از انبار'),
  (7, 7, 1, 0, 'حواله به انبار'),
  (8, 8, 1, 1, 'کالای تولیدی در تولید آنالیز متغیر'),
  (9, 8, -1, 0, 'کالای مصرفی در تولید آنالیز متغیر'),
  (10, 1, -1, 0, 'کالای مصرفی در تولید آنالیز ثابت'),
  (11, 9, -1, 0, 'کالای هزینه شده'),
  (12, 2, -1, 0, 'فروش با کالای همراه'),
  (13, 2, -1, 0, 'هدیه در فاکتور فروش'),
  (14, 10, 1, 1, 'ورود با سند حسابداری'),
  (15, 10, -1, 0, 'خروج با سند حسابداری'),
  (16, 10, 1, 1, 'اصلاح افزایشی با سند'),
  (17, 10, -1, 0, 'اصلاح کاهشی با سند'),
  (18, 11, 1, 1, 'کالای تولیدی در تولید پیشرفته'),
  (19, 11, -1, 0, 'کالای مصرفی در تولید پیشرفته'),
  (20, 11, 1, 1, 'محصول جانبی در تولید پیشرفته'),
  (21, 12, -1, 0, 'حواله خروج کالا'),
  (22, 13, 1, 1, 'رسید ورود کالا'),
  (23, 14, 1, 1, 'کالای درآمد شده'),
  (24, 15, -1, 0, 'تقسیم خروج جزییات'),
  (25, 15, 1, 0, 'تقسیم ورود جزییات');
