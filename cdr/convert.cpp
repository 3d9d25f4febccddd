#include "cdr/convert.h"

#include <optional>

#include "cdr/alcatel.h"
#include "cdr/algoral.h"
#include "cdr/avaya_integral.h"
#include "cdr/fias_posting.h"
#include "cdr/grandstream.h"
#include "cdr/innovaphone.h"
#include "cdr/ip_office.h"
#include "cdr/mitel.h"
#include "cdr/panasonic.h"
#include "cdr/wildix.h"
#include "server/catalogue.h"
#include "server/error_report.h"

namespace vintrel::cdr {
namespace {

using server::Model;

Outcome Convert(Model model, server::InOutText& record, CallRecordState& state, const server::Settings& settings,
                const server::Clock& clock, GdvRecord& gdv) {
    switch (model) {
        case Model::Type10001:
        case Model::Type10002:
        case Model::Type10007: return ConvertIntegral(record.View(), gdv);
        case Model::Type10003: return ConvertIntegral2(record, gdv);
        case Model::Type10004:
        case Model::Type10005:
        case Model::Type10006:
        case Model::Type10008:
        case Model::Type10011:
        case Model::Type10014:
        case Model::Type10015:
        case Model::Type10016: return ConvertMitel(record.View(), gdv);
        case Model::Type10009: return ConvertAlcatel(record.View(), gdv);
        case Model::Type10010: return ConvertAlgoral(record, gdv);
        case Model::Type10012: return ConvertInnovaphone(record.View(), state.references, settings, clock, gdv);
        case Model::Type10013: return ConvertWildix(record.View(), gdv);
        case Model::Type10017: return ConvertIpOffice(record.View(), state.continuation, gdv);
        case Model::Type10018:
        case Model::Type10019: return ConvertPanasonic(record.View(), gdv);
        case Model::Type10020: return ConvertGrandstream(record.View(), gdv);
        case Model::Type12000: return ConvertFiasPosting(record.View(), gdv);
    }
    return Outcome::Rejected;
}

}  // namespace

GdvRecord GetComConvertStringRX(std::u16string_view type, server::InOutText& record, CallRecordState& state,
                                const server::Settings& settings, const server::Clock& clock,
                                server::CriticalMessage& message) {
    GdvRecord gdv;
    const std::optional<Model> model = server::FindModel(type);
    if (!model) {
        server::ErrorReport(message, 0, u"GetComConvertStringRX");
        return gdv;
    }
    if (Convert(*model, record, state, settings, clock, gdv) == Outcome::Call)
        gdv.Assemble();
    else
        gdv.Reject();
    return gdv;
}

}  // namespace vintrel::cdr
