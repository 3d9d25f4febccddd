// The law of GetComConvertStringRX: whatever an exchange sends, the answer to a known code is the reject marker, or at
// most 87 characters from STX to ETX; only TYPE10003 and TYPE10010 touch the caller's text.
// Input: a letter, the model's place in the catalogue; then records of that link, told apart by the character 30.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "cdr/convert.h"
#include "server/catalogue.h"
#include "text/control_characters.h"
#include "tests/unit/fakes.h"

namespace {

using namespace vintrel;  // NOLINT(google-build-using-namespace): one function

void Demand(bool holds) {
    if (!holds) std::abort();
}

void ConvertOne(server::Model model, std::u16string_view text, cdr::CallRecordState& state) {
    const testing::FakeClock clock;
    testing::FakeMessage message;
    text::InOutText record(text);
    const records::GdvRecord converted =
        cdr::GetComConvertStringRX(server::ModelCode(model), record, state, {}, clock, message);
    const std::u16string_view result = converted;
    Demand(message.texts.empty());
    Demand(
        result == std::u16string_view(&text::kDle, 1) ||
        (result.size() >= 2 && result.size() <= 87 && result.front() == text::kStx && result.back() == text::kEtx));
    Demand(!record.Replaced() || model == server::Model::Type10003 || model == server::Model::Type10010);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr char16_t kBetweenRecords = 30;
    if (size == 0) return 0;
    const auto model =
        static_cast<server::Model>((data[0] + server::kModelCount - 'A' % server::kModelCount) % server::kModelCount);
    const std::u16string records(data + 1, data + size);
    cdr::CallRecordState state;
    for (std::size_t start = 0, end = 0; end < records.size() || start == 0; start = end + 1) {
        end = std::min(records.find(kBetweenRecords, start), records.size());
        ConvertOne(model, std::u16string_view(records).substr(start, end - start), state);
    }
    return 0;
}
