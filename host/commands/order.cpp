#include "host/commands/order.h"

#include <array>

#include "host/checks.h"
#include "host/console.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

bool IsVerdict(std::u16string_view answer) { return answer == u"<OK>" || answer == u"<ERROR>"; }

}  // namespace

short Language(const Options& options) {
    constexpr std::array<std::string_view, 5> kWords{"de", "it", "en", "fr", "es"};
    const std::string word = options.Get("--language", "de");
    for (std::size_t i = 0; i < kWords.size(); ++i)
        if (word == kWords[i]) return static_cast<short>(i);
    throw Failure(ExitCode::Usage, "--language: \"" + word + "\" is none of de, it, en, fr, es");
}

Order::Order(const Options& options)
    : model_(server_, options.Require("--model")), room_(CheckedRoom(options.Require("--room"))), type_(model_.Code()) {
    Initialize(server_, model_, options.Get("--settings"));
}

// A failure here has nobody left to tell; the verdict is out already.
Order::~Order() {
    short nothing = 0;
    server_.setup->UnInitializeServer(type_.InOut(), &nothing);
}

ExitCode Order::Tell(const std::u16string& answer) const {
    if (answer.empty()) throw Failure(ExitCode::Failed, ToUtf8(model_.Name()) + " has no such order");
    // In a command a "<" of the data is shown as <LT>; a verdict stands as it is.
    WriteOut((IsVerdict(answer) ? ToUtf8(answer) : Readable(ToBytes(answer))) + "\n");
    return answer == u"<ERROR>" ? ExitCode::Failed : ExitCode::Ok;
}

}  // namespace vintrel::host
