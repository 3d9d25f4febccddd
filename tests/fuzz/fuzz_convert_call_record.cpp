// The law of GetComConvertStringRX: whatever an exchange sends, the answer to a known code is the reject marker, or at
// most 87 characters from STX to ETX; only TYPE10003 and TYPE10010 touch the caller's text.
// Input: the five digits of the model's code; then records of that link, told apart by the character 30.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "server/call_records.h"
#include "tests/fuzz/model_of_input.h"
#include "tests/unit/test_server.h"
#include "text/control_characters.h"

namespace {

using namespace vintrel;  // NOLINT(google-build-using-namespace): one function

void Demand(bool holds) {
    if (!holds) std::abort();
}

void ConvertOne(std::u16string_view code, std::u16string_view text, testing::TestServer& server) {
    text::InOutText record(text);
    const records::GdvRecord converted =
        vintrel::server::GetComConvertStringRX(code, record, server.exchanges, server.message);
    const std::u16string_view result = converted;
    Demand(server.message.texts.empty());
    Demand(result == std::u16string_view(&text::kDle, 1) ||
           (result.size() >= 2 && result.size() <= 87 && result.front() == text::kStx && result.back() == text::kEtx));
    Demand(!record.Replaced() || code == u"TYPE10003" || code == u"TYPE10010");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr char16_t kBetweenRecords = 30;
    const exchanges::Model* const model = fuzz::ModelOf(data, size);
    if (!model) return fuzz::kNotForAModel;
    const std::u16string records(data + fuzz::kDigits, data + size);
    testing::TestServer server;
    for (std::size_t start = 0, end = 0; end < records.size() || start == 0; start = end + 1) {
        end = std::min(records.find(kBetweenRecords, start), records.size());
        ConvertOne(model->code, std::u16string_view(records).substr(start, end - start), server);
    }
    return 0;
}
