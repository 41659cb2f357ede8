-- A text as a Persian reader searches it: both spellings of yeh and kaf are one, digits of either script are 0 to 9, A to Z
-- are small letters, and what is not seen (joiners, marks, tatweel, diacritics) is left out. Nothing else changes.
CREATE FUNCTION dbo.FoldPersian(@text nvarchar(4000)) RETURNS nvarchar(4000) WITH SCHEMABINDING AS
BEGIN
  IF @text IS NULL OR DATALENGTH(@text) = 0 RETURN @text;
  -- Nothing to fold.
  IF @text NOT LIKE N'%[^ -@a-z]%' COLLATE Latin1_General_BIN2 RETURN @text COLLATE Latin1_General_BIN2;
  DECLARE @folded nvarchar(4000) = @text COLLATE Latin1_General_BIN2;
  IF @folded LIKE N'%[A-Z]%' COLLATE Latin1_General_BIN2
  BEGIN
    SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, N'A', N'a');
    SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, N'B', N'b');
    SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, N'C', N'c');
    SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, N'D', N'd');
    SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, N'E', N'e');
    SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, N'F', N'f');
    SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, N'G', N'g');
    SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, N'H', N'h');
    SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, N'I', N'i');
    SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, N'J', N'j');
    SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, N'K', N'k');
    SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, N'L', N'l');
    SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, N'M', N'm');
    SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, N'N', N'n');
    SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, N'O', N'o');
    SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, N'P', N'p');
    SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, N'Q', N'q');
    SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, N'R', N'r');
    SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, N'S', N's');
    SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, N'T', N't');
    SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, N'U', N'u');
    SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, N'V', N'v');
    SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, N'W', N'w');
    SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, N'X', N'x');
    SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, N'Y', N'y');
    SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, N'Z', N'z');
  END;
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1776), N'0');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1632), N'0');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1777), N'1');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1633), N'1');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1778), N'2');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1634), N'2');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1779), N'3');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1635), N'3');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1780), N'4');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1636), N'4');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1781), N'5');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1637), N'5');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1782), N'6');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1638), N'6');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1783), N'7');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1639), N'7');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1784), N'8');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1640), N'8');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1785), N'9');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1641), N'9');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1610), NCHAR(1740));
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1609), NCHAR(1740));
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1603), NCHAR(1705));
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1728), NCHAR(1607));
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1600), N'');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1611), N'');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1612), N'');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1613), N'');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1614), N'');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1615), N'');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1616), N'');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1617), N'');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1618), N'');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1619), N'');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1620), N'');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1621), N'');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1622), N'');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1623), N'');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1624), N'');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1625), N'');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1626), N'');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1627), N'');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1628), N'');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1629), N'');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1630), N'');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1631), N'');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(1648), N'');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(8203), N'');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(8204), N'');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(8205), N'');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(8206), N'');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(8207), N'');
  SET @folded = REPLACE(@folded COLLATE Latin1_General_BIN2, NCHAR(65279), N'');
  RETURN @folded;
END
GO
