' What both scripts do: they read the softphone's records and keep the identifier map.
' The build puts this before each of them, which say which `application` of the map they
' are, what becomes of the user's name, and what mirrors an entry and a call.
Option Explicit
Dim phone, book, history, map

Sub OpenPhone()
    Dim line, user, userName
    Set phone = CreateObject("Pavex.Application")
    phone.Attached = True
    Set line = phone.Line
    Set user = phone.User
    userName = user.FirstText & " " & user.SecondText
    Set history = phone.History
    Set book = phone.AddressBook
    TellUserName userName
End Sub

Function Stripped(number)
    Stripped = Replace(Replace(number, ".", ""), " ", "")
End Function

' The identifier map

Function Mapped(id)
    Dim text, length
    text = String(1024, Chr(0))
    length = 1024
    Mapped = ""
    If map.ConvertIdOrvel(id, text, length, application) <> 0 Then Mapped = Left(text, length)
End Function

Sub Purge(records, collection)
    Dim second, record, id, dot
    Set second = CreateObject("PavexConvId.OrvelConvertId")
    For Each record In second.idCollection(collection)
        id = record.idOrvel
        dot = InStr(id, ".")
        If records.Find(CLng(Left(id, dot - 1)), CLng(Mid(id, dot + 1))) Is Nothing Then
            second.RemoveIdOrvel id, record.typApplication
        End If
    Next
End Sub

' The synchronisations

Sub Synchronise()
    OpenPhone
    Set map = CreateObject("PavexConvId.OrvelConvertId")
    WriteLog "Start Connector Initialization"
    Purge history, 0
    Purge book, 1
    MirrorBook
    MirrorHistory
    WriteLog "Connector Initialization  Ok"
    map.StopOrvelConvertId
End Sub

Sub MirrorBook()
    Dim index, created
    WriteLog "Start repertory Synchronisation "
    created = 0
    For index = book.Count - 1 To 0 Step -1
        MirrorEntry book.Item(index), created
    Next
    WriteLog "Repertory Synchronisation Ok"
End Sub

Sub MirrorHistory()
    Dim index, call_, id
    WriteLog "start History Synchronisation "
    For index = 0 To history.Count - 1
        Set call_ = history.Item(index)
        id = call_.IdHigh & "." & call_.IdLow
        If Mapped(id) = "" Then map.InsertId NewCallRecord(call_), id, application, 0
    Next
    WriteLog "History Synchronisation Ok"
End Sub

Function CallText(call_)
    CallText = "Outgoing call"
    If call_.Incoming Then CallText = "Incoming call"
    Select Case call_.State
        Case 6, 7, 12, 14 CallText = CallText & " unanswered"
        Case Else
            If call_.Acknowledged = 1 Then CallText = CallText & " acknowledged" Else CallText = CallText & " answered"
    End Select
End Function
