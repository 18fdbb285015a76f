// A host in JScript: logs in, opens the list once and ends. Its objects answer with numbers and
// dates of JScript's own kinds. Arguments: the report's file, the connection string, the host's
// folder, the account's year.
var report = new ActiveXObject("Scripting.FileSystemObject")
    .CreateTextFile(WScript.Arguments(0), true, true);
var connectionString = WScript.Arguments(1);
var folder = WScript.Arguments(2);
var accountYear = Number(WScript.Arguments(3));

var connection = new ActiveXObject("ADODB.Connection");
connection.CursorLocation = 3;
connection.Open(connectionString);

var login = {
    ConnectionString: connectionString,
    UserId: "zhang",
    ExemptFromCenterAuth: true,
    Year: accountYear
};
var environment = {
    Unit: { Name: "\u4e3b\u673a\u5355\u4f4d" },
    Operator: { Name: "\u5f20\u4e09" },
    Account: {
        Year: accountYear,
        YearStart: function (year) { return year + "-01-01"; },
        // Some script engines cannot read a date that they are handed: here it is always July.
        PeriodOf: function (day) { return 7; },
        PeriodStart: function (day) { return accountYear + "-07-01"; }
    },
    DataAccess: {
        Query: function (statement, kind) {
            var rows = new ActiveXObject("ADODB.Recordset");
            rows.Open(statement, connection, 3, 1);
            return rows;
        }
    },
    ModuleSetting: function (moduleName, name) {
        var rows = environment.DataAccess.Query("select cValue from AccInformation where cSysID='" +
            moduleName + "' and cName='" + name + "'", 2);
        return rows.EOF ? null : rows.Fields("cValue").Value;
    },
    HostPath: folder
};

try {
    var component = new ActiveXObject("Kelvane.PeriodItem");
    report.WriteLine("Init gives " + component.Init(login, environment, folder));
    component.Show();
    report.WriteLine("Show returned");
} catch (error) {
    report.WriteLine("error " + (error.number >>> 0).toString(16) + " " + error.description);
}
report.WriteLine("end of script");
report.Close();
