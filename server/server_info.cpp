#include "server/server_info.h"

#include <optional>
#include <string>

#include "server/catalogue.h"
#include "version.h"

namespace vintrel::server {
namespace {

/// Compiled-help viewer: "file::/page.htm" opens one page. The line that was clicked does not matter.
void OpenHelpPage(const Settings& settings, HelpViewer& help_viewer) {
    if (settings.HelpFile.empty()) return;
    help_viewer.Start(u"hh.exe", settings.HelpFile + u"::/" + settings.HelpIndex + u".htm");
}

}  // namespace

std::u16string_view GetServerVersion() { return u"" VINTREL_VERSION; }

std::int64_t GetServerVersionCur() { return VINTREL_VERSION_TEN_THOUSANDTHS; }

std::int16_t GetPabxActiveType(TypeCode type) { return UpperAndFind(type) ? 1 : 0; }

std::u16string_view GetPabxTypeName(TypeCode type) {
    const std::optional<Model> model = UpperAndFind(type);
    return model ? ModelName(*model) : u"type not found";
}

void GetPabxTypeList(const Settings& settings, SupportListWindow& window, HelpViewer& help_viewer) {
    SupportListContent content;
    content.caption = u" Pabx Com Server  V " + std::u16string(GetServerVersion());
    content.heading = settings.FormCaptions[1];
    content.tool_tip = settings.FormCaptions[0];
    content.clickable = !settings.HelpFile.empty();
    for (std::size_t i = 0; i < kModelCount; ++i) content.lines.emplace_back(ModelName(static_cast<Model>(i)));
    content.on_double_click = [&settings, &help_viewer] { OpenHelpPage(settings, help_viewer); };
    window.Show(std::move(content));
}

}  // namespace vintrel::server
