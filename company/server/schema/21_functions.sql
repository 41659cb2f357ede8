-- The number that a typed text holds, null when it holds none: digits of either script, "," before the point as thousands
-- separators, an optional sign. More than nine decimals are rounded half away from zero.
CREATE FUNCTION dbo.NumberIn(@text nvarchar(4000)) RETURNS decimal(38,9) AS
BEGIN
  DECLARE @plain nvarchar(4000) = LTRIM(RTRIM(dbo.FoldPersian(@text)));
  DECLARE @point int = CHARINDEX(N'.', @plain);
  DECLARE @whole nvarchar(4000) = CASE WHEN @point = 0 THEN @plain ELSE SUBSTRING(@plain, 1, @point - 1) END;
  DECLARE @decimals nvarchar(4000) = CASE WHEN @point = 0 THEN N'0' ELSE SUBSTRING(@plain, @point + 1, 4000) END;
  DECLARE @digits nvarchar(4000);
  SET @whole = REPLACE(@whole, N',', N'');
  SET @digits = CASE WHEN @whole LIKE N'[-+]%' THEN SUBSTRING(@whole, 2, 4000) ELSE @whole END;
  IF @plain IS NULL OR @digits = N'' OR @decimals = N'' OR @digits LIKE N'%[^0-9]%' OR @decimals LIKE N'%[^0-9]%'
    RETURN NULL;
  RETURN TRY_CONVERT(decimal(38,9), @whole + N'.' + SUBSTRING(@decimals, 1, 30));
END
GO
-- The whole number that a typed text holds, null when it holds none.
CREATE FUNCTION dbo.CodeIn(@text nvarchar(4000)) RETURNS bigint AS
BEGIN
  -- As codes stand where programs wrote them.
  IF LEN(@text) BETWEEN 1 AND 18 AND @text NOT LIKE N'%[^0-9]%' COLLATE Latin1_General_BIN2 RETURN CONVERT(bigint, @text);
  DECLARE @plain nvarchar(4000) = LTRIM(RTRIM(dbo.FoldPersian(@text)));
  DECLARE @digits nvarchar(4000) = CASE WHEN @plain LIKE N'[-+]%' THEN SUBSTRING(@plain, 2, 4000) ELSE @plain END;
  IF @plain IS NULL OR @digits = N'' OR @digits LIKE N'%[^0-9]%' RETURN NULL;
  RETURN TRY_CONVERT(bigint, @plain);
END
GO
-- A typed date as one number yyyymmdd; null for what is none. No calendar is asked.
CREATE FUNCTION dbo.DateIn(@text nvarchar(4000)) RETURNS bigint AS
BEGIN
  DECLARE @plain nvarchar(4000) = LTRIM(RTRIM(dbo.FoldPersian(@text)));
  DECLARE @first int = CHARINDEX(N'/', @plain);
  DECLARE @second int = CASE WHEN @first = 0 THEN 0 ELSE CHARINDEX(N'/', @plain, @first + 1) END;
  IF @plain IS NULL OR @first = 0 OR @second = 0 RETURN NULL;
  DECLARE @year nvarchar(4000) = SUBSTRING(@plain, 1, @first - 1);
  DECLARE @month nvarchar(4000) = SUBSTRING(@plain, @first + 1, @second - @first - 1);
  DECLARE @day nvarchar(4000) = SUBSTRING(@plain, @second + 1, 4000);
  IF LEN(@year) NOT BETWEEN 1 AND 4 OR LEN(@month) NOT BETWEEN 1 AND 2 OR LEN(@day) NOT BETWEEN 1 AND 2 RETURN NULL;
  IF @year LIKE N'%[^0-9]%' OR @month LIKE N'%[^0-9]%' OR @day LIKE N'%[^0-9]%' RETURN NULL;
  RETURN (CONVERT(bigint, @year) * 100 + CONVERT(bigint, @month)) * 100 + CONVERT(bigint, @day);
