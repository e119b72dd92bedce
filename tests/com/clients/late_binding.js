// What a script in JScript does with the control. Its last line says that it came to its end.
var failed = 0;

function check(what, given, wanted) {
    if (given !== wanted) {
        WScript.Echo("FAILED: " + what + " is '" + given + "', not '" + wanted + "'");
        ++failed;
    }
}

function failureOf(action) {
    try {
        action();
    } catch (error) {
        return error.number & 0xFFFF;
    }
    return "nothing";
}

var grid = new ActiveXObject("Tablio.Tablio");
grid.Rows = 4;
grid.Cols = 3;
grid.SetColProperty(1, "Name", 2000);
check("a header", grid.ColTextHeader(1), "Name");
check("a width", grid.ColWidth(1), 2000);
check("what is left out", grid.ColStyle(1), 2);
grid.TextMatrix(1, 1) = "Größe";
check("a text", grid.TextMatrix(1, 1), "Größe");
grid.WordWrap = false;
check("a Boolean", grid.WordWrap, false);
grid.CellTag.Text(1, 1) = 2.5;
check("a tag", grid.CellTag.Text(1, 1), 2.5);
check("no tag", grid.CellTag.Text(2, 1), "");
check("a row too far", failureOf(function () { grid.TextMatrix(99, 1) = "x"; }), 0x201);
// Either the platform's own code or what an engine makes of it.
check("a row beyond 16 bits",
      /^(10|6)$/.test(failureOf(function () { grid.CellFocus(70000, 1); })), true);
check("a text for a number",
      /^(5|13)$/.test(failureOf(function () { grid.Rows = "many"; })), true);

if (failed === 0)
    WScript.Echo("ALL DONE");
