' What a script sees of the data-access objects, a line for each fact. Arguments: the report's file,
' the connection string, and a connection string of a server that is not there.
Option Explicit
Dim report, connection, rows, found, affected

Set report = CreateObject("Scripting.FileSystemObject").CreateTextFile(WScript.Arguments(0), True, True)

Sub Say(name, value)
    report.WriteLine name & " = " & value
End Sub

Sub SayError(name)
    report.WriteLine name & " = " & Err.Number & " " & Err.Source
    Err.Clear
End Sub

' A field as its type and its value.
Sub SayField(name)
    Say name, TypeName(rows.Fields(name).Value) & " " & rows.Fields(name).Type & " " & rows(name)
End Sub

' The words for true and false are the locale's.
Function Flag(value)
    Flag = CInt(value)
End Function

On Error Resume Next

Set connection = CreateObject("ADODB.Connection")
Set rows = CreateObject("ADODB.Recordset")
Say "new", connection.State & " " & connection.CursorLocation & " " & rows.State
connection.Execute "select 1"
SayError "execute while closed"
rows.Open "select 1", connection
SayError "open on a closed connection"
connection.Open WScript.Arguments(2)
SayError "no server"
Say "its errors", connection.Errors.Count & " " & connection.Errors(0).SQLState & " " & connection.State
connection.Open "Provider=NoSuchProvider;Driver=x"
SayError "no provider"

connection.ConnectionString = WScript.Arguments(1)
connection.CursorLocation = 3
connection.Open
SayError "open"
Say "open", connection.State
connection.Open
SayError "open twice"
connection.CommitTrans
SayError "commit nothing"

connection.Execute "create table AdoTypes (iNumber int, iTiny tinyint, iSmall smallint, bFlag bit, mAmount money, dblRate float, dDate datetime, cText varchar(60))", affected, 129
SayError "create"
connection.Execute "insert into AdoTypes values (70000, 3, -5, 1, 1234.5678, 0.25, '2004-06-30 12:00:00.123', 'text')"
SayError "insert"
connection.Execute "insert into AdoTypes values (null, null, null, null, null, null, null, null)"
SayError "insert nulls"
connection.Execute "insert into AdoTypes values (1)"
SayError "bad insert"
Say "its errors", connection.Errors.Count & " " & connection.Errors(0).SQLState & " " & Flag(connection.Errors.Item(0).Description <> "")

rows.Open "select * from AdoTypes order by iNumber desc", connection, 3, 1, 1
SayError "rows"
Say "count", rows.RecordCount & " " & Flag(rows.BOF) & " " & Flag(rows.EOF) & " " & rows.Fields.Count
SayField "inumber"
SayField "iTiny"
SayField "iSmall"
Say "bFlag", TypeName(rows("bFlag").Value) & " " & rows("bFlag").Type & " " & Flag(rows("bFlag").Value)
SayField "mAmount"
SayField "dblRate"
SayField "cText"
Say "dDate", TypeName(rows("dDate").Value) & " " & rows("dDate").Type & " " & CDbl(rows("dDate").Value)
Say "by number", rows(0) & " " & rows.Fields(0).Name
found = rows("cNone")
SayError "unknown name"
found = rows(8)
SayError "unknown number"
rows.Fields("iNumber").Value = 5
SayError "set a read-only field"
rows.MoveNext
Say "nulls", TypeName(rows("iNumber").Value) & " " & TypeName(rows("mAmount").Value) & " " & TypeName(rows("cText").Value)
rows.MoveNext
Say "end", Flag(rows.EOF)
found = rows("iNumber")
SayError "field at the end"
rows.MoveNext
SayError "next at the end"
rows.MoveFirst
Say "first again", rows("iNumber")
rows.Open "select 1", connection
SayError "open an open set"
rows.Close
rows.Close
SayError "close twice"

rows.Open "select iNumber from AdoTypes where iNumber = 1", connection
Say "empty", Flag(rows.EOF) & " " & Flag(rows.BOF) & " " & rows.RecordCount
rows.MoveFirst
SayError "first of none"
rows.Close

connection.BeginTrans
rows.Open "select * from AdoTypes where iNumber = 70000", connection, 1, 3
rows.Fields("mAmount").Value = CCur("-0.0001")
rows.Fields("cText").Value = "changed"
rows.Fields("dDate").Value = DateSerial(2005, 1, 31)
rows.Close
SayError "close while editing"
rows.Update
SayError "update"
rows.Close
connection.Close
SayError "close in a transaction"
connection.CommitTrans
Set rows = connection.Execute("select mAmount, cText, dDate from AdoTypes where iNumber = 70000")
Say "written", rows(0) & " " & rows(1) & " " & CDbl(rows(2)) & " " & rows.RecordCount
connection.BeginTrans
connection.Execute "delete from AdoTypes"
connection.RollbackTrans
Set rows = CreateObject("ADODB.Recordset")
rows.Open "select count(*) from AdoTypes", connection
Say "rolled back", rows(0)
connection.Execute "drop table AdoTypes"
SayError "drop"
connection.Close
Say "rows of a closed connection", rows.State
Set connection = Nothing

Say "end of script", "reached"
report.Close
