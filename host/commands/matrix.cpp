#include "host/commands/matrix.h"

#include "host/text.h"

namespace vintrel::host {
namespace {

struct Service {
    const char* title;
    HRESULT (STDMETHODCALLTYPE _ServiceEnabled::*operation)(BSTR*, short*);
    bool level;  ///< a number and not yes or no
};

constexpr Service kServices[] = {
    {"Room state", &_ServiceEnabled::GetRoomStateEnabled, false},
    {"Wake-up", &_ServiceEnabled::GetClockEnabled, false},
    {"Central wake-up", &_ServiceEnabled::GetClockCentral, false},
    {"Call records", &_ServiceEnabled::GetCallListEnabled, false},
    {"Check-in/out", &_ServiceEnabled::GetCheckInOutEnabled, false},
    {"Guest name", &_ServiceEnabled::GetModifyNameEnabled, false},
    {"Wake-up date", &_ServiceEnabled::GetClockDateEnabled, true},
    {"Room alarm", &_ServiceEnabled::GetRoomAlarmEnabled, false},
};

}  // namespace

void WriteMatrix(const Server& server, const std::vector<std::string>& codes, Format format, Output& output) {
    std::vector<std::string> titles{"Code", "Model"};
    for (const Service& service : kServices) titles.emplace_back(service.title);

    std::vector<std::vector<std::string>> records;
    for (const std::string& code : codes) {
        const Model model(server, code);
        std::vector<std::string>& record = records.emplace_back();
        record = {code, ToUtf8(model.Name())};
        for (const Service& service : kServices) {
            const long answer = model.Value(server.services, service.operation);
            record.push_back(service.level ? std::to_string(answer) : answer != 0 ? "yes" : "no");
        }
    }
    WriteRecords(format, titles, records, output);
}

}  // namespace vintrel::host
