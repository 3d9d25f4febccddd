// "link": how to open, frame, pace and log in on a model's link, as the server answers.
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/commands/commands.h"
#include "host/commands/common_options.h"
#include "host/console.h"
#include "host/link/ask_link.h"
#include "host/record_writer.h"
#include "host/server.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

constexpr Option kOptions[] = {
    kModelOption,
    kFormatOption,
    kSeparatorOption,
    kWidthOption,
};

constexpr char16_t kTelnetCommand = 255;

std::string ByteName(char16_t character) {
    constexpr std::string_view kHex = "0123456789ABCDEF";
    return {'<', 'x', kHex[character >> 4U & 15U], kHex[character & 15U], '>'};
}

/// In quotes, so that blanks at the ends show; control characters and the bytes of a Telnet command by name.
std::string Quoted(std::u16string_view text) {
    std::string shown = "\"";
    const bool telnet = text.starts_with(kTelnetCommand);
    for (const char16_t character : text) shown += telnet ? ByteName(character) : Readable(ToBytes({&character, 1}));
    return shown + "\"";
}

/// What a number means: a word for each value that has one, and words for all others.
struct Meaning {
    std::initializer_list<std::pair<long, const char*>> words;
    const char* otherwise = "a code whose meaning is the host's";

    const char* Of(long value) const {
        for (const auto& [number, meaning] : words)
            if (number == value) return meaning;
        return otherwise;
    }
};

std::string TelnetWords(std::u16string_view command) {
    const Meaning verb{{{251, "WILL"}, {252, "WONT"}, {253, "DO"}, {254, "DONT"}}, "?"};
    const Meaning option{{{1, "ECHO"}, {3, "SUPPRESS-GO-AHEAD"}}, "?"};
    return std::string("Telnet: IAC ") + verb.Of(command[1]) + " " + option.Of(command[2]);
}

std::string Purpose(std::u16string_view text, const char* purpose) {
    if (text.empty()) return "none";
    if (text == kNoMessage) return "none: the exchange has no such message";
    if (text == kServerDriven) return "none: the server itself drives the exchange";
    if (text.size() == 3 && text.front() == kTelnetCommand) return std::string(purpose) + "; " + TelnetWords(text);
    return purpose;
}

/// Asks the operations one by one and keeps a record of each.
class Questions {
 public:
    Questions(const Server& server, const Model& model) : server_(server), model_(model) {}

    void Section(const char* title) { section_ = title; }

    template <typename Class, typename Interface, typename Integer>
    long Number(const char* setting, const ComPointer<Class>& object, const char* name,
                HRESULT (STDMETHODCALLTYPE Interface::*operation)(BSTR*, Integer*), const Meaning& meaning) {
        const long answer = model_.Value(object, operation);
        Add(setting, std::to_string(answer), meaning.Of(answer), name);
        return answer;
    }
    template <typename Class, typename Interface>
    std::u16string Text(const char* setting, const ComPointer<Class>& object, const char* name,
                        HRESULT (STDMETHODCALLTYPE Interface::*operation)(BSTR*, BSTR*), const char* purpose) {
        std::u16string answer = model_.Text(object, operation);
        Add(setting, Quoted(answer), Purpose(answer, purpose), name);
        return answer;
    }
    /// A character that is the same for every model.
    void Character(const char* setting, const char* name, HRESULT (STDMETHODCALLTYPE _ComProgramSet::*operation)(BSTR*),
                   const char* purpose) {
        Add(setting, Quoted(server_.Text(server_.link, operation)), purpose, name);
    }

    const std::vector<std::vector<std::string>>& Records() const { return records_; }

 private:
    void Add(const char* setting, std::string answer, std::string meaning, const char* name) {
        records_.push_back({section_, setting, std::move(answer), std::move(meaning), name});
    }

    const Server& server_;
    const Model& model_;
    const char* section_ = "";
    std::vector<std::vector<std::string>> records_;
};

// The name of an operation, and the operation.
#define VINTREL_LINK(name) server.link, "ComProgramSet." #name, &_ComProgramSet::name
#define VINTREL_TX(name) server.tx, "ComEventsTX." #name, &_ComEventsTX::name
#define VINTREL_RX(name) server.rx, "ComEventsRX." #name, &_ComEventsRX::name

/// One phrase more, joined out of its pieces.
void Say(std::string& sentence, std::initializer_list<std::string_view> pieces) {
    if (!sentence.empty()) sentence += "; ";
    for (const std::string_view piece : pieces) sentence += piece;
}

// Each part asks what a host asks for that part of its work, and says in a sentence what follows from the answers.

