@echo off
rem copies the files
set TARGET=C:\Backup
if not exist %TARGET% mkdir %TARGET%
for %%f in (*.txt) do copy "%%f" %TARGET%
goto :eof
