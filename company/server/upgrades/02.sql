-- Version 1 knew prices by the rights to stock values alone.
ALTER TABLE dbo.Users ADD SeesPrices bigint NOT NULL DEFAULT 1;
GO
UPDATE dbo.Users SET SeesPrices = 0
WHERE EveryRight = 0
  AND NOT EXISTS (SELECT 1 FROM dbo.UserRights r WHERE r.UserCode = dbo.Users.Code AND r.Permission IN (24, 5021));
GO
