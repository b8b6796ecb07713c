#include <gmock/gmock.h>

#include "printer/InfoCenterLinks.h"
#include "settings/TagNames.h"
#include "tests/unit/RecordedLog.h"

namespace {

// The link of one printer, for a package of one brand.
class ProductCodeLinkTest : public testing::Test {
protected:
    ProductCodeLinkTest() {
        TheLog() = {};
        settings.SetString(Tag::OEM_NAME, L"Halvenny");
        settings.SetString(Tag::INFOCENTER_LINK, L"http://help.example");
    }

    std::wstring LinkWithCode(std::wstring_view code) {
        settings.SetString(TextTag(L"ALL"), std::wstring(L"<MODEL_PRODUCT_CODE>Loom:").append(code) +
                                                L"</MODEL_PRODUCT_CODE>");
        BuildInfoCenterLinks(settings, localizer, L"Halvenny Loom 310", L"Loom");
        return settings.GetString(Tag::EXACT_INFOCENTER_LINK);
    }

    InstallSettings settings;
    Localizer localizer{
        settings, {.languageId = 0x409, .readFile = [](const std::wstring&) { return std::wstring(); }}};
};

TEST_F(ProductCodeLinkTest, NamesTheCodeBehindTheBrand) {
    EXPECT_EQ(LinkWithCode(L"Halvenny Loom"), L"http://help.example?productCode=Halvenny_Loom&loc=en");
    EXPECT_THAT(TheLog().basic, testing::IsEmpty());
}

TEST_F(ProductCodeLinkTest, NamesNoCodeWhereNothingFollowsTheBrand) {
    EXPECT_EQ(LinkWithCode(L"Halvenny"), L"http://help.example?productCode=&loc=en");
    ASSERT_EQ(TheLog().basic.size(), 1U);
    EXPECT_EQ(TheLog().basic.front().level, L"ERROR");
    EXPECT_EQ(TheLog().basic.front().message,
              L"A product code ends with the brand and has no code behind it: Halvenny");
}

}  // namespace
