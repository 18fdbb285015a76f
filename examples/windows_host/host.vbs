' A host in VBScript: its login and its environment, and the component's entry list. Start it with
' the script host of the component's width (32-bit: SysWOW64):
'   cscript host.vbs CONNECTIONSTRING FOLDER USER YEAR
' CONNECTIONSTRING is ADO's for the account database, FOLDER the component's.
Option Explicit

Class Login
    Public ConnectionString
    Public UserId
    Public ExemptFromCenterAuth
    Public Year
End Class

Class Named
    Public Name
End Class

' Every month is a period.
Class Account
    Public Year
    Public Function YearStart(ofYear)
        YearStart = DateSerial(ofYear, 1, 1)
    End Function
    Public Function PeriodOf(day)
        PeriodOf = Month(day)
    End Function
    Public Function PeriodStart(day)
        PeriodStart = DateSerial(DatePart("yyyy", day), Month(day), 1)
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
    ' The host keeps its modules' settings in the account; what is not set stays empty.
    Public Function ModuleSetting(moduleName, settingName)
        Dim rows
        Set rows = DataAccess.Query("select cValue from AccInformation where cSysID='" & moduleName & "' and cName='" & settingName & "'", 2)
        If Not rows.EOF Then ModuleSetting = rows("cValue").Value
    End Function
End Class

Dim arguments, ownLogin, ownEnvironment, component
Set arguments = WScript.Arguments
If arguments.Count <> 4 Then
    WScript.Echo "usage: cscript host.vbs CONNECTIONSTRING FOLDER USER YEAR"
    WScript.Quit 2
End If

Set ownLogin = New Login
ownLogin.ConnectionString = arguments(0)
ownLogin.UserId = arguments(2)
ownLogin.ExemptFromCenterAuth = True
ownLogin.Year = CInt(arguments(3))

Set ownEnvironment = New Environment
Set ownEnvironment.Unit = New Named
ownEnvironment.Unit.Name = "Sample company"
Set ownEnvironment.Operator = New Named
ownEnvironment.Operator.Name = arguments(2)
Set ownEnvironment.Account = New Account
ownEnvironment.Account.Year = CInt(arguments(3))
Set ownEnvironment.DataAccess = New DataAccess
ownEnvironment.DataAccess.Connect arguments(0)
ownEnvironment.HostPath = arguments(1)

Set component = CreateObject("Kelvane.PeriodItem")
component.Init ownLogin, ownEnvironment, arguments(1)
component.Show
WScript.Echo "closed"
