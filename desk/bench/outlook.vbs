' What Hublink does with Outlook, as a plain late-bound script does it: the same
' steps one by one, each member by its name. ./bench counts both.
'
'     cscript //nologo outlook.vbs sync                     both synchronisations, without pauses
'     cscript //nologo outlook.vbs call NUMBER LAST FIRST   an incoming call
'     cscript //nologo outlook.vbs calls NUMBER...          calls of people who are known, one after the other
'     cscript //nologo outlook.vbs forwarded NUMBER TO      an incoming call that was forwarded, with a mail
'     cscript //nologo outlook.vbs outgoing NUMBER          an outgoing call
'
' A number that is found with dots or blanks is written bare, but with a last
' argument "kept".
' Quits with 42 at its end; an error on the way ends it otherwise.
Dim outlookApp, contacts, logItem
Const application = 0 ' of the identifier map
Dim lastName, firstName, email
Dim shown ' the contact
Dim rewrites
Dim fieldNames
fieldNames = Array("BusinessTelephoneNumber", "AssistantTelephoneNumber", "CallbackTelephoneNumber", _
    "CompanyMainTelephoneNumber", "ISDNNumber", "RadioTelephoneNumber", "Business2TelephoneNumber", _
    "CarTelephoneNumber", "Home2TelephoneNumber", "HomeTelephoneNumber", "MobileTelephoneNumber", _
    "OtherTelephoneNumber", "PrimaryTelephoneNumber")

OpenOutlook
rewrites = WScript.Arguments(WScript.Arguments.Count - 1) <> "kept"
Select Case WScript.Arguments(0)
    Case "sync" Synchronise
    Case "call" IncomingCall WScript.Arguments(1), WScript.Arguments(2), WScript.Arguments(3)
    Case "calls" IncomingCalls
    Case "forwarded" ForwardedCall WScript.Arguments(1), WScript.Arguments(2)
    Case "outgoing" FindContact WScript.Arguments(1)
    Case Else WScript.Quit 2
End Select
WScript.Quit 42

Sub OpenOutlook()
    Dim session, inbox, journal
    Set logItem = Nothing
    Set outlookApp = CreateObject("Outlook.Application")
    Set session = outlookApp.GetNamespace("MAPI")
    Set contacts = session.GetDefaultFolder(10)
    Set inbox = session.GetDefaultFolder(6)
    Set journal = session.GetDefaultFolder(11)
End Sub

Sub TellUserName(userName)
End Sub

' Numbers

Function PhoneFilter(number)
    Dim n
    PhoneFilter = ""
    For n = 0 To 12
        If n > 0 Then PhoneFilter = PhoneFilter & " or "
        PhoneFilter = PhoneFilter & "[" & fieldNames(n) & "] = '" & number & "'"
    Next
End Function

Function Field(contact, n)
    Select Case n
        Case 0 Field = contact.BusinessTelephoneNumber
        Case 1 Field = contact.AssistantTelephoneNumber
        Case 2 Field = contact.CallbackTelephoneNumber
        Case 3 Field = contact.CompanyMainTelephoneNumber
        Case 4 Field = contact.ISDNNumber
        Case 5 Field = contact.RadioTelephoneNumber
        Case 6 Field = contact.Business2TelephoneNumber
        Case 7 Field = contact.CarTelephoneNumber
        Case 8 Field = contact.Home2TelephoneNumber
        Case 9 Field = contact.HomeTelephoneNumber
        Case 10 Field = contact.MobileTelephoneNumber
        Case 11 Field = contact.OtherTelephoneNumber
        Case 12 Field = contact.PrimaryTelephoneNumber
    End Select
End Function

Sub SetField(contact, n, value)
    Select Case n
        Case 0 contact.BusinessTelephoneNumber = value
        Case 1 contact.AssistantTelephoneNumber = value
        Case 2 contact.CallbackTelephoneNumber = value
        Case 3 contact.CompanyMainTelephoneNumber = value
        Case 4 contact.ISDNNumber = value
        Case 5 contact.RadioTelephoneNumber = value
        Case 6 contact.Business2TelephoneNumber = value
        Case 7 contact.CarTelephoneNumber = value
        Case 8 contact.Home2TelephoneNumber = value
        Case 9 contact.HomeTelephoneNumber = value
        Case 10 contact.MobileTelephoneNumber = value
        Case 11 contact.OtherTelephoneNumber = value
        Case 12 contact.PrimaryTelephoneNumber = value
    End Select
End Sub

' Contacts

Function Filtered(number)
    Dim items
    Set items = contacts.Items
    Set Filtered = items.Find(PhoneFilter(Stripped(number)))
End Function

