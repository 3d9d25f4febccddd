' Walks all models through every operation that answers from a per-model table, late-bound as a script host calls:
' each answer has its type, and the caller's code comes back in upper case. Then the rows that break a pattern.
Option Explicit

Dim info, link, services, tx, rx
Set info = CreateObject("Vintrel.ServerInfo")
Set link = CreateObject("Vintrel.ComProgramSet")
Set services = CreateObject("Vintrel.ServiceEnabled")
Set tx = CreateObject("Vintrel.ComEventsTX")
Set rx = CreateObject("Vintrel.ComEventsRX")

Dim failures, answers, model, code, number
failures = 0
answers = 0

Sub Fail(text)
    failures = failures + 1
    WScript.Echo "FAILED: " & text
End Sub

' kind: vbInteger, vbLong or vbString
Sub Walk(name, answer, kind)
    answers = answers + 1
    If VarType(answer) <> kind Then Fail name & " of " & model & " answers type " & VarType(answer)
    If code <> model Then Fail name & " left the caller's code as " & code
    code = LCase(model)
End Sub

Sub Check(name, answer, expected)
    If CStr(answer) <> expected Then Fail name & " answers " & answer
End Sub

Sub WalkModel(number)
    model = "TYPE" & number
    code = LCase(model)
    Walk "GetPabxActiveType", info.GetPabxActiveType(code), vbInteger

    Walk "ComPortReadyType", link.ComPortReadyType(code), vbInteger
    Walk "ComPortDTRTime", link.ComPortDTRTime(code), vbInteger
    Walk "GetComEtxEndReadRxType", link.GetComEtxEndReadRxType(code), vbInteger
    Walk "GetComMultiDurationReadRx", link.GetComMultiDurationReadRx(code), vbInteger
    Walk "UseDataReadBuffer", link.UseDataReadBuffer(code), vbInteger
    Walk "GetPABXConnectionType", link.GetPABXConnectionType(code), vbInteger
    Walk "GetTCPIPWinsockAB", link.GetTCPIPWinsockAB(code), vbInteger
    Walk "GetTCPIPConnectDirection", link.GetTCPIPConnectDirection(code), vbInteger
    Walk "GetPABXTCPIPConnectionType", link.GetPABXTCPIPConnectionType(code), vbInteger
    Walk "GetPABXTCPIPREConnection", link.GetPABXTCPIPREConnection(code), vbLong
    Walk "GetPABXTCPIPIDRequest", link.GetPABXTCPIPIDRequest(code), vbString
    Walk "GetPABXTCPIPIDConfirm", link.GetPABXTCPIPIDConfirm(code), vbString
    Walk "GetPABXTCPIPPWRequest", link.GetPABXTCPIPPWRequest(code), vbString
    Walk "GetPABXTCPIPPWConfirm", link.GetPABXTCPIPPWConfirm(code), vbString
    Walk "GetPABXTCPIPIDRequest2", link.GetPABXTCPIPIDRequest2(code), vbString
    Walk "GetPABXTCPIPIDConfirm2", link.GetPABXTCPIPIDConfirm2(code), vbString
    Walk "GetPABXTCPIPPWRequest2", link.GetPABXTCPIPPWRequest2(code), vbString
    Walk "GetPABXTCPIPPWConfirm2", link.GetPABXTCPIPPWConfirm2(code), vbString
    Walk "GetPABXTCPIPDLCommand", link.GetPABXTCPIPDLCommand(code), vbString
    Walk "GetCheckInType", link.GetCheckInType(code), vbLong
    Walk "GetINIEnabled", link.GetINIEnabled(code), vbLong

    Walk "GetRoomStateEnabled", services.GetRoomStateEnabled(code), vbInteger
    Walk "GetClockEnabled", services.GetClockEnabled(code), vbInteger
    Walk "GetClockCentral", services.GetClockCentral(code), vbInteger
    Walk "GetCallListEnabled", services.GetCallListEnabled(code), vbInteger
    Walk "GetCheckInOutEnabled", services.GetCheckInOutEnabled(code), vbInteger
    Walk "GetModifyNameEnabled", services.GetModifyNameEnabled(code), vbInteger
    Walk "GetClockDateEnabled", services.GetClockDateEnabled(code), vbInteger
    Walk "GetRoomAlarmEnabled", services.GetRoomAlarmEnabled(code), vbInteger

    Walk "ComPortTxWaitConfirm", tx.ComPortTxWaitConfirm(code), vbInteger
    Walk "ComPortTXIntervalWithWait", tx.ComPortTXIntervalWithWait(code), vbLong
    Walk "ComPortTXInterval", tx.ComPortTXInterval(code), vbLong
    Walk "ComEventConfirmDataRecordTX", tx.ComEventConfirmDataRecordTX(code), vbString
    Walk "ComEventErrorHandleTX", tx.ComEventErrorHandleTX(code), vbString
    Walk "ComEventRequestLogInTX", tx.ComEventRequestLogInTX(code), vbString
    Walk "ComEventConfirmLogInTX", tx.ComEventConfirmLogInTX(code), vbString
    Walk "ComEventDtrRtsEnabled", tx.ComEventDtrRtsEnabled(code), vbInteger
    Walk "ComEventPrimaryTX", tx.ComEventPrimaryTX(code), vbString
    Walk "ComEventAfterTX", tx.ComEventAfterTX(code), vbString

    Walk "GetComLngEndReadRx", rx.GetComLngEndReadRx(code), vbLong
    Walk "GetComEtxEndReadRx", rx.GetComEtxEndReadRx(code), vbString
    Walk "GetComEtxEndReadRx2", rx.GetComEtxEndReadRx2(code), vbString
    Walk "GetComACKRx", rx.GetComACKRx(code), vbString
    Walk "GetRepeatErrorEventRX", rx.GetRepeatErrorEventRX(code), vbInteger
    Walk "GetIPXComColumn", rx.GetIPXComColumn(code), vbInteger
    Walk "GetIPXComSpace", rx.GetIPXComSpace(code), vbInteger
    Walk "GetIPXComComma", rx.GetIPXComComma(code), vbInteger
    Walk "ComEventRequestLogInRX", rx.ComEventRequestLogInRX(code), vbString
    Walk "ComEventConfirmLogInRX", rx.ComEventConfirmLogInRX(code), vbString
