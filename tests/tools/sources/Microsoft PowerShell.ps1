# lists large files
param([int]$Limit = 100)
$files = Get-ChildItem -Path "C:\Data"
foreach ($file in $files) {
    if ($file.Length -gt $Limit) { Write-Host $file.Name }
}
