' What Hublink does with Notes, as a plain late-bound script does it: the same
' steps one by one, each member by its name. ./bench counts both.
'
'     cscript //nologo notes.vbs sync                        both synchronisations, without pauses
'     cscript //nologo notes.vbs call NUMBER                 an incoming call
'
' Quits with 42 at its end; an error on the way ends it otherwise.
Const personalFile = "names.nsf"
Const historyFile = "pavexhistory.nsf"
Dim notes, logDatabase, historyDatabase, logDocument
Const application = 1 ' of the identifier map
Dim files, servers
Dim lastName, firstName, fullName, mail, noteId, server, base ' of the person found

' Where the books lie that are searched, in their order.
files = Array("company.nsf", "branch.nsf", "names.nsf")
servers = Array("Mail1/Acme", "Mail1/Acme", "")

OpenNotes
Select Case WScript.Arguments(0)
    Case "sync" Synchronise
    Case "call" IncomingCall WScript.Arguments(1)
    Case Else WScript.Quit 2
End Select
WScript.Quit 42

Sub OpenNotes()
    Set logDocument = Nothing
    Set notes = CreateObject("Notes.NotesSession")
    Set logDatabase = notes.GetDatabase("", "connector.nsf")
    Set historyDatabase = notes.GetDatabase("", historyFile)
End Sub

Sub TellUserName(userName)
    notes.SetEnvironmentVar "CTI_PavexUserName", userName
End Sub

' The address books

Function FirstValue(document, item)
    Dim values
    values = document.GetItemValue(item)
    FirstValue = values(0)
End Function

Function Keyed(database, key)
    Dim view
    Set view = database.GetView("Phones")
    Set Keyed = view.GetDocumentByKey(key, True)
End Function

Function Search(number, show)
    Dim n, database, document
    Search = False
    lastName = ""
    firstName = ""
    noteId = ""
    server = ""
    base = ""
    For n = 0 To UBound(files)
        Set database = notes.GetDatabase(servers(n), files(n))
        Set document = Keyed(database, Stripped(number))
        If Not document Is Nothing Then
            lastName = FirstValue(document, "LastName")
            firstName = FirstValue(document, "FirstName")
            fullName = FirstValue(document, "FullName")
            mail = FirstValue(document, "InternetAddress")
            noteId = document.NoteID
            server = servers(n)
            base = files(n)
            If show Then ShowDocument document, n
            Search = True
            Exit Function
        End If
    Next
End Function

Sub ShowDocument(document, n)
    Dim workspace, current, stored, isCurrent
    isCurrent = False
    Set workspace = CreateObject("Notes.NotesUIWorkspace")
    Set current = workspace.CurrentDocument
    If Not current Is Nothing Then
        Set stored = current.Document
        isCurrent = document.NoteID = stored.NoteID
    End If
    Set workspace = CreateObject("Notes.NotesUIWorkspace")
    workspace.OpenDatabase servers(n), files(n)
    workspace.EditDocument False, document
    If isCurrent Then current.Close
End Sub

Function NewContact(number, last, first)
    Dim database, document
    Set database = notes.GetDatabase("", personalFile)
    Set document = database.CreateDocument
    document.Form = "Person"
    document.Type = "Person"
    document.AppendItemValue "OfficePhoneNumber", Stripped(number)
    document.AppendItemValue "FirstName", first
    document.AppendItemValue "LastName", last
    document.AppendItemValue "FullName", first & " " & last
    document.Save True, True
    NewContact = document.NoteID
    WriteLog "Create contact " & Stripped(number) & " " & last & " " & first
End Function

' The log document

Sub WriteLog(text)
    Dim body
    If logDocument Is Nothing Then
        Set logDocument = logDatabase.CreateDocument
        logDocument.Form = "Log"
        logDocument.Type = "Log"
        logDocument.AppendItemValue "Server", "Connector Pavex "
        logDocument.AppendItemValue "Body", vbLf & Now & " " & text
        logDocument.AppendItemValue "Events", "Connector Pavex "
        logDocument.AppendItemValue "StartTime", Now
    Else
        body = FirstValue(logDocument, "Body") & vbLf & Now & " " & text
        logDocument.RemoveItem "Body"
        logDocument.AppendItemValue "Body", body
        logDocument.AppendItemValue "FinishTime", Now
    End If
    logDocument.Save True, True
End Sub

' The synchronisations

Sub MirrorEntry(entry, created)
    Dim number, id, known, last, first, document
    number = Stripped(entry.Number)
    id = entry.IdHigh & "." & entry.IdLow
    If Mapped(id) <> "" Then Exit Sub
    Set document = Keyed(notes.GetDatabase("", personalFile), number)
    If document Is Nothing Then
        created = created + 1
        last = entry.LastName
        first = entry.FirstName
        WriteLog created & " In lotus " & number & " " & last & " " & first
        known = NewContact(entry.Number, entry.LastName, entry.FirstName)
    Else
        known = document.NoteID
    End If
    map.InsertId known, id, application, 1
End Sub

Function NewCallRecord(call_)
    Dim document, number
    Set document = historyDatabase.CreateDocument
    document.Form = "Call"
    document.Type = "Call"
    number = call_.Number
    If number <> "" Then
        number = Stripped(number)
        If Not Search(number, False) Then
            lastName = call_.LastName
            firstName = call_.FirstName
        End If
        document.AppendItemValue "PhoneNumber", number
        document.AppendItemValue "FirstName", firstName
        document.AppendItemValue "LastName", lastName
        document.AppendItemValue "InfoSupdocNoteId", noteId
        document.AppendItemValue "InfoSupServer", server
        document.AppendItemValue "InfoSupBase", base
    End If
    document.AppendItemValue "State", call_.State
    document.AppendItemValue "Incoming", call_.Incoming
    document.AppendItemValue "Acknowledged", call_.Acknowledged
    document.AppendItemValue "BeginDate", call_.BeginDate
    document.AppendItemValue "EndDate", call_.EndDate
    document.AppendItemValue "TypeCall", CallText(call_)
    document.Save True, True
    NewCallRecord = document.NoteID
    RefreshView
End Function

Sub RefreshView()
    Dim workspace, front
    Set workspace = CreateObject("Notes.NotesUIWorkspace")
    Set front = workspace.CurrentDatabase
    If front Is Nothing Then Exit Sub
    If LCase(front.Database.FileName) = LCase(historyDatabase.FileName) Then workspace.ViewRefresh
End Sub

' A call: whose it is, then the document on the screen.
Sub IncomingCall(number)
    notes.SetEnvironmentVar "CTI_InfoLastCall_docid", ""
    If Search(number, False) Then
        notes.SetEnvironmentVar "CTI_InfoLastCall_Server", server
        notes.SetEnvironmentVar "CTI_InfoLastCall_Base", base
        notes.SetEnvironmentVar "CTI_InfoLastCall_docid", noteId
    End If
    Search number, True
End Sub
