#include "server/initialisation.h"

#include <optional>
#include <string>

#include "server/configuration.h"
#include "server/error_report.h"
#include "server/operation_error.h"
#include "server/text.h"
#include "server/word.h"

namespace vintrel::server {
namespace {

/// "Quindara.cfg" into the settings; false when there is no such file.
bool ReadPbxSettings(Settings& settings, const InitialisationPlatform& platform) {
    std::optional<PbxAccess> access = ReadPbxAccess(settings, platform.files, platform.ansi);
    if (!access) return false;
    settings.PbxHost = std::move(access->host);
    settings.PbxPort = access->port;
    settings.PbxUser = std::move(access->user);
    settings.PbxPassword = std::move(access->password);
    return true;
}

void PrepareIni(Model model, Settings& settings, const InitialisationPlatform& platform) {
    WriteIniDefaults(model, settings, platform.files, platform.ini);
    ReadIniSettings(model, settings, platform.ini);
}

void PrepareInnovaphone(Settings& settings, const InitialisationPlatform& platform) {
    constexpr std::int32_t kHighestPort = 65535;
    const bool configured = ReadPbxSettings(settings, platform);
    if (configured && (settings.PbxPort < 0 || settings.PbxPort > kHighestPort))
        throw OperationError(kOverflow, u"The port of the exchange in Quindara.cfg is outside 0 to 65535: " +
                                            DecimalText(settings.PbxPort));
    PrepareIni(Model::Type10012, settings, platform);
}

void PrepareIpOffice(Settings& settings, const InitialisationPlatform& platform) {
    ReadPbxSettings(settings, platform);
    PrepareIni(Model::Type10017, settings, platform);
}

/// The exchange's token is the digest of the account name directly followed by the password.
void PrepareGrandstream(Settings& settings, const InitialisationPlatform& platform) {
    settings.GsStateFlag = false;
    settings.GsSession.fill({});
    if (ReadPbxSettings(settings, platform)) {
        const std::string account = platform.ansi.FromText(settings.PbxUser + settings.PbxPassword);
        settings.GsToken = platform.md5.HashBytes(std::as_bytes(std::span(account)));
    }
    if (!platform.request_engine.Prepare())
        throw OperationError(kCannotCreateObject, u"The system's HTTP request engine cannot be prepared.");
    settings.GsBaseUrl = u"https://" + settings.PbxHost + u":" + DecimalText(settings.PbxPort) + u"/pmsapi?token=" +
                         settings.GsToken + u"&format=xml&data=";
}

void Prepare(Model model, Settings& settings, const InitialisationPlatform& platform) {
    switch (model) {
        case Model::Type10012: PrepareInnovaphone(settings, platform); break;
        case Model::Type10017: PrepareIpOffice(settings, platform); break;
        case Model::Type10019: PrepareIni(model, settings, platform); break;
        case Model::Type10020: PrepareGrandstream(settings, platform); break;
        case Model::Type10001:
        case Model::Type10002:
        case Model::Type10003:
        case Model::Type10004:
        case Model::Type10005:
        case Model::Type10006:
        case Model::Type10007:
        case Model::Type10008:
        case Model::Type10009:
        case Model::Type10010:
        case Model::Type10011:
        case Model::Type10013:
        case Model::Type10014:
        case Model::Type10015:
        case Model::Type10016:
        case Model::Type10018:
        case Model::Type12000: break;  // serial and plain TCP links need no preparation
    }
}

/// The reply to a request of the line: only its identifier is kept, whatever the kind of the event.
void StoreLineReply(Settings& settings, std::uint32_t first, std::int32_t second, std::int32_t third) {
    const auto identifier = static_cast<std::int32_t>(first);
    if (identifier > 1 && second == 0 && third < 0) settings.TapiLastReplyId = first;
}

void StartTelephony(Settings& settings, const InitialisationPlatform& platform) {
    if (settings.TapiLineApp != 0) return;
    settings.TapiReady = false;
    platform.loop.ProcessPending();
    if (settings.TapiLineApp != 0) return;  // the host called again meanwhile
    const TelephonyService::LineApplication line = platform.telephony.Initialize(
        u"Vintrel", [&settings](std::uint32_t first, std::int32_t second, std::int32_t third) {
            StoreLineReply(settings, first, second, third);
        });
    if (line.result != 0) return;
    settings.TapiLineApp = line.handle;
    settings.TapiLineCount = line.line_count;
    settings.TapiReady = true;
}

}  // namespace

void SetServerLanguage(std::u16string_view language, Settings& settings) {
    const auto set = [&settings](std::u16string_view hint, std::u16string_view heading) {
        settings.FormCaptions[0] = settings.HelpFile.empty() ? u"" : hint;
        settings.FormCaptions[1] = heading;
    };
    if (UpperEquals<u"GER">(language))
        set(u"Doppelklick um die Anschlußpläne anzuzeigen", u"Unterstützte Kommunikationssysteme:");
    else if (UpperEquals<u"ITA">(language))
        set(u"Doppio click per visualizzare gli schemi di collegamento", u"Sistemi di comunicazione supportati:");
}

void SetHelpFilePage(std::u16string_view page, std::u16string_view index, Settings& settings) {
    settings.HelpFile = Trim(page);
    settings.HelpIndex = Trim(index);
}

void SetAllUserCommonDocumentsDirA(std::u16string_view folder, Settings& settings) { settings.DocumentsDir = folder; }

std::int16_t InitializeServer(TypeCode type, Settings& settings, const InitialisationPlatform& platform) {
    const std::optional<Model> model = UpperAndFind(type, u"InitializeServer", platform.message);
    if (!model) return 0;
    Settings fresh = settings;  // a failure on the way leaves the settings as they were
    Prepare(*model, fresh, platform);
    settings = std::move(fresh);
    return 0;
}

std::int16_t InitializeServerSec(TypeCode type, Settings& settings, const InitialisationPlatform& platform) {
    const std::optional<Model> model = UpperAndFind(type);
    if (!model || *model == Model::Type10018) return 0;
    if (*model != Model::Type10019) return InitializeServer(type, settings, platform);
    if (settings.HotelEnabled) StartTelephony(settings, platform);
    return 0;
}

std::int16_t UnInitializeServer(TypeCode type, Settings& settings, TelephonyService& telephony) {
    const std::optional<Model> model = UpperAndFind(type);
    if (model == Model::Type10019 && settings.HotelEnabled && settings.TapiLineApp != 0) {
        telephony.Shutdown(settings.TapiLineApp);
        settings.TapiLineApp = 0;
    }
    return 0;
}

}  // namespace vintrel::server
