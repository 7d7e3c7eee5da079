' An independent late-bound client of the identifier map. Quits with 42 when
' everything was as expected; an error that nobody expects ends it otherwise.
Option Explicit
Dim map, idAppli, length, result, entry, seen

Sub Expect(name, actual, expected)
    If actual <> expected Then
        WScript.Echo name & " is " & actual & ", not " & expected
        WScript.Quit 1
    End If
End Sub

Set map = CreateObject("PavexConvId.OrvelConvertId")
map.InsertId "00000000EF12", "5.7", 0, 1
map.InsertId "NoteFour", "5.7", 1, 1
map.InsertId "journal", "9.9", 0, 0

idAppli = String(1024, Chr(0))
length = 1024
result = map.ConvertIdOrvel("5.7", idAppli, length, 0)
Expect "the result", result, 1
Expect "the length", length, 12
Expect "the identifier", Left(idAppli, length), "00000000EF12"

length = 1024
Expect "the result for an unknown identifier", map.ConvertIdOrvel("5.8", idAppli, length, 0), 0

seen = 0
For Each entry In map.idCollection(1)
    Expect "idOrvel", entry.idOrvel, "5.7"
    If entry.typApplication = 1 Then Expect "idAppli", entry.idAppli, "NoteFour"
    map.RemoveIdOrvel entry.idOrvel, entry.typApplication
    seen = seen + 1
Next
Expect "the number of contacts", seen, 2
Expect "the number left", map.idCollection(1).Count, 0
Expect "the number of history items", map.idCollection(0).Count, 1

On Error Resume Next
map.InsertId "", "1.1", 0, 1
Expect "the error's source", Err.Source, "PavexConvId"
Expect "the error's description", Err.Description, "idAppli is empty"
On Error GoTo 0

map.StopOrvelConvertId
Expect "the number after stopping", map.idCollection(0).Count, 1
WScript.Quit 42