std::string Opening(const Server& server, Questions& ask) {
    ask.Section("open");
    const Meaning kinds{{{0, "a serial line"}, {1, "call records as CSV lines"}, {2, "a network link"}}};
    const long kind = ask.Number("link", VINTREL_LINK(GetPABXConnectionType), kinds);
    const long socket =
        ask.Number("socket", VINTREL_LINK(GetTCPIPWinsockAB), {{{2, "the server itself drives the exchange"}}});
    ask.Number("who connects", VINTREL_LINK(GetTCPIPConnectDirection), {});
    ask.Number("kind of connection", VINTREL_LINK(GetPABXTCPIPConnectionType), {});
    ask.Number("reconnection", VINTREL_LINK(GetPABXTCPIPREConnection), {{{0, "none"}}, "in the host's unit"});
    ask.Number("serial port readiness", VINTREL_LINK(ComPortReadyType), {});
    ask.Number("DTR timing", VINTREL_LINK(ComPortDTRTime), {});
    const long dtr =
        ask.Number("DTR and RTS", VINTREL_TX(ComEventDtrRtsEnabled), {{{0, "leave them"}, {1, "raise both"}}});
    const long ini = ask.Number("own settings", VINTREL_LINK(GetINIEnabled),
                                {{{0, "none"}, {1, "the model has sections of its own in Vintrel.ini"}}});
    ask.Number("kind of check-in", VINTREL_LINK(GetCheckInType), {});

    std::string sentence = kinds.Of(kind);
    if (socket == 2) Say(sentence, {"the server itself carries out orders, over HTTP or SOAP"});
    if (dtr == 1) Say(sentence, {"raise DTR and RTS"});
    if (ini == 1) Say(sentence, {"settings in Vintrel.ini"});
    return sentence;
}

std::string Framing(const Server& server, Questions& ask) {
    ask.Section("frame");
    ask.Character("start character", "ComProgramSet.GetComSTXRx", &_ComProgramSet::GetComSTXRx, "begins a frame");
    ask.Character("end character", "ComProgramSet.GetComETXRx", &_ComProgramSet::GetComETXRx, "ends it");
    ask.Character("escape character", "ComProgramSet.GetComDLERx", &_ComProgramSet::GetComDLERx,
                  "also marks a rejected call record");
    const std::u16string end = ask.Text("end of a frame", VINTREL_RX(GetComEtxEndReadRx), "closes a received frame");
    ask.Text("second end", VINTREL_RX(GetComEtxEndReadRx2), "closes it, too");
    const long length =
        ask.Number("length", VINTREL_RX(GetComLngEndReadRx),
                   {{{0, "none: the end string alone ends a frame"}}, "characters, at which a host may end a read"});
    ask.Number("way of recognising the end", VINTREL_LINK(GetComEtxEndReadRxType), {});
    ask.Number("several durations", VINTREL_LINK(GetComMultiDurationReadRx), {{{0, "no"}, {1, "yes"}}});
    ask.Number("buffer", VINTREL_LINK(UseDataReadBuffer), {{{0, "no"}, {1, "read through a buffer"}}});
    const std::u16string answer = ask.Text("after a frame", VINTREL_RX(GetComACKRx), "send it back");
    ask.Text("accepted record", VINTREL_TX(ComEventConfirmDataRecordTX), "send it to acknowledge");
    const std::u16string refusal = ask.Text("bad record", VINTREL_TX(ComEventErrorHandleTX), "send it to reject");
    ask.Number("error events", VINTREL_RX(GetRepeatErrorEventRX), {{{1, "once"}}, "times"});
    const long columns =
        ask.Number("columns", VINTREL_RX(GetIPXComColumn), {{{0, "records are not separated"}}, "columns of a record"});
    ask.Number("separated by blanks", VINTREL_RX(GetIPXComSpace), {{{0, "no"}, {1, "yes"}}});
    ask.Number("separated by commas", VINTREL_RX(GetIPXComComma), {{{0, "no"}, {1, "yes"}}});

    std::string sentence;
    Say(sentence, {"a frame ends at ", Quoted(end)});
    if (length > 0) Say(sentence, {"read length ", std::to_string(length)});
    if (!answer.empty() && !IsMarker(answer))
        Say(sentence, {"send back ", Quoted(answer)});
    else
        Say(sentence, {"nothing is sent back"});
    if (!refusal.empty()) Say(sentence, {Quoted(refusal), " for a bad frame"});
    if (columns > 0) Say(sentence, {std::to_string(columns), " columns"});
    return sentence;
}

