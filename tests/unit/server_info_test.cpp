#include "server/server_info.h"

#include <gtest/gtest.h>

#include "exchanges/catalogue.h"
#include "printing.h"
#include "version.h"

namespace vintrel::server {
namespace {

using testing::Shown;

struct ServerInfo : ::testing::Test {
    struct : platform::SupportListWindow, platform::HelpViewer {
        void Show(platform::SupportListContent content) override { shown = std::move(content); }
        void Start(std::u16string_view program, std::u16string_view arguments) override {
            started = std::u16string(program) + u" " + std::u16string(arguments);
        }
        platform::SupportListContent shown;
        std::u16string started;
    } window;
    platform::Settings settings;
};

TEST_F(ServerInfo, KnowsACodeInAnyCaseAndAnswersAnUnknownOneWithoutAReport) {
    std::u16string code = u"type12000";
    EXPECT_EQ(GetPabxActiveType(code), 1);
    EXPECT_EQ(code, u"TYPE12000");
    EXPECT_EQ(GetPabxTypeName(code = u"type12000"), u"FIAS - PMS");
    for (const char16_t* unknown : {u"TYPE99999", u"TYPE12000 ", u" TYPE10001", u"TYPE1000", u""}) {
        EXPECT_EQ(GetPabxActiveType(code = unknown), 0) << Shown(unknown);
        EXPECT_EQ(GetPabxTypeName(code), u"type not found") << Shown(unknown);
    }
}

TEST_F(ServerInfo, ListsTheModelsInCodeOrderWithFiasLast) {
    settings.FormCaptions = {u"hint", u"heading"};
    GetPabxTypeList(settings, window, window);
    EXPECT_EQ(window.shown.caption, u" Pabx Com Server  V " VINTREL_VERSION);
    EXPECT_EQ(window.shown.tool_tip, u"hint");
    EXPECT_EQ(window.shown.heading, u"heading");
    ASSERT_EQ(window.shown.lines.size(), exchanges::Models().size());
    EXPECT_EQ(window.shown.lines.front(), u"Avaya - Integral 1/3/5 SW xE3.xxx - xE5.xxx");
    EXPECT_EQ(window.shown.lines.back(), u"FIAS - PMS");
}

TEST_F(ServerInfo, DoubleClickOpensTheHelpPageThatIsSetAtThatMoment) {
    GetPabxTypeList(settings, window, window);
    EXPECT_FALSE(window.shown.clickable);
    window.shown.on_double_click();
    EXPECT_EQ(window.started, u"") << "no help file";
    settings.HelpFile = u"C:\\Help\\Srv.chm";
    settings.HelpIndex = u"Schemi";
    window.shown.on_double_click();
    EXPECT_EQ(window.started, u"hh.exe C:\\Help\\Srv.chm::/Schemi.htm");
    GetPabxTypeList(settings, window, window);
    EXPECT_TRUE(window.shown.clickable);
}

}  // namespace
}  // namespace vintrel::server
