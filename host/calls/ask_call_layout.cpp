#include "host/calls/ask_call_layout.h"

namespace vintrel::host {
namespace {

using Operation = HRESULT (STDMETHODCALLTYPE _ComGdvFilter::*)(short*);
struct Accessors {
    Operation start;
    Operation length;  ///< the server calls it "Stop", and means how many
};

// In the order of CallField.
constexpr Accessors kAccessors[kCallFieldCount] = {
    {&_ComGdvFilter::GetGdvLineLenStart, &_ComGdvFilter::GetGdvLineLenStop},
    {&_ComGdvFilter::GetGdvUserLenStart, &_ComGdvFilter::GetGdvUserLenStop},
    {&_ComGdvFilter::GetGdvNumberLenStart, &_ComGdvFilter::GetGdvNumberLenStop},
    {&_ComGdvFilter::GetGdvUserCodeLenStart, &_ComGdvFilter::GetGdvUserCodeLenStop},
    {&_ComGdvFilter::GetGdvInfoLenStart, &_ComGdvFilter::GetGdvInfoLenStop},
    {&_ComGdvFilter::GetGdvTypeLenStart, &_ComGdvFilter::GetGdvTypeLenStop},
    {&_ComGdvFilter::GetGdvUnityLenStart, &_ComGdvFilter::GetGdvUnityLenStop},
    {&_ComGdvFilter::GetGdvDurationSLenStart, &_ComGdvFilter::GetGdvDurationSLenStop},
    {&_ComGdvFilter::GetGdvDateDLenStart, &_ComGdvFilter::GetGdvDateDLenStop},
    {&_ComGdvFilter::GetGdvDateMLenStart, &_ComGdvFilter::GetGdvDateMLenStop},
    {&_ComGdvFilter::GetGdvDateYLenStart, &_ComGdvFilter::GetGdvDateYLenStop},
    {&_ComGdvFilter::GetGdvTimeHLenStart, &_ComGdvFilter::GetGdvTimeHLenStop},
    {&_ComGdvFilter::GetGdvTimeMLenStart, &_ComGdvFilter::GetGdvTimeMLenStop},
    {&_ComGdvFilter::GetGdvPTYNumberLenStart, &_ComGdvFilter::GetGdvPTYNumberLenStop},
    {&_ComGdvFilter::GetGdvMacAddressLenStart, &_ComGdvFilter::GetGdvMacAddressLenStop},
};

std::size_t Ask(const Server& server, Operation operation) {
    return static_cast<std::size_t>(server.Value<short>(server.gdv, operation));
}

}  // namespace

CallLayout AskCallLayout(const Server& server) {
    CallLayout layout;
    layout.body_length = Ask(server, &_ComGdvFilter::GetGdvRealStringLenStop);
    for (std::size_t i = 0; i < kCallFieldCount; ++i)
        layout.places[i] = {Ask(server, kAccessors[i].start), Ask(server, kAccessors[i].length)};
    return layout;
}

}  // namespace vintrel::host
