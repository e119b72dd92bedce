' What a script in VBScript does with the control. Its last line says that it came to its end: cscript
' ends well after a failure, too.
Option Explicit
Dim grid, tags, failed
failed = 0

Sub Check(what, given, wanted)
    If CStr(given) <> CStr(wanted) Then
        WScript.Echo "FAILED: " & what & " is '" & given & "', not '" & wanted & "'"
        failed = failed + 1
    End If
End Sub

Sub CheckError(what, number)
    Check what & ": the error's number", Err.Number, number
    Err.Clear
End Sub

Set grid = CreateObject("Tablio.Tablio")
grid.Rows = 6
grid.Cols = 4
grid.FixedRows = 1
grid.TableClear

' Skipped optional arguments.
grid.SetColProperty 1, "Amount", , 0, 1
Check "the width of a column", grid.ColWidth(1), 1000
Check "its longest text", grid.ColMaxLength(1), 64
grid.ColFormat(1) = "###,##0.00"

' Indexes, by name in any case, in expressions.
Dim row
For row = 1 To grid.Rows - grid.FixedRows
    grid.TextMatrix(row, 0) = "Row " & row
    grid.textmatrix(row, 1) = row * 1000.25
Next
Check "a number", grid.TextMatrix(5, 1), "5001.25"
Check "rows with data", grid.DataCount, 5
Check "a method's Boolean", grid.Checked(1), False
Check "a duplicate", grid.FindDuplicatePrimaryColumn(1), -1

' Currency, dates and Null.
grid.TextMatrix(1, 2) = CCur("12.5")
Check "an amount", grid.TextMatrix(1, 2), CStr(CCur("12.5"))
grid.TextMatrix(1, 2) = DateSerial(2026, 11, 23)
Check "a day", grid.TextMatrix(1, 2), CStr(DateSerial(2026, 11, 23))

' Objects: one matrix, a living font.
Set tags = grid.CellTag
tags.Text(1, 2) = 17
Check "a tag", grid.CellTag.Text(1, 2), 17
Check "the matrix", (grid.CellTag Is tags), True
Set tags.Text(3, 3) = grid
Check "an object as a tag", (tags.Text(3, 3) Is grid), True
Set tags.Text(3, 3) = Nothing
Set tags = CreateObject("Tablio.TMatrix")
tags.Text(9, 9) = "own"
Set grid.CellTag = tags
Check "the host's own matrix", grid.CellTag.Text(9, 9), "own"
grid.Font.Bold = True
Check "the font", grid.Font.Bold, True

On Error Resume Next
grid.TextMatrix(99, 1) = "x"
Check "the message", Err.Description, "TextMatrix: row 99 is outside 0 to 5"
CheckError "a row too far", &H80040201
grid.RemoveRow 2
CheckError "a row to remove without a mark", &H80040201
grid.TextMatrix(70000, 1) = "x"
CheckError "a row beyond 16 bits", 6
grid.ColWidth(1) = "wide"
CheckError "a text for a number", 13
grid.ColWidth(1) = Null
CheckError "Null for a number", 13
grid.AddRow 1
CheckError "an argument too many", 450
grid.DataCount = 1
CheckError "a property that is only read", 438
grid.Nonsense = 1
CheckError "no member", 438
On Error GoTo 0

If failed = 0 Then WScript.Echo "ALL DONE"
