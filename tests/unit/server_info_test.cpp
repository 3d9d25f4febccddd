#include "server/server_info.h"

#include <gtest/gtest.h>

#include "fakes.h"
#include "printing.h"

namespace vintrel::server {
namespace {

using testing::Shown;

class WindowThatRecords : public SupportListWindow {
 public:
    void Show(SupportListContent content) override { shown = std::move(content); }
    SupportListContent shown;
};

class ViewerThatRecords : public HelpViewer {
 public:
    void Start(std::u16string_view program, std::u16string_view arguments) override {
        started = std::u16string(program) + u" " + std::u16string(arguments);
    }
    std::u16string started;
};

std::u16string_view NameOf(std::u16string code) { return GetPabxTypeName(code); }

TEST(ServerInfo, KnowsACodeInAnyCaseAndUpperCasesTheCallersVariable) {
    std::u16string code = u"type10017";
    EXPECT_EQ(GetPabxActiveType(code), 1);
    EXPECT_EQ(code, u"TYPE10017");
    EXPECT_EQ(NameOf(u"type12000"), u"FIAS - PMS");
}

TEST(ServerInfo, UnknownCodesAreAnsweredWithoutAReport) {
    for (const char16_t* code : {u"TYPE99999", u"TYPE12000 ", u" TYPE10001", u"TYPE1000", u""}) {
        std::u16string text = code;
        EXPECT_EQ(GetPabxActiveType(text), 0) << Shown(code);
        EXPECT_EQ(NameOf(code), u"type not found") << Shown(code);
    }
}

TEST(ServerInfo, ListsTheModelsInCodeOrderWithFiasLast) {
    WindowThatRecords window;
    ViewerThatRecords viewer;
    Settings settings;
    settings.FormCaptions = {u"hint", u"heading"};
    GetPabxTypeList(settings, window, viewer);
    EXPECT_EQ(window.shown.caption, u" Pabx Com Server  V 2.841");
    EXPECT_EQ(window.shown.tool_tip, u"hint");
    EXPECT_EQ(window.shown.heading, u"heading");
    ASSERT_EQ(window.shown.lines.size(), 21U);
    EXPECT_EQ(window.shown.lines.front(), u"Avaya - Integral 1/3/5 SW xE3.xxx - xE5.xxx");
    EXPECT_EQ(window.shown.lines[19], u"Grandstream - UCM6300 Series");
    EXPECT_EQ(window.shown.lines.back(), u"FIAS - PMS");
}

TEST(ServerInfo, DoubleClickOpensTheHelpPageThatIsSetAtThatMoment) {
    WindowThatRecords window;
    ViewerThatRecords viewer;
    Settings settings;
    GetPabxTypeList(settings, window, viewer);
    EXPECT_FALSE(window.shown.clickable);
    window.shown.on_double_click();
    EXPECT_EQ(viewer.started, u"") << "no help file";

    settings.HelpFile = u"C:\\Help\\Srv.chm";
    settings.HelpIndex = u"Schemi";
    window.shown.on_double_click();
    EXPECT_EQ(viewer.started, u"hh.exe C:\\Help\\Srv.chm::/Schemi.htm");
    GetPabxTypeList(settings, window, viewer);
    EXPECT_TRUE(window.shown.clickable);
}

}  // namespace
}  // namespace vintrel::server
