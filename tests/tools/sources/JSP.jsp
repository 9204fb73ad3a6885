<%@ page language="java" contentType="text/html" %>
<html><body>
<% int count = 3; // a number
   for (int i = 0; i < count; i++) { out.println("row " + i); } %>
<p><%= count %></p>
</body></html>
