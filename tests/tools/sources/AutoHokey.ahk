; opens the editor
#NoEnv
^!n::
IfWinExist Untitled - Notepad
    WinActivate
else
    Run Notepad
return
MsgBox "done"
