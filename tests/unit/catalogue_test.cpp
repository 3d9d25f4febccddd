#include "exchanges/catalogue.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "printing.h"

namespace vintrel::exchanges {
namespace {

using testing::Shown;

TEST(Catalogue, FindsEveryModelByItsCodeAndListsTheCodesInOrder) {
    for (const Model* model : Models()) {
        const std::u16string_view code = model->code;
        EXPECT_TRUE(code.starts_with(u"TYPE") && text::IsDigits(code.substr(4)) && code.size() == 9)
            << Shown(code) << " is not \"TYPE\" and five digits";
        EXPECT_EQ(FindModel(code), model) << Shown(code) << ": another code has its last two digits";
        EXPECT_FALSE(model->name.empty()) << Shown(code);
    }
    const auto not_before = [](const Model* model, const Model* next) { return model->code >= next->code; };
    EXPECT_EQ(std::adjacent_find(Models().begin(), Models().end(), not_before), Models().end());
}

}  // namespace
}  // namespace vintrel::exchanges
