#include "company/embedded/look_up_views.h"

namespace goods {

namespace {

constexpr const char* kNamed = "Code integer, Name text, CodeText text, SearchName text";

// SearchName has the abbreviation too, which is what imported texts for codes become, but for a bar code
// of digits alone: a few digits of it would find too much. It needs no folding here: CHARINDEX folds both of
// its texts.
constexpr LookUpView kViews[] = {
    {"StoreLookUp_VW", kNamed,
     "SELECT Code, Name, CAST(Code AS TEXT) AS CodeText, Name || ' ' || CASE WHEN AbbName GLOB '*[^0-9]*' "
     "THEN AbbName ELSE '' END AS SearchName "
     "FROM Stores"},
    {"PersonLookUp_VW", kNamed,
     "SELECT Code, Name, CAST(Code AS TEXT) AS CodeText, Name || ' ' || CASE WHEN AbbName GLOB '*[^0-9]*' "
     "THEN AbbName ELSE '' END AS SearchName "
     "FROM Persons"},
    {"GroupLookUp_VW", kNamed,
     "SELECT Code, Name, CAST(Code AS TEXT) AS CodeText, Name AS SearchName FROM GoodGrps"},
    {"CategoryLookUp_VW", "Code integer, Name text, CodeText text, SearchName text, ParentCode integer",
     "SELECT Code, Name, CAST(Code AS TEXT) AS CodeText, Name AS SearchName, ParentCode FROM Categories"},
    {"UnitLookUp_VW", kNamed,
     "SELECT Code, Name, CAST(Code AS TEXT) AS CodeText, Name AS SearchName FROM Units"},
    {"GoodLookUp_VW",
     "Code integer, Name text, CodeText text, SearchName text, Unit text, Unit2 text, AbbName text, UnitKind "
     "integer, "
     "D1Title text, D2Title text, D3Title text, D4Title text, D5Title text",
     "SELECT g.Code, g.Name, CAST(g.Code AS TEXT) AS CodeText, g.Name || ' ' || CASE WHEN g.AbbName GLOB "
     "'*[^0-9]*' THEN g.AbbName ELSE '' END AS "
     "SearchName, u.Name AS Unit, u2.Name "
     "AS Unit2, "
     "g.AbbName, g.UnitKind, "
     "(SELECT t.Title FROM GoodDetails d JOIN DetailTypes t ON t.ID = d.DetailID WHERE d.Kala = g.Code AND "
     "d.Position = 1) AS D1Title, "
     "(SELECT t.Title FROM GoodDetails d JOIN DetailTypes t ON t.ID = d.DetailID WHERE d.Kala = g.Code AND "
     "d.Position = 2) AS D2Title, "
     "(SELECT t.Title FROM GoodDetails d JOIN DetailTypes t ON t.ID = d.DetailID WHERE d.Kala = g.Code AND "
     "d.Position = 3) AS D3Title, "
     "(SELECT t.Title FROM GoodDetails d JOIN DetailTypes t ON t.ID = d.DetailID WHERE d.Kala = g.Code AND "
     "d.Position = 4) AS D4Title, "
     "(SELECT t.Title FROM GoodDetails d JOIN DetailTypes t ON t.ID = d.DetailID WHERE d.Kala = g.Code AND "
     "d.Position = 5) AS D5Title "
     "FROM GoodInf g JOIN Units u ON u.Code = g.Unit JOIN Units u2 ON u2.Code = g.Unit2"},
    {"TagLookUp_VW", "Code integer, Name text, Background text",
     "SELECT t.Code, t.Name, ifnull(c.ColorText, '') AS Background FROM TagS t LEFT JOIN colors c ON c.code "
     "= "
     "t.color_code"},
    {"BusyGoodLookUp_VW", "Code integer, Name text, Movements integer",
     "SELECT g.Code, g.Name, (SELECT count(*) FROM Kardex k WHERE k.Kala = g.Code) AS Movements FROM GoodInf "
     "g"},
    {"DocumentLookUp_VW",
     "Kind integer, Code integer, Date text, Percode integer, PersonName text, StoreName text, ToStoreName "
     "text, "
     "Comment text",
     "SELECT d.Kind, d.Code, d.Date, d.Percode, p.Name AS PersonName, s.Name AS StoreName, t.Name AS "
     "ToStoreName, "
     "d.Comment FROM Documents d LEFT JOIN Persons p ON p.Code = d.Percode LEFT JOIN Stores s ON s.Code = "
     "d.Anbar "
     "LEFT JOIN Stores t ON t.Code = d.ToAnbar"},
    {"DocumentRowLookUp_VW",
     "Type integer, OperationCode integer, OperationRow integer, Radif integer, Kala integer, KalaName text, "
     "StoreName text, MovementName text, Tedad quantity, UnitName text, Fi decimal",
     "SELECT k.Type, k.OperationCode, k.OperationRow, k.Radif, k.Kala, g.Name AS KalaName, s.Name AS "
     "StoreName, "
     "m.Name AS MovementName, k.Tedad, u.Name AS UnitName, k.Fi FROM Kardex k JOIN GoodInf g ON g.Code = "
     "k.Kala "
     "JOIN Units u ON u.Code = g.Unit LEFT JOIN Stores s ON s.Code = k.Anbar JOIN MovementTypes m ON m.Type "
     "= k.Type"},
    {"GoodRecordLookUp_VW",
     "Code integer, Name text, GroupName text, UnitName text, Unit2Name text, AbbName text, Position text, "
     "Meghdar_Formool decimal, MinAva decimal, ConsumerPrice decimal, Mogodi decimal, gheymat_miangin "
     "decimal",
     "SELECT g.Code, g.Name, gg.Name AS GroupName, u.Name AS UnitName, u2.Name AS Unit2Name, g.AbbName, "
     "g.Position, "
     "g.Meghdar_Formool, g.MinAva, g.ConsumerPrice, s.Mogodi, s.gheymat_miangin FROM GoodInf g JOIN GoodGrps "
     "gg ON "
     "gg.Code = g.GrpCode JOIN Units u ON u.Code = g.Unit JOIN Units u2 ON u2.Code = g.Unit2 JOIN GoodStock "
     "s ON "
     "s.Kala = g.Code"},
};

}  // namespace

std::span<const LookUpView> LookUpViews() { return kViews; }

}  // namespace goods