END
GO
-- A key whose order is that of the Persian alphabet: blanks, digits and A to Z first, then the letters, then all others.
-- Forms of a letter (madde, hamza) count only where the letters are the same.
CREATE FUNCTION dbo.SortKey(@text nvarchar(4000)) RETURNS nvarchar(4000) AS
BEGIN
  DECLARE @folded nvarchar(4000) = LTRIM(RTRIM(dbo.FoldPersian(@text)));
  DECLARE @alphabet nvarchar(40) = N'ءابپتثجچحخدذرزژسشصضطظعغفقکگلمنوهی';
  DECLARE @letters nvarchar(4000) = N'', @forms nvarchar(4000) = N'', @odd int = 0;
  DECLARE @at int = 1, @place int, @form int, @c nvarchar(1), @of nvarchar(1);
  WHILE @at <= LEN(@folded)
  BEGIN
    SET @c = SUBSTRING(@folded, @at, 1);
    SET @form = 9;
    SET @of = @c;
    IF UNICODE(@c) IN (1570, 1571, 1573)
    BEGIN
      SET @form = CASE UNICODE(@c) WHEN 1570 THEN 1 WHEN 1571 THEN 2 ELSE 3 END;
      SET @of = NCHAR(1575);
    END;
    IF UNICODE(@c) = 1572 BEGIN SET @form = 1; SET @of = NCHAR(1608); END;
    IF UNICODE(@c) = 1574 BEGIN SET @form = 1; SET @of = NCHAR(1740); END;
    IF UNICODE(@c) = 1577 BEGIN SET @form = 1; SET @of = NCHAR(1607); END;
    SET @place = CHARINDEX(@of COLLATE Latin1_General_BIN2, @alphabet);
    SET @letters = @letters + CASE WHEN @place > 0 THEN NCHAR(127 + @place)
                                   WHEN UNICODE(@c) < 128 THEN @c ELSE NCHAR(255) + @c END;
    SET @forms = @forms + NCHAR(@form + 32);
    IF @form <> 9 SET @odd = 1;
    SET @at = @at + 1;
  END;
  RETURN @letters + NCHAR(1) + CASE WHEN @odd = 1 THEN @forms ELSE N'' END + NCHAR(42);
END
GO
-- Whether a detail's value lies between two ends, both included: as numbers for the types 3 and 4, as dates for 5, as a
-- Persian reader orders texts for all others. An end that is null is open, and so is an end of a date without a digit.
CREATE FUNCTION dbo.DetailBetween(@type bigint, @value nvarchar(4000), @from nvarchar(4000), @to nvarchar(4000))
RETURNS int AS
BEGIN
  IF @value IS NULL RETURN 0;
  IF @type IN (3, 4)
  BEGIN
    DECLARE @number decimal(38,9) = dbo.NumberIn(@value);
    IF @number IS NULL RETURN 0;
    IF @from IS NOT NULL AND (dbo.NumberIn(@from) IS NULL OR dbo.NumberIn(@from) > @number) RETURN 0;
    IF @to IS NOT NULL AND (dbo.NumberIn(@to) IS NULL OR dbo.NumberIn(@to) < @number) RETURN 0;
    RETURN 1;
  END;
  IF @type = 5
  BEGIN
    DECLARE @date bigint = dbo.DateIn(@value);
    IF @date IS NULL RETURN 0;
    IF dbo.FoldPersian(@from) LIKE N'%[0-9]%' AND (dbo.DateIn(@from) IS NULL OR dbo.DateIn(@from) > @date) RETURN 0;
    IF dbo.FoldPersian(@to) LIKE N'%[0-9]%' AND (dbo.DateIn(@to) IS NULL OR dbo.DateIn(@to) < @date) RETURN 0;
    RETURN 1;
  END;
  DECLARE @one nvarchar(4000) = LTRIM(RTRIM(dbo.FoldPersian(@from)));
  IF @one COLLATE Latin1_General_BIN2 = LTRIM(RTRIM(dbo.FoldPersian(@to)))
    RETURN CASE WHEN LTRIM(RTRIM(dbo.FoldPersian(@value))) COLLATE Latin1_General_BIN2 = @one THEN 1 ELSE 0 END;
  DECLARE @key nvarchar(4000) = dbo.SortKey(@value);
  IF @from IS NOT NULL AND @key COLLATE Latin1_General_BIN2 < dbo.SortKey(@from) RETURN 0;
  IF @to IS NOT NULL AND @key COLLATE Latin1_General_BIN2 > dbo.SortKey(@to) RETURN 0;
  RETURN 1;
