' The eight classes as a script sees them: variables change in place, failures come as errors.
Dim failed
failed = 0

Sub Check(what, actual, expected)
    If actual <> expected Then
        failed = failed + 1
        WScript.Echo what & ": " & actual & " instead of " & expected
    End If
End Sub

Dim info, enabled, program, options, orders, events, gdv, pms
Set info = CreateObject("Vintrel.ServerInfo")
Set options = CreateObject("Vintrel.SetServerOptions")
Set program = CreateObject("Vintrel.ComProgramSet")
Set enabled = CreateObject("Vintrel.ServiceEnabled")
Set orders = CreateObject("Vintrel.ComEventsTX")
Set events = CreateObject("Vintrel.ComEventsRX")
Set gdv = CreateObject("Vintrel.ComGdvFilter")
Set pms = CreateObject("Vintrel.PMSEvents")

Dim code
code = "type10017"
Check "name", info.GetPabxTypeName(code), "Avaya - IP Office"
Check "variable in place", code, "TYPE10017"

Dim codes(1)
codes(0) = "type10012"
Check "element", enabled.GetClockDateEnabled(codes(0)), 2
Check "element in place", codes(0), "TYPE10012"

Dim unset
Check "variable that was never set", info.GetPabxTypeName(unset), "type not found"

code = "type10001"
info.GetPabxActiveType code
Check "statement", code, "TYPE10001"

Check "constant", gdv.GetGdvPTYNumberLenStart, 53
options.SetServerLanguage "ITA"

Dim record
record = "  GI|RN12|GNRossi|  "
Check "field", pms.GetPMS_ColumnData(record, "|GN"), "Rossi"
Check "trimmed in place", record, "GI|RN12|GNRossi|"

On Error Resume Next
pms.GetPMS_ColumnData "GI|RN12", "|RN"
Check "error number", Err.Number, 5
On Error Goto 0

If failed = 0 Then WScript.Echo "END"