End Sub

For number = 10001 To 10020
    WalkModel number
Next
WalkModel 12000
If answers <> 21 * 50 Then Fail "walked " & answers & " answers"

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
Check "GetRoomStateEnabled of 10004", services.GetRoomStateEnabled("TYPE10004"), "0"
Check "GetClockCentral of 10001", services.GetClockCentral("TYPE10001"), "0"
Check "GetClockEnabled of 10017", services.GetClockEnabled("TYPE10017"), "0"
Check "GetClockDateEnabled of 10012", services.GetClockDateEnabled("TYPE10012"), "2"
Check "GetModifyNameEnabled of 10020", services.GetModifyNameEnabled("TYPE10020"), "0"
Check "ComPortTXInterval of 10006", tx.ComPortTXInterval("TYPE10006"), "130"
Check "ComPortTXIntervalWithWait of 10013", tx.ComPortTXIntervalWithWait("TYPE10013"), "10"
Check "ComEventErrorHandleTX of 12000", tx.ComEventErrorHandleTX("TYPE12000"), ""
Check "ComEventConfirmLogInTX of 10001", tx.ComEventConfirmLogInTX("TYPE10001"), Chr(21)
Check "ComEventConfirmLogInTX of 10016", tx.ComEventConfirmLogInTX("TYPE10016"), Chr(255) & Chr(253) & Chr(1)
Check "ComEventRequestLogInTX of 10006", tx.ComEventRequestLogInTX("TYPE10006"), Chr(13) & "i3mode" & Chr(13) & Chr(13) & Chr(13)
Check "ComEventPrimaryTX of 10004", tx.ComEventPrimaryTX("TYPE10004"), "h" & Chr(13) & "h" & Chr(13)
Check "ComEventPrimaryTX of 10005", tx.ComEventPrimaryTX("TYPE10005"), Chr(13) & "h"
Check "GetComLngEndReadRx of 10010", rx.GetComLngEndReadRx("TYPE10010"), "292"
Check "GetComEtxEndReadRx of 10020", rx.GetComEtxEndReadRx("TYPE10020"), Chr(10)
Check "GetComACKRx of 10017", rx.GetComACKRx("TYPE10017"), Chr(163)
Check "GetComACKRx of 10014", rx.GetComACKRx("TYPE10014"), Chr(13) & Chr(10)
Check "GetRepeatErrorEventRX of 10002", rx.GetRepeatErrorEventRX("TYPE10002"), "8"
Check "GetIPXComColumn of 10013", rx.GetIPXComColumn("TYPE10013"), "25"
Check "ComEventRequestLogInRX of 10014", rx.ComEventRequestLogInRX("TYPE10014"), Chr(255) & Chr(251) & Chr(3)
Check "ComEventConfirmLogInRX of 12000", rx.ComEventConfirmLogInRX("TYPE12000"), Chr(6)

If failures = 0 Then WScript.Echo "END"