END
GO
-- "title: value" of one detail with what stands before it; an empty value adds nothing, one without a title stands alone.
CREATE FUNCTION dbo.DetailJoined(@before nvarchar(4000), @title nvarchar(400), @value nvarchar(400))
RETURNS nvarchar(4000) AS
BEGIN
  IF @value IS NULL OR DATALENGTH(@value) = 0 RETURN @before;
  RETURN CASE WHEN DATALENGTH(@before) = 0 THEN N'' ELSE @before + N' - ' END
       + CASE WHEN @title IS NULL OR DATALENGTH(@title) = 0 THEN N'' ELSE @title + N': ' END + @value;
END
GO
-- The n-th code, from 1, of a text of codes joined with ","; null when there are fewer. What is no number does not count.
CREATE FUNCTION dbo.CodeAt(@codes nvarchar(4000), @n int) RETURNS bigint AS
BEGIN
  DECLARE @rest nvarchar(4000) = @codes + N',', @code bigint, @comma int;
  WHILE CHARINDEX(N',', @rest) > 0
  BEGIN
    SET @comma = CHARINDEX(N',', @rest);
    SET @code = dbo.CodeIn(SUBSTRING(@rest, 1, @comma - 1));
    SET @rest = SUBSTRING(@rest, @comma + 1, 4000);
    IF @code IS NOT NULL
    BEGIN
      SET @n = @n - 1;
      IF @n = 0 RETURN @code;
    END;
  END;
  RETURN NULL;
END
GO
-- 1 when a code stands in both texts of codes, else 0; null when one is null.
CREATE FUNCTION dbo.SharesCode(@a nvarchar(4000), @b nvarchar(4000)) RETURNS int AS
BEGIN
  DECLARE @rest nvarchar(4000) = @b + N',', @held nvarchar(4000) = N',', @code bigint, @comma int, @n int = 1;
  IF @a IS NULL OR @b IS NULL RETURN NULL;
  SET @code = dbo.CodeAt(@a, @n);
  WHILE @code IS NOT NULL
  BEGIN
    SET @held = @held + CONVERT(nvarchar(20), @code) + N',';
    SET @n = @n + 1;
    SET @code = dbo.CodeAt(@a, @n);
  END;
  WHILE CHARINDEX(N',', @rest) > 0
  BEGIN
    SET @comma = CHARINDEX(N',', @rest);
    SET @code = dbo.CodeIn(SUBSTRING(@rest, 1, @comma - 1));
    SET @rest = SUBSTRING(@rest, @comma + 1, 4000);
    IF @code IS NOT NULL AND CHARINDEX(N',' + CONVERT(nvarchar(20), @code) + N',', @held) > 0 RETURN 1;
  END;
  RETURN 0;
END
GO
-- 1 when a folded text holds a folded part; the empty part is in every text.
CREATE FUNCTION dbo.Holds(@text nvarchar(4000), @part nvarchar(4000)) RETURNS int AS
BEGIN
  IF @text IS NULL OR @part IS NULL RETURN 0;
  IF DATALENGTH(@part) = 0 RETURN 1;
  RETURN CASE WHEN CHARINDEX(@part COLLATE Latin1_General_BIN2, @text) > 0 THEN 1 ELSE 0 END;
END
GO
