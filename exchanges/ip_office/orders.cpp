#include <memory>

#include "exchanges/answer.h"
#include "exchanges/ip_office/ip_office.h"
#include "platform/waits.h"
#include "text/numbers.h"

namespace vintrel::exchanges::ip_office {

using namespace text;

namespace {

constexpr std::int32_t kConnectLimit = 10000;
constexpr std::int32_t kAnswerLimit = 10000;
constexpr std::string_view kTransferred = "&lt;ConfigTransferred&gt;True&lt;/ConfigTransferred&gt;";
constexpr std::string_view kServerError = "Internal Server Error";

/// The vendor's configuration namespace of 2007/01; the address of the operation follows from it. Its exact text is
/// not published and no unit was at hand: check this one line against a real one.
constexpr std::u16string_view kConfigurationNamespace = u"http://www.avaya.com/ipoconfiguration/2007/01";

constexpr std::u16string_view kXmlDeclaration = u"<?xml version=\"1.0\" encoding=\"utf-8\"?>";

/// Angle brackets only: ampersands and quotes are sent as they are.
std::u16string EscapeBrackets(std::u16string_view text) {
    std::u16string escaped;
    escaped.reserve(text.size() * 2);
    for (const char16_t character : text) {
        if (character == u'<') {
            escaped += u"&lt;";
        } else if (character == u'>') {
            escaped += u"&gt;";
        } else {
            escaped += character;
        }
    }
    return escaped;
}

char32_t NextCodePoint(std::u16string_view text, std::size_t& position) {
    constexpr char32_t kReplacement = 0xFFFD;
    const char16_t unit = text[position++];
    if (unit < 0xD800 || unit > 0xDFFF) return unit;
    if (unit > 0xDBFF || position == text.size()) return kReplacement;
    const char16_t low = text[position];
    if (low < 0xDC00 || low > 0xDFFF) return kReplacement;
    ++position;
    return 0x10000 + ((char32_t{unit} - 0xD800) << 10U) + (char32_t{low} - 0xDC00);
}

/// On the wire everything is ASCII, so that characters, bytes and Content-Length agree: any other character becomes a
/// numeric character reference.
std::string WireText(std::u16string_view text) {
    std::string wire;
    wire.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        const char32_t character = NextCodePoint(text, position);
        wire += character < 128 ? std::string(1, static_cast<char>(character))
                                : "&#" + std::to_string(static_cast<std::uint32_t>(character)) + ";";
    }
    return wire;
}

std::u16string NameElement(std::u16string_view name) { return Command({u"<FullName>", name, u"</FullName>"}); }

}  // namespace

std::u16string IpOffice::CheckIn(const CheckInOrder& order) {
    return Configure(order.room, u"<UserRights>CheckIn</UserRights>",
                     order.change_name ? NameElement(order.name) : std::u16string());
}

std::u16string IpOffice::CheckOut(const CheckOutOrder& order) {
    return Configure(order.room, u"<UserRights>CheckOut</UserRights>",
                     order.change_name ? NameElement(u"") : std::u16string());
}

std::u16string IpOffice::UserName(std::int32_t room, InOutText& name) {
    return Configure(room, u"", NameElement(name.View()));
}

std::u16string IpOffice::Configure(std::int32_t room, std::u16string_view rights, std::u16string_view name_element) {
    if (!Server().settings.HotelEnabled) return Verdict(true);
    const OrderGuard::Turn turn(Server().guard);
    if (!turn) return Verdict(false);
    const std::u16string user = GetIniUser(room);
    const std::u16string document =
        Command({u"<Users><User Guid=\"", user, u"\" Opp=\"Update\">", rights, name_element, u"</User></Users>"});
    return Verdict(SetUnitConfiguration(document) == 1);
}

std::string IpOffice::Body(std::u16string_view document) const {
    const platform::Settings& settings = Server().settings;
    const std::u16string configuration =
        Command({kXmlDeclaration, u"<AvayaIPOConfiguration Version=\"1.0\">", document, u"</AvayaIPOConfiguration>"});
    return WireText(Command(
        {kXmlDeclaration, u"<soap:Envelope xmlns:soap=\"http://schemas.xmlsoap.org/soap/envelope/\"",
         u" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\">",
         u"<soap:Body><SetUnitConfiguration xmlns=\"", kConfigurationNamespace, u"\"><unitIPAddress>", settings.PbxHost,
         u"</unitIPAddress><portNumber>", DecimalText(settings.PbxPort), u"</portNumber><accountName>",
         settings.PbxUser, u"</accountName><accountPassword>", settings.PbxPassword,
         u"</accountPassword><configurationData>", EscapeBrackets(configuration),
         u"</configurationData><batchTransaction>true</batchTransaction>",
         u"</SetUnitConfiguration></soap:Body></soap:Envelope>"}));
}

std::string IpOffice::Header(std::size_t body_size) const {
    return WireText(
        Command({u"POST /IPOConfigurationService HTTP/1.1\r\n",
                 u"User-Agent: Mozilla/4.0 (compatible; MSIE 6.0; MS Web Services Client Protocol 4.0.30319.42000)\r\n",
                 u"Content-Type: text/xml; charset=utf-8\r\n", u"SOAPAction: \"", kConfigurationNamespace,
                 u"/IPOConfigService/SetUnitConfiguration\"\r\n", u"Host: ", host_, u":", DecimalText(port_),
                 u"\r\nContent-Length: ", DecimalText(static_cast<std::int32_t>(body_size)),
                 u"\r\nExpect: 100-continue\r\n\r\n"}));
}

/// 1 when the exchange has confirmed the transfer of the configuration, else 0.
std::int16_t IpOffice::SetUnitConfiguration(std::u16string_view document) {
    const std::string body = Body(document);
    const std::string header = Header(body.size());

    const std::unique_ptr<platform::TcpConnection> connection = Server().tcp.Connect(host_, port_);
    if (!connection) return 0;
    const auto settled = [&] { return connection->State() != platform::TransferState::Starting; };
    platform::WaitUntil(Server().loop, Server().clock, kConnectLimit, settled);
    if (connection->State() != platform::TransferState::Open) return 0;

    // The exchange is not asked to wait for its "100 Continue": the body follows the header at once.
    connection->Send(header);
    Server().loop.ProcessPending();
    connection->Send(body);

    Answer answer;
    bool transferred = false;
    platform::WaitUntil(Server().loop, Server().clock, kAnswerLimit, [&] {
        const bool more = answer.Collect(*connection);
        transferred = answer.Brought(kTransferred);
        return transferred || !more || answer.Brought(kServerError);
    });
    return transferred ? 1 : 0;
}

}  // namespace vintrel::exchanges::ip_office
