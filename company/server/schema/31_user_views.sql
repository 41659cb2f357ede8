-- Who may sign in, and what they may do, as the signing in reads it; another database serves it by views of these columns.
CREATE VIEW dbo.UserLookUp_VW AS SELECT u.Code, u.Login, u.Name, u.PasswordHash, u.EveryRight, u.SeesPrices FROM dbo.Users u;
GO
CREATE VIEW dbo.UserRightLookUp_VW AS SELECT r.UserCode, r.Part, r.Permission FROM dbo.UserRights r;
GO
