#include "call_records.h"

namespace vintrel::server {
namespace {

TEST(Example, ConvertsOutgoingAndIncomingCallsAndRejectsInternalOnes) {
    const struct {
        const char16_t* record;
        const char* fields;
    } rows[] = {
        {u"2026-06-15 09:10:00;O;101;00390612345678;192;3\r\n",
         "00001 00101 00390612345678 0000 0/0/1 0003 00192 15.06.26 09:10 -"},
        {u"2026-06-15 09:20:00;I;102;01632960011;0;0\r\n",
         "00001 00102 01632960011 0000 0/0/7 0000 00000 15.06.26 09:20 -"},
        {u"2026-06-15 09:30:00;L;101;102;36;0\r\n", "rejected"},
    };
    for (const auto& row : rows) EXPECT_EQ(testing::Link(u"TYPE10021").Convert(row.record), row.fields);
}

}  // namespace
}  // namespace vintrel::server
