' The eight classes as a script sees them: variables change in place, failures come as errors, every class answers.
failed = 0

Sub Check(what, actual, expected)
    If actual <> expected Then
        failed = failed + 1
        WScript.Echo what & ": " & actual & " instead of " & expected
    End If
End Sub

Set info = CreateObject("Vintrel.ServerInfo")
Set options = CreateObject("Vintrel.SetServerOptions")
Set program = CreateObject("Vintrel.ComProgramSet")
Set enabled = CreateObject("Vintrel.ServiceEnabled")
Set orders = CreateObject("Vintrel.ComEventsTX")
Set events = CreateObject("Vintrel.ComEventsRX")
Set gdv = CreateObject("Vintrel.ComGdvFilter")
Set pms = CreateObject("Vintrel.PMSEvents")

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

record = "  GI|RN12|GNRossi|  "
Check "field", pms.GetPMS_ColumnData(record, "|GN"), "Rossi"
Check "trimmed in place", record, "GI|RN12|GNRossi|"

' Answers of the per-model tables, of every type and with every character that a text may hold.
Check "STX", program.GetComSTXRx(), Chr(2)
Check "reconnection", program.GetPABXTCPIPREConnection("TYPE10019"), 65500
Check "confirmation of the password", program.GetPABXTCPIPPWConfirm("TYPE10019"), "*" & Chr(13)
Check "request of the user", program.GetPABXTCPIPIDRequest2("TYPE10014"), "Username: "
Check "interval", orders.ComPortTXInterval("TYPE10006"), 130
Check "error handling of FIAS", orders.ComEventErrorHandleTX("TYPE12000"), ""
Check "confirmation", orders.ComEventConfirmLogInTX("TYPE10001"), Chr(21)
Check "negotiation", orders.ComEventConfirmLogInTX("TYPE10016"), Chr(255) & Chr(253) & Chr(1)
Check "login", orders.ComEventRequestLogInTX("TYPE10006"), Chr(13) & "i3mode" & Chr(13) & Chr(13) & Chr(13)
Check "first command", orders.ComEventPrimaryTX("TYPE10004"), "h" & Chr(13) & "h" & Chr(13)
Check "end of a frame", events.GetComEtxEndReadRx("TYPE10009"), Chr(13) & Chr(10)
Check "acknowledgement", events.GetComACKRx("TYPE10017"), Chr(163)
Check "length of a frame", events.GetComLngEndReadRx("TYPE10010"), 292
Check "repeats", events.GetRepeatErrorEventRX("TYPE10002"), 8
Check "columns", events.GetIPXComColumn("TYPE10013"), 25

On Error Resume Next
pms.GetPMS_ColumnData "GI|RN12", "|RN"
Check "error number", Err.Number, 5
On Error Goto 0

If failed = 0 Then WScript.Echo "END"
