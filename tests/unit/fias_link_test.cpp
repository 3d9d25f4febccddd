#include "exchanges/fias/link_records.h"

#include <gtest/gtest.h>

#include "fakes.h"
#include "platform/operation_error.h"
#include "printing.h"

namespace vintrel::exchanges::fias {
namespace {

using testing::Raw;
using testing::Shown;
using text::InOutText;

TEST(FiasLink, LinkRecordsCarryTheLocalDateAndTime) {
    testing::FakeClock clock;
    clock.now = {.year = 2024, .month = 1, .day = 31, .hour = 14, .minute = 5, .second = 9};
    EXPECT_EQ(Shown(GetPMS_LS_String(clock)), "<STX>LS|DA240131|TI140509|<ETX>");
    EXPECT_EQ(Shown(GetPMS_LA_String(clock)), "<STX>LA|DA240131|TI140509|<ETX>");
    EXPECT_EQ(Shown(GetPMS_LE_String(clock)), "<STX>LE|DA240131|TI140509|<ETX>");
    clock.now = {.year = 2009, .month = 12, .day = 1, .hour = 0, .minute = 0, .second = 0};
    EXPECT_EQ(Shown(GetPMS_DE_String(clock)), "<STX>DE|DA091201|TI000000|<ETX>");
}

TEST(FiasLink, AColumnEndsAtTheNextBarAndTheRecordIsTrimmed) {
    const struct {
        const char* record;
        std::u16string_view column;
        const char *value, *left;
    } rows[] = {
        {"  GI|RN12|GNRossi|  ", u"|GN", "Rossi", "GI|RN12|GNRossi|"},
        {"<STX>GI|RN12|GNRNA, M|<ETX>", u"|RN", "12", "<STX>GI|RN12|GNRNA, M|<ETX>"},
        {"GI|RN12|GN|", u"|GN", "", "GI|RN12|GN|"},
        {"GI|RN12", u"|GN", "", "GI|RN12"},
        {"   ", u"|GN", "", ""},
        {" WC|RN0330|ST1 ", u"|ST", R"(No "|" follows "|ST" in the record.)", "WC|RN0330|ST1"},  // a failed call
    };
    for (const auto& row : rows) {
        const std::u16string given = Raw(row.record);
        InOutText record(given);
        std::string value;
        try {
            value = Shown(GetPMS_ColumnData(record, row.column));
        } catch (const platform::OperationError& error) {
            EXPECT_EQ(error.Result(), platform::kInvalidArgument);
            value = Shown(error.Description());
        }
        EXPECT_EQ(value, row.value);
        EXPECT_EQ(Shown(record.View()), row.left);
    }
}

TEST(FiasLink, APostingIsAnsweredWithItsOwnValuesInFixedOrder) {
    const std::pair<const char*, const char*> rows[] = {
        {"<STX>PS|RN102|PTC|DA240131|TI1405|P#77|<ETX>", "<STX>PA|RN102|ASOK|DA240131|TI1405|P#77|<ETX>"},
        {" PS|P#77|TI1405|DA240131|RN102| ", "<STX>PA|RN102|ASOK|DA240131|TI1405|P#77|<ETX>"},
        {"PS|RN102|DA240131|TI1405|", "<STX>PA|RN102|ASOK|DA240131|TI1405|P#|<ETX>"},
        // A key counts at its first place, also within a value.
        {"PS|RN102|CTDAY XP#5|DA240131|TI1405|P#7|", "<STX>PA|RN102|ASOK|DAY XP#5|TI1405|P#5|<ETX>"},
        {"", "<STX>PA|RN|ASOK|DA|TI|P#|<ETX>"},
    };
    for (const auto& [posting, answer] : rows) {
        const std::u16string given = Raw(posting);
        InOutText record(given);
        EXPECT_EQ(Shown(GetPMS_PSConfirm(record)), answer);
    }
    InOutText open(u"PS|RN102|DA240131|TI1405|P#77");
    EXPECT_THROW(GetPMS_PSConfirm(open), platform::OperationError);
}

}  // namespace
}  // namespace vintrel::exchanges::fias
