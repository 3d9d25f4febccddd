' Answers from the per-model tables, late-bound as a script host asks: at least one of each operation, and the rows that
' break a pattern.
Option Explicit

Dim info, link, services, tx, rx
Set info = CreateObject("Vintrel.ServerInfo")
Set link = CreateObject("Vintrel.ComProgramSet")
Set services = CreateObject("Vintrel.ServiceEnabled")
Set tx = CreateObject("Vintrel.ComEventsTX")
Set rx = CreateObject("Vintrel.ComEventsRX")

Dim failures
failures = 0

Sub Check(name, answer, expected)
    If CStr(answer) = expected Then Exit Sub
    failures = failures + 1
    WScript.Echo "FAILED: " & name & " answers " & answer
End Sub

Check "GetComSTXRx", link.GetComSTXRx(), Chr(2)
Check "GetComETXRx", link.GetComETXRx(), Chr(3)
Check "GetComDLERx", link.GetComDLERx(), Chr(16)

Check "ComPortReadyType of 10007", link.ComPortReadyType("TYPE10007"), "0"
Check "GetComMultiDurationReadRx of 10002", link.GetComMultiDurationReadRx("TYPE10002"), "1"
Check "UseDataReadBuffer of 10018", link.UseDataReadBuffer("TYPE10018"), "1"
Check "GetPABXConnectionType of 10013", link.GetPABXConnectionType("TYPE10013"), "1"
Check "GetPABXTCPIPREConnection of 10019", link.GetPABXTCPIPREConnection("TYPE10019"), "65500"
Check "GetPABXTCPIPPWConfirm of 10019", link.GetPABXTCPIPPWConfirm("TYPE10019"), "*" & Chr(13)
Check "GetPABXTCPIPIDRequest2 of 10014", link.GetPABXTCPIPIDRequest2("TYPE10014"), "Username: "
Check "GetPABXTCPIPPWRequest2 of 10012", link.GetPABXTCPIPPWRequest2("TYPE10012"), "HTTP"
Check "GetCheckInType of 12000", link.GetCheckInType("TYPE12000"), "1"
Check "GetINIEnabled of 12000", link.GetINIEnabled("TYPE12000"), "0"
Check "ComPortDTRTime of 10003", link.ComPortDTRTime("TYPE10003"), "1"
Check "GetComEtxEndReadRxType of 10019", link.GetComEtxEndReadRxType("TYPE10019"), "2"
Check "GetTCPIPWinsockAB of 10012", link.GetTCPIPWinsockAB("TYPE10012"), "2"
Check "GetTCPIPConnectDirection of 10019", link.GetTCPIPConnectDirection("TYPE10019"), "1"
Check "GetPABXTCPIPConnectionType of 10020", link.GetPABXTCPIPConnectionType("TYPE10020"), "1"
Check "GetPABXTCPIPIDRequest of 10019", link.GetPABXTCPIPIDRequest("TYPE10019"), "-"
Check "GetPABXTCPIPPWConfirm2 of 10016", link.GetPABXTCPIPPWConfirm2("TYPE10016"), "I"
Check "GetRoomStateEnabled of 10004", services.GetRoomStateEnabled("TYPE10004"), "0"
Check "GetClockCentral of 10001", services.GetClockCentral("TYPE10001"), "0"
Check "GetClockEnabled of 10017", services.GetClockEnabled("TYPE10017"), "0"
Check "GetClockDateEnabled of 10012", services.GetClockDateEnabled("TYPE10012"), "2"
Check "GetModifyNameEnabled of 10020", services.GetModifyNameEnabled("TYPE10020"), "0"
Check "GetCallListEnabled of 10007", services.GetCallListEnabled("TYPE10007"), "0"
Check "GetCheckInOutEnabled of 10020", services.GetCheckInOutEnabled("TYPE10020"), "1"
Check "GetRoomAlarmEnabled of 10011", services.GetRoomAlarmEnabled("TYPE10011"), "1"
Check "ComPortTXInterval of 10006", tx.ComPortTXInterval("TYPE10006"), "130"
Check "ComPortTXIntervalWithWait of 10013", tx.ComPortTXIntervalWithWait("TYPE10013"), "10"
Check "ComEventErrorHandleTX of 12000", tx.ComEventErrorHandleTX("TYPE12000"), ""
Check "ComEventConfirmLogInTX of 10001", tx.ComEventConfirmLogInTX("TYPE10001"), Chr(21)
Check "ComEventConfirmLogInTX of 10016", tx.ComEventConfirmLogInTX("TYPE10016"), Chr(255) & Chr(253) & Chr(1)
Check "ComEventRequestLogInTX of 10006", tx.ComEventRequestLogInTX("TYPE10006"), Chr(13) & "i3mode" & Chr(13) & Chr(13) & Chr(13)
Check "ComEventPrimaryTX of 10004", tx.ComEventPrimaryTX("TYPE10004"), "h" & Chr(13) & "h" & Chr(13)
Check "ComEventPrimaryTX of 10005", tx.ComEventPrimaryTX("TYPE10005"), Chr(13) & "h"
Check "ComPortTxWaitConfirm of 10007", tx.ComPortTxWaitConfirm("TYPE10007"), "1"
Check "ComPortTXIntervalWithWait of 10019", tx.ComPortTXIntervalWithWait("TYPE10019"), "30"
Check "ComEventConfirmDataRecordTX of 12000", tx.ComEventConfirmDataRecordTX("TYPE12000"), Chr(6)
Check "ComEventDtrRtsEnabled of 10007", tx.ComEventDtrRtsEnabled("TYPE10007"), "1"
Check "ComEventRequestLogInTX of 10002", tx.ComEventRequestLogInTX("TYPE10002"), Chr(2) & Chr(3)
Check "ComEventAfterTX of 10006", tx.ComEventAfterTX("TYPE10006"), "h" & Chr(13)
Check "GetComLngEndReadRx of 10010", rx.GetComLngEndReadRx("TYPE10010"), "292"
Check "GetComEtxEndReadRx of 10020", rx.GetComEtxEndReadRx("TYPE10020"), Chr(10)
Check "GetComACKRx of 10017", rx.GetComACKRx("TYPE10017"), Chr(163)
Check "GetComACKRx of 10014", rx.GetComACKRx("TYPE10014"), Chr(13) & Chr(10)
Check "GetRepeatErrorEventRX of 10002", rx.GetRepeatErrorEventRX("TYPE10002"), "8"
Check "GetIPXComColumn of 10013", rx.GetIPXComColumn("TYPE10013"), "25"
Check "ComEventRequestLogInRX of 10014", rx.ComEventRequestLogInRX("TYPE10014"), Chr(255) & Chr(251) & Chr(3)
Check "ComEventConfirmLogInRX of 12000", rx.ComEventConfirmLogInRX("TYPE12000"), Chr(6)
Check "GetComEtxEndReadRx of 10009", rx.GetComEtxEndReadRx("TYPE10009"), Chr(13) & Chr(10)
Check "GetComACKRx of 10011", rx.GetComACKRx("TYPE10011"), "@"
Check "GetIPXComComma of 10013", rx.GetIPXComComma("TYPE10013"), "1"
Check "ComEventRequestLogInRX of 12000", rx.ComEventRequestLogInRX("TYPE12000"), "@"
Check "ComEventConfirmLogInRX of 10016", rx.ComEventConfirmLogInRX("TYPE10016"), ""

If failures = 0 Then WScript.Echo "END"
