' A host that tries the component and writes down what happens; trial.cmd starts it. Arguments: the
' report's file, the connection string, the host's folder, the account's year, then the steps in
' order: "init", "show", "unnamed" (a login without a member), "string=TEXT" (another connection
' string for the next login), "year=YEAR" (another account year for the next login), "no-data" (the
' next environments have no data access), "version", "rounds=N" (create, initialise and release so
' often), "use" (handles and memory of this process).
Option Explicit
Dim report, component, connectionString, folder, accountYear, loginYear, hasData, i, action

Set report = CreateObject("Scripting.FileSystemObject").CreateTextFile(WScript.Arguments(0), True, True)
connectionString = WScript.Arguments(1)
folder = WScript.Arguments(2)
accountYear = CInt(WScript.Arguments(3))
loginYear = accountYear
hasData = True

Class Login
    Public ConnectionString
    Public UserId
    Public ExemptFromCenterAuth
    Public Year
End Class

' A login of another program: it has no connection string.
Class OtherLogin
    Public UserId
    Public ExemptFromCenterAuth
    Public Year
End Class

Class Named
    Public Name
End Class

Function YearOf(day)
    YearOf = Year(day)
End Function

Class Account
    Public Year
    Public Function YearStart(ofYear)
        YearStart = DateSerial(ofYear, 1, 1)
    End Function
    Public Function PeriodOf(day)
        PeriodOf = Month(day)
    End Function
    Public Function PeriodStart(day)
        PeriodStart = DateSerial(YearOf(day), Month(day), 1)
    End Function
End Class

Class DataAccess
    Private connection
    Public Sub Connect(text)
        Set connection = CreateObject("ADODB.Connection")
        connection.CursorLocation = 3
        connection.Open text
    End Sub
    Public Function Query(statement, kind)
        Dim rows
        Set rows = CreateObject("ADODB.Recordset")
        rows.Open statement, connection, 3, 1
        Set Query = rows
    End Function
End Class

Class Environment
    Public Unit
    Public Operator
    Public Account
    Public DataAccess
    Public HostPath
    Public Function ModuleSetting(moduleName, settingName)
        Dim rows
        Set rows = DataAccess.Query("select cValue from AccInformation where cSysID='" & moduleName & "' and cName='" & settingName & "'", 2)
        If Not rows.EOF Then ModuleSetting = rows("cValue").Value
    End Function
End Class

Sub Say(text)
    report.WriteLine text
End Sub

Sub SayError(name)
    If Err.Number = 0 Then
        Say name & ": done"
    Else
        Say name & ": " & Hex(Err.Number) & " " & Err.Description
    End If
    Err.Clear
End Sub

Function NewLogin()
    Set NewLogin = New Login
    NewLogin.ConnectionString = connectionString
    NewLogin.UserId = "zhang"
    NewLogin.ExemptFromCenterAuth = True
    NewLogin.Year = loginYear
End Function

Function NewEnvironment()
    Dim made
    Set made = New Environment
    Set made.Unit = New Named
    made.Unit.Name = "Unit of the host"
    Set made.Operator = New Named
    made.Operator.Name = "Operator of the host"
    Set made.Account = New Account
    made.Account.Year = accountYear
    Set made.DataAccess = Nothing
    If hasData Then
        Set made.DataAccess = New DataAccess
        made.DataAccess.Connect WScript.Arguments(1)
    End If
    made.HostPath = folder
    Set NewEnvironment = made
End Function

Sub Init(login)
    Dim answer
    answer = component.Init(login, NewEnvironment(), folder)
    Say "Init gives " & TypeName(answer) & " " & CInt(answer)
End Sub

Sub Rounds(count)
    Dim round, answer
    For round = 1 To count
        Set component = CreateObject("Kelvane.PeriodItem")
        answer = component.Init(NewLogin(), NewEnvironment(), folder)
        Set component = Nothing
    Next
    Say count & " rounds"
End Sub

' The system knows this process by the report's name in its command line. What it does not tell stays
' a question mark.
Sub SayUse()
    Dim process, handles, bytes
    handles = "?"
    bytes = "?"
    On Error Resume Next
    For Each process In GetObject("winmgmts:").ExecQuery("SELECT * FROM Win32_Process WHERE Name='cscript.exe'")
        If InStr(process.CommandLine, WScript.Arguments(0)) > 0 Then
            handles = process.HandleCount
            bytes = process.WorkingSetSize
        End If
    Next
    Err.Clear
    Say handles & " handles, " & bytes & " bytes"
End Sub

On Error Resume Next
Set component = CreateObject("Kelvane.PeriodItem")
SayError "create"
For i = 4 To WScript.Arguments.Count - 1
    action = WScript.Arguments(i)
    If action = "init" Then
        Init NewLogin()
    ElseIf action = "show" Then
        component.Show
    ElseIf action = "unnamed" Then
        Init New OtherLogin
    ElseIf Left(action, 7) = "string=" Then
        connectionString = Mid(action, 8)
    ElseIf Left(action, 5) = "year=" Then
        loginYear = Mid(action, 6)
    ElseIf action = "no-data" Then
        hasData = False
    ElseIf action = "version" Then
        Say "Version " & component.Version
    ElseIf Left(action, 7) = "rounds=" Then
        Rounds CInt(Mid(action, 8))
    ElseIf action = "use" Then
        SayUse
    End If
    If Left(action, 7) <> "string=" And Left(action, 5) <> "year=" And action <> "no-data" Then SayError action
Next
Set component = Nothing
Say "end of script"
report.Close
