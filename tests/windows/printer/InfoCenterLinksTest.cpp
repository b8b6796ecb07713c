#include "printer/InfoCenterLinks.h"
#include "tests/windows/world/SettingsWorld.h"

namespace {

using testing::ElementsAre;

struct Printer {
    std::wstring series;
    std::wstring model;
};

class InfoCenterLinksTest : public SettingsWorld {
protected:
    InfoCenterLinksTest() {
        AddTexts(
            "<INFOCENTER_LINK_LABEL>Help</INFOCENTER_LINK_LABEL>"
            "<DISCOVERY_INFOCENTER_LINK_LABEL>Help for {0}</DISCOVERY_INFOCENTER_LINK_LABEL>");
        Settings().SetStrings({{Tag::INFOCENTER_LINK, L"http://help"},
                               {Tag::OEM_NAME, L"Brand"},
                               {TextTag(L"ALL"),
                                L"<MODEL_PRODUCT_CODE>S5:Brand L5|Brand L55</MODEL_PRODUCT_CODE>"
                                L"<MODEL_PRODUCT_CODE>S6:Brand</MODEL_PRODUCT_CODE>"}});
    }

    static void Derive(const std::vector<Printer>& printers) {
        std::vector<std::wstring> devices;
        for (const Printer& printer : printers) {
            devices.push_back(L"<PRINTER_SERIES_NAME>" + printer.series + L"</PRINTER_SERIES_NAME>" +
                              L"<PRINTER_MODEL_NAME>" + printer.model + L"</PRINTER_MODEL_NAME>");
        }
        Settings().SetDevices(devices);
        DeriveInfoCenterLinks(Settings(), Texts());
    }
    static std::wstring Label() { return Settings().GetString(Tag::INFOCENTER_SHORTCUT); }
    static std::wstring Link() { return Settings().GetString(Tag::EXACT_INFOCENTER_LINK); }
    static std::wstring GeneralLink() { return L"http://help?loc=" + GetLanguageCode(); }
    static std::wstring LinkOf(const std::wstring& code) {
        return L"http://help?productCode=" + code + L"&loc=" + GetLanguageCode();
    }
};

TEST_F(InfoCenterLinksTest, LeadToTheSeriesThatAllDevicesShare) {
    Derive({{L"S5", L"Brand L5x"}, {L"S5", L"Brand L5y"}});
    EXPECT_EQ(Link(), LinkOf(L"Brand_L5"));
    EXPECT_EQ(Label(), L"Help for Brand L5");
}

TEST_F(InfoCenterLinksTest, TakeTheLastCodeThatOccursInTheModel) {
    Derive({{L"S5", L"Brand L55"}});
    EXPECT_EQ(Link(), LinkOf(L"Brand_L55"));
}

TEST_F(InfoCenterLinksTest, AreGeneralWhereTheSeriesDiffer) {
    Derive({{L"S5", L"Brand L5"}, {L"S5", L"Brand L5"}, {L"S6", L"Brand L6"}});
    EXPECT_EQ(Link(), GeneralLink());
    EXPECT_EQ(Label(), L"Help");
}

TEST_F(InfoCenterLinksTest, AreGeneralWhereASeriesComesBack) {
    Derive({{L"S5", L"Brand L5"}, {L"S6", L"Brand L6"}, {L"S5", L"Brand L5"}});
    EXPECT_EQ(Link(), GeneralLink());
}

TEST_F(InfoCenterLinksTest, AreGeneralWhereOneSeriesIsMissing) {
    Derive({{L"S5", L"Brand L5"}, {L"", L"Brand L5"}});
    EXPECT_EQ(Link(), GeneralLink());
}

TEST_F(InfoCenterLinksTest, AreGeneralWithoutAnyDevice) {
    Derive({});
    EXPECT_EQ(Link(), GeneralLink());
}

TEST_F(InfoCenterLinksTest, AreGeneralForASeriesWithoutAModel) {
    Derive({{L"S5", L""}});
    EXPECT_EQ(Link(), GeneralLink());
}

TEST_F(InfoCenterLinksTest, FollowTheSystemsLanguageWhateverTheOptionSays) {
    AddOption(L"lang=xx");
    Derive({});
    EXPECT_EQ(Link(), GeneralLink());
}

TEST_F(InfoCenterLinksTest, TakeThePrintersNameWhereNoSeriesIsGiven) {
    Settings().SetString(Tag::PRINTER_NAME, L"S5");
    BuildInfoCenterLinks(Settings(), Texts(), L"Brand L5", L"");
    EXPECT_EQ(Link(), LinkOf(L"Brand_L5"));
}

TEST_F(InfoCenterLinksTest, HaveNoCodeForAnUnknownSeries) {
    BuildInfoCenterLinks(Settings(), Texts(), L"Brand L5", L"S7");
    EXPECT_EQ(Link(), LinkOf(L""));
    EXPECT_EQ(Label(), L"Help for ");
}

TEST_F(InfoCenterLinksTest, HaveNoCodeOfAnotherBrand) {
    Settings().SetString(Tag::OEM_NAME, L"Other");
    BuildInfoCenterLinks(Settings(), Texts(), L"Brand L5", L"S5");
    EXPECT_EQ(Link(), LinkOf(L""));
    EXPECT_EQ(Label(), L"Help for Brand L5");
}

TEST_F(InfoCenterLinksTest, LoseTheFirstCharacterOfTheCodeWithoutABrand) {
    Settings().SetString(Tag::OEM_NAME, L"");
    BuildInfoCenterLinks(Settings(), Texts(), L"Brand L5", L"S5");
    EXPECT_EQ(Link(), LinkOf(L"_rand L5"));
}

TEST_F(InfoCenterLinksTest, HaveNoCodeForOneThatEndsWithTheBrandAndTellSo) {
    BuildInfoCenterLinks(Settings(), Texts(), L"Brand", L"S6");
    EXPECT_EQ(Link(), LinkOf(L""));
    EXPECT_THAT(BasicLog(), ElementsAre(Record(L"ERROR",
                                               L"A product code ends with the brand and has no code "
                                               L"behind it: Brand")));
}

}  // namespace
