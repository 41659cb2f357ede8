-- Version 2 had no short names of stores and persons, and did not know which files it had taken in.
ALTER TABLE dbo.Stores ADD AbbName nvarchar(400) NOT NULL DEFAULT N'';
GO
ALTER TABLE dbo.Persons ADD AbbName nvarchar(400) NOT NULL DEFAULT N'';
GO
CREATE TABLE dbo.Batches(
  Hash nvarchar(100) COLLATE Latin1_General_BIN2 NOT NULL PRIMARY KEY, AddedAt nvarchar(40) NOT NULL,
  Movements bigint NOT NULL);
GO
