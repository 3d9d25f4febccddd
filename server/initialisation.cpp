#include "server/initialisation.h"

#include "text/text.h"
#include "text/word.h"

namespace vintrel::server {

void SetServerLanguage(std::u16string_view language, platform::Settings& settings) {
    const auto set = [&settings](std::u16string_view hint, std::u16string_view heading) {
        settings.FormCaptions[0] = settings.HelpFile.empty() ? u"" : hint;
        settings.FormCaptions[1] = heading;
    };
    if (text::UpperEquals<u"GER">(language))
        set(u"Doppelklick um die Anschlußpläne anzuzeigen", u"Unterstützte Kommunikationssysteme:");
    else if (text::UpperEquals<u"ITA">(language))
        set(u"Doppio click per visualizzare gli schemi di collegamento", u"Sistemi di comunicazione supportati:");
}

void SetHelpFilePage(std::u16string_view page, std::u16string_view index, platform::Settings& settings) {
    settings.HelpFile = text::Trim(page);
    settings.HelpIndex = text::Trim(index);
}

void SetAllUserCommonDocumentsDirA(std::u16string_view folder, platform::Settings& settings) {
    settings.DocumentsDir = folder;
}

std::int16_t InitializeServer(TypeCode type, const exchanges::Exchanges& exchanges,
                              platform::CriticalMessage& message) {
    if (exchanges::Exchange* const exchange = UpperAndFind(type, exchanges, u"InitializeServer", message))
        exchange->Initialize();
    return 0;
}

std::int16_t InitializeServerSec(TypeCode type, const exchanges::Exchanges& exchanges) {
    if (exchanges::Exchange* const exchange = UpperAndFind(type, exchanges)) exchange->InitializeSec();
    return 0;
}

std::int16_t UnInitializeServer(TypeCode type, const exchanges::Exchanges& exchanges) {
    if (exchanges::Exchange* const exchange = UpperAndFind(type, exchanges)) exchange->UnInitialize();
    return 0;
}

}  // namespace vintrel::server
