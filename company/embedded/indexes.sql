-- Made after a company has been filled: one sort instead of an insertion a row.
CREATE INDEX GoodInf_ByGroup ON GoodInf(GrpCode);
CREATE INDEX DetailValues_ByGood ON DetailValues(Kala);
CREATE INDEX Kardex_ByDocument ON Kardex(Type, OperationCode);
CREATE INDEX DetailKardex_ByDocument ON DetailKardex(Type, OperationCode);
-- Holds all that the stock of a combination is added up from.
CREATE INDEX DetailKardex_ByValue ON DetailKardex(DetailValueID, Anbar, Type, Amount1);