Function Walked(number)
    Dim items, contact, sought, value, n
    sought = Stripped(number)
    Set items = contacts.Items
    Set contact = items.GetFirst
    Do Until contact Is Nothing
        For n = 0 To 12
            value = Field(contact, n)
            If Stripped(value) = sought Then
                If value <> sought And rewrites Then
                    SetField contact, n, sought
                    contact.Close 0
                End If
                Set Walked = contact
                Exit Function
            End If
        Next
        Set contact = items.GetNext
    Loop
    Set Walked = Nothing
End Function

Function FindContact(number)
    Dim contact
    FindContact = ""
    Set contact = Filtered(number)
    If contact Is Nothing Then Set contact = Walked(number)
    If contact Is Nothing Then Exit Function
    lastName = contact.LastName
    firstName = contact.FirstName
    email = contact.Email1Address
    FindContact = contact.EntryID
End Function

Function ShowContact(number)
    Dim contact
    Set contact = Filtered(number)
    If contact Is Nothing Then Set contact = Walked(number)
    ShowContact = Not contact Is Nothing
    If Not ShowContact Then Exit Function
    contact.Display
    Set shown = contact
End Function

Function NewContact(number, last, first, display)
    Dim contact
    Set contact = contacts.Items.Add
    contact.FirstName = first
    contact.LastName = last
    contact.BusinessTelephoneNumber = Stripped(number)
    contact.Close 0
    If display Then contact.Display
    NewContact = contact.EntryID
    WriteLog "New contact " & Stripped(number) & " " & last & " " & first
End Function

' The log item

Sub WriteLog(text)
    Dim stamp
    stamp = Now
    If logItem Is Nothing Then
        Set logItem = outlookApp.CreateItem(4)
        logItem.Subject = "Connector Log"
        logItem.Start = stamp
        logItem.End = stamp
        logItem.Type = "Pavex Connector"
        logItem.Body = stamp & " " & text
    Else
        logItem.End = stamp
        logItem.Body = logItem.Body & vbLf & stamp & " " & text
    End If
    logItem.Close 0
End Sub

' The synchronisations

Sub MirrorEntry(entry, created)
    Dim number, id, known, last, first
    number = Stripped(entry.Number)
    id = entry.IdHigh & "." & entry.IdLow
    If Mapped(id) <> "" Then Exit Sub
    known = FindContact(number)
    If known = "" Then
        created = created + 1
        last = entry.LastName
        first = entry.FirstName
        WriteLog created & " In OutLook " & number & " " & last & " " & first
        known = NewContact(entry.Number, entry.LastName, entry.FirstName, False)
    End If
    map.InsertId known, id, application, 1
End Sub

Function NewCallRecord(call_)
    Dim item, subject, number, known
    Set item = outlookApp.CreateItem(4)
    subject = ""
    If call_.Incoming Then subject = "* "
    number = call_.Number
    If number = "" Then
        subject = subject & "No identity"
    Else
        known = FindContact(number)
        If known = "" Then
            lastName = call_.LastName
            firstName = call_.FirstName
        End If
        subject = subject & firstName & " " & lastName & " (" & number & ")"
    End If
    item.Subject = subject
    item.Start = call_.BeginDate
    item.End = call_.EndDate
    item.Type = "Phone Call"
    If number <> "" Then
        If known <> "" Then item.Recipients.Add firstName & " " & lastName Else item.Recipients.Add " " & number
    End If
    item.Body = CallText(call_)
    item.Close 0
    NewCallRecord = item.EntryID
End Function

' A call: whose it is, then his contact on the screen, a new one for a stranger.
Sub IncomingCall(number, last, first)
    FindContact number
    If Not ShowContact(number) Then NewContact number, last, first, True
End Sub

' Each window stays for a moment: whoever measures sees it come and go.
Sub IncomingCalls()
    Dim n
    For n = 1 To WScript.Arguments.Count - 1
        IncomingCall WScript.Arguments(n), "", ""
        Pause 0.1
        shown.Close 1
    Next
End Sub

' Not every script host can sleep.
Sub Pause(seconds)
    Dim start
    start = Timer
    Do While Abs(Timer - start) < seconds
    Loop
End Sub

Sub ForwardedCall(number, destination)
    Dim callersFirst, callersLast
    FindContact number
    callersFirst = firstName
    callersLast = lastName
    FindContact destination
    If FindContact(destination) <> "" And email <> "" Then
        ShowMail email, "Please call " & callersFirst & " " & callersLast & " back at " & number
    End If
    ShowContact number
End Sub

Sub ShowMail(address, subject)
    Dim mail
    Set mail = outlookApp.CreateItem(0)
    mail.Subject = subject
    mail.Body = ""
    mail.To = address
    mail.Display
End Sub
