program Demo;
uses SysUtils;
var
  i: Integer;
begin
  { counts }
  for i := 1 to 3 do
    WriteLn('row ', i);
end.
