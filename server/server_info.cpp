#include "server/server_info.h"

#include <string>

#include "version.h"

namespace vintrel::server {
namespace {

/// Compiled-help viewer: "file::/page.htm" opens one page. The line that was clicked does not matter.
void OpenHelpPage(const platform::Settings& settings, platform::HelpViewer& help_viewer) {
    if (settings.HelpFile.empty()) return;
    help_viewer.Start(u"hh.exe", settings.HelpFile + u"::/" + settings.HelpIndex + u".htm");
}

}  // namespace

std::u16string_view GetServerVersion() { return u"" VINTREL_VERSION; }

std::int64_t GetServerVersionCur() { return VINTREL_VERSION_TEN_THOUSANDTHS; }

std::int16_t GetPabxActiveType(TypeCode type) { return UpperAndFind(type) ? 1 : 0; }

std::u16string_view GetPabxTypeName(TypeCode type) {
    const exchanges::Model* const model = UpperAndFind(type);
    return model ? model->name : u"type not found";
}

void GetPabxTypeList(const platform::Settings& settings, platform::SupportListWindow& window,
                     platform::HelpViewer& help_viewer) {
    platform::SupportListContent content;
    content.caption = u" Pabx Com Server  V " + std::u16string(GetServerVersion());
    content.heading = settings.FormCaptions[1];
    content.tool_tip = settings.FormCaptions[0];
    content.clickable = !settings.HelpFile.empty();
    for (const exchanges::Model* model : exchanges::Models()) content.lines.emplace_back(model->name);
    content.on_double_click = [&settings, &help_viewer] { OpenHelpPage(settings, help_viewer); };
    window.Show(std::move(content));
}

}  // namespace vintrel::server
