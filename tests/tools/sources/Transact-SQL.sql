-- the newest orders
DECLARE @count INT = 0;
SELECT TOP 10 [Id], ISNULL(Name, 'none') FROM dbo.Orders WITH (NOLOCK);
SET @count = @@ROWCOUNT;
PRINT 'rows';
GO
