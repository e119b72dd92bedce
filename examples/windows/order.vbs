' An order in a script: the control as a table with rules, without a window. Once the control is
' registered:
'
'   cscript order.vbs
Option Explicit
Const ColumnInput = 0, ColumnFixedWithAutoNumber = 3
Const ColumnString = 0, ColumnDecimal = 1, ColumnInteger = 2

Dim order, articles, row, total
Set order = CreateObject("Tablio.Tablio")
order.Rows = 2
order.Cols = 4
order.FixedRows = 1
order.FixedCols = 1
' A container would show the control, which begins like this.
order.TableClear

' Header, width in twips, style, editor; what is left out is the default.
order.SetColProperty 0, "No.", 500, ColumnFixedWithAutoNumber
order.SetColProperty 1, "Article", 3000, ColumnInput, ColumnString
order.SetColProperty 2, "Pieces", , ColumnInput, ColumnInteger
order.SetColProperty 3, "Price", , ColumnInput, ColumnDecimal, , , 12, "###,##0.00"
order.PrimaryColumn = 1

articles = Array(Array("Screws", 200, 0.05), Array("Hammer", 1, 1250.5), Array("Nails", 500, 0.02))
For row = 1 To UBound(articles) + 1
    If row > order.Rows - order.FixedRows Then order.AddRow
    order.TextMatrix(row, 1) = articles(row - 1)(0)
    order.TextMatrix(row, 2) = articles(row - 1)(1)
    order.TextMatrix(row, 3) = articles(row - 1)(2)
    ' The host's own value stays with the row.
    order.CellTag.Text(row, 1) = 1000 + row
Next

' Cells show their numbers formatted and give them back plain.
total = 0
For row = 1 To order.DataCount
    total = total + order.TextMatrix(row, 2) * order.TextMatrix(row, 3)
    WScript.Echo order.CellTag.Text(row, 1) & " " & order.TextMatrix(row, 1)
Next
WScript.Echo "Total " & total

' What the table does not have is told.
On Error Resume Next
order.TextMatrix(99, 1) = "x"
WScript.Echo Hex(Err.Number) & ": " & Err.Description
On Error GoTo 0
WScript.Echo "ALL DONE"