std::string Pacing(const Server& server, Questions& ask) {
    ask.Section("pace");
    const long wait = ask.Number("confirmation", VINTREL_TX(ComPortTxWaitConfirm),
                                 {{{0, "do not wait"}, {1, "wait for it after each command"}}});
    const long waiting =
        ask.Number("interval, waiting", VINTREL_TX(ComPortTXIntervalWithWait), {{}, "in the host's unit"});
    const long interval = ask.Number("interval", VINTREL_TX(ComPortTXInterval), {{}, "in the host's unit"});
    const std::u16string before = ask.Text("before a command", VINTREL_TX(ComEventPrimaryTX), "send it first");
    const std::u16string after = ask.Text("after a command", VINTREL_TX(ComEventAfterTX), "send it last");

    std::string sentence =
        wait == 1 ? "wait for the exchange's confirmation after each command" : "do not wait for confirmations";
    Say(sentence, {"interval ", std::to_string(interval), ", while waiting ", std::to_string(waiting)});
    if (!before.empty()) Say(sentence, {Quoted(before), " before a command"});
    if (!after.empty()) Say(sentence, {Quoted(after), " after it"});
    return sentence;
}

std::string LoggingIn(const Server& server, Questions& ask) {
    ask.Section("log in");
    std::string sentence;
    const auto say = [&sentence](const char* who, const std::u16string& text) {
        if (!text.empty() && !IsMarker(text)) Say(sentence, {who, " ", Quoted(text)});
    };
    const std::u16string request =
        ask.Text("exchange requests", VINTREL_RX(ComEventRequestLogInRX), "it asks for the login");
    say("the exchange requests with", request);
    say("confirm its prompt with", ask.Text("host confirms", VINTREL_TX(ComEventConfirmLogInTX), "answers its prompt"));
    say("request with", ask.Text("host requests", VINTREL_TX(ComEventRequestLogInTX), "asks for the login"));
    say("the exchange confirms with",
        ask.Text("exchange confirms", VINTREL_RX(ComEventConfirmLogInRX), "the login is done"));

    const bool driven = request == kServerDriven;
    const char* const asks_user =
        driven ? "a marker: the server itself logs in" : "the exchange asks for the user name";
    const char* const asks_password = driven ? asks_user : "the exchange asks for the password";
    say("user name asked for by", ask.Text("user name prompt", VINTREL_LINK(GetPABXTCPIPIDRequest), asks_user));
    say("answer", ask.Text("answer", VINTREL_LINK(GetPABXTCPIPIDConfirm), "answers it"));
    say("password asked for by", ask.Text("password prompt", VINTREL_LINK(GetPABXTCPIPPWRequest), asks_password));
    say("answer", ask.Text("answer", VINTREL_LINK(GetPABXTCPIPPWConfirm), "answers it"));
    say("user name asked for by", ask.Text("second user name prompt", VINTREL_LINK(GetPABXTCPIPIDRequest2), asks_user));
    say("answer", ask.Text("answer", VINTREL_LINK(GetPABXTCPIPIDConfirm2), "answers it"));
    say("password asked for by",
        ask.Text("second password prompt", VINTREL_LINK(GetPABXTCPIPPWRequest2), asks_password));
    say("answer", ask.Text("answer", VINTREL_LINK(GetPABXTCPIPPWConfirm2), "answers it"));
    ask.Text("download command", VINTREL_LINK(GetPABXTCPIPDLCommand), "starts a download");
    if (driven) return "nothing on this link: the server itself drives the exchange";
    return sentence.empty() ? "nothing to do" : sentence;
}

ExitCode Run(const Options& options) {
    const Presentation presentation = PresentationOf(options);
    const std::string code = options.Require("--model");
    const Server server;
    const Model model(server, code);
    Questions ask(server, model);
    const std::string open = Opening(server, ask);
    const std::string frame = Framing(server, ask);
    const std::string pace = Pacing(server, ask);
    const std::string log_in = LoggingIn(server, ask);

    Output output = StandardOutput();
    if (presentation.format == Format::Table) {
        std::string& text = output.Text();
        ((text += ToUtf8(model.Code())) += "  ") += ToUtf8(model.Name());
        ((text += "\n\nOpen:   ") += open) += ".";
        ((text += "\nFrame:  ") += frame) += ".";
        ((text += "\nPace:   ") += pace) += ".";
        ((text += "\nLog in: ") += log_in) += ".\n\n";
    }
    TellLeftOut(WriteRecords(presentation,
                             {{.title = "Part", .width = 0},
                              {.title = "Setting", .width = 0},
                              {.title = "Answer", .width = 0},
                              {.title = "Meaning", .width = 0, .rank = 1},
                              {.title = "Operation", .width = 0, .rank = 2}},
                             ask.Records(), output));
    return ExitCode::Ok;
}

}  // namespace

const Command kLinkCommand{
    "link",
    "says how to open, frame, pace and log in on a model's link",
    "--model CODE [OPTIONS]",
    "Asks the server everything that a host asks before it runs a link: in one line each how to open it,\n"
    "cut frames, pace commands and log in, then every answer with its meaning and its operation. Texts\n"
    "stand in quotes with control characters by name. Where the meaning of a number is the host's own,\n"
    "it says so.",
    kOptions,
    "",
    Run,
};

}  // namespace vintrel::host
