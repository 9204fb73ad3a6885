<%@ Language="VBScript" %>
<html><body>
<% Dim total
   total = 3 ' a comment
   If total > 2 Then Response.Write("many & more") %>
</body></html>
