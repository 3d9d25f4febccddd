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

std::string WriteMatrix(const Server& server, const std::vector<std::string>& codes, const Presentation& presentation,
                        Output& output) {
    std::vector<Column> columns{{.title = "Code", .width = 0}, {.title = "Model", .width = 0, .rank = 1}};
    for (const Service& service : kServices) columns.push_back({.title = service.title, .width = 0});

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
    return WriteRecords(presentation, columns, records, output);
}

}  // namespace vintrel::host
