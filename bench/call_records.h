// One call per converter, for the benchmark: a row more is a converter more. All numbers are invented.
#pragma once

namespace vintrel::bench {

// Times of a COM call that only returns a fresh record. Delimited: the fields are found by commas, keys or marks.
inline constexpr double kFixedColumns = 2.0;
inline constexpr double kDelimited = 4.0;

struct CallRecord {
    const char* converter;
    const wchar_t* code;
    double target;
    const wchar_t* record;
};

// clang-format off
inline constexpr CallRecord kCallRecords[] = {
    {"Avaya Integral", L"TYPE10001", kFixedColumns,
     L"\x02" L"00001002010041448001122   0000001001201920403240802\x03" L""},
    {"Avaya Integral 2", L"TYPE10003", kFixedColumns,
     L"CALL 0001                      2010041448001122       1  1  03/04/24 08:02     192       1"
     L"2             \r\n"},
    {"Mitel", L"TYPE10014", kFixedColumns,
     L"\t  301           10 240304 08:02 00H03M12 00001                12 0041448001122           "
     L"                 0041448001122            001 0001\r\n"},
    {"Alcatel", L"TYPE10009", kFixedColumns,
     L"        401  -->  L0104/03/24 08:02 00:03:12    12          0041448001...... M            "
     L"                ................                     \r\n"},
    {"FIAS posting", L"TYPE12000", kDelimited,
     L"\x02" L"PS|RN102|PTT|MP12|DA240304|TI080215|P#1|DD0041448001122|DU95|\x03" L""},
    {"Algoral", L"TYPE10010", kFixedColumns,
     L"Term.    :  301   001      04 03 2024 08:02                               12             0"
     L" :03 :12                                           U                                   004"
     L"1448001122                                                                                "
     L"                               \r\n"},
    {"Panasonic", L"TYPE10019", kDelimited,
     L"04/03/24 08:02     301 0001 0041-44-800112                                          00:03'"
     L"12 EUR00002.40                \r\n"},
    {"IP Office", L"TYPE10017", kDelimited,
     L"2024/03/04 08:02:11,00:03:12,5,301,O,0041448001122,0041448001122,,0,1000201,0,E301,Room 30"
     L"1,T9005,Line 5.1,0,0,,,,,,,,,,,,,,10.0.0.5,20801,10.0.0.5,20804\r\n"},
    {"innovaphone", L"TYPE10012", kDelimited,
     L"event=A:Rel&time=1781514085&date=20260615-090125&ref=a1b2c3d4e5f6071900905e0010203040&dir="
     L"in&src_if=TEL1&dst_if=GW1&src_cgpn=01632960011&src_cdpn=101&dst_cgpn=01632960011&dst_cdpn="
     L"101&bcaps=03_80_90_a3&xcoder=G711a,20(0,0)&rcoder=G711a,20(0,0)&xstats=0+0+0+0+0&rstats=0+"
     L"0+0+0+0&alert_time=1781514001&connect_time=1781514009&disc_time=1781514084&srv_id=02-00-5e"
     L"-10-20-30\r\n"},
    {"Wildix", L"TYPE10013", kDelimited,
     L"\"12\",\"201\",\"00390612345678\",\"users\",\"\"\"Room 201\"\" <201>\",\"SIP/201-00000001\",\"SIP/BRI1-0000"
     L"0002\",\"Dial\",\"SIP/BRI1/00390612345678,180,o\",\"2026-06-15 09:10:00\",\"2026-06-15 09:10:08\",\""
     L"2026-06-15 09:13:20\",200,192,\"ANSWERED\",\"DOCUMENTATION\",\"1781514001.1\",\"\",\"\",\"\",\"\",\"\",\"\",\""
     L"\",\"\"\n"},
    {"Grandstream", L"TYPE10020", kDelimited,
     L"'81001','4711','1001','00390612345678','outbound-route-1','\"Room 1001\" <1001>','PJSIP/1001"
     L"-000000a1','PJSIP/trunk_1-000000a2','Dial','PJSIP/00390612345678@trunk_1,,TKXM(record-chec"
     L"k,StartMonitor)b(callee-handler^s^1)','2026-06-15 09:10:00','2026-06-15 09:10:08','2026-06"
     L"-15 09:13:20','200','192','ANSWERED','DOCUMENTATION','1781514001.1','Outbound','1001','tru"
     L"nk_1','s','Room 1001','','00390612345678','','','1781514600-1001','1001','DIAL','','Line A"
     L"'\n"},
};

/// The last leg of the IP Office call above would find nothing to add to: this one opens a call that never ends.
inline constexpr CallRecord kTransferredLeg = {
    "IP Office, continued", L"TYPE10017", kDelimited,
    L"2024/03/04 23:59:11,00:03:12,5,0327771102,I,304,0449990304,,0,1000207,1,E304,Room 304,T9002,Line 2.1,0,0,,,,,,,,"
    L",,,,,,10.0.0.5,20801,10.0.0.5,20804\r\n"};
// clang-format on

}  // namespace vintrel::bench
