' a module
Module Demo
    Public Sub Main()
        Dim count As Integer = 3
        If count > 2 Then
            Console.WriteLine("many")
        End If
    End Sub
End Module
