#include <gmock/gmock.h>

#include <thread>

#include "settings/InstallSettings.h"
#include "settings/TagNames.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

// A store of its own for every test.
class InstallSettingsTest : public testing::Test {
protected:
    void TearDown() override { InstallSettings::DestroyInstance(); }

    static InstallSettings& Settings() { return InstallSettings::GetInstance(); }

    // The whole document, after the one "<" more that the log has.
    static std::wstring Document() { return Settings().StripMarker().substr(1); }
};

TEST_F(InstallSettingsTest, ReadsAMissingTagAsEmptyAndFalse) {
    EXPECT_EQ(Settings().GetString(Tag::OEM), L"");
    EXPECT_FALSE(Settings().GetBool(Tag::REBOOT));
    EXPECT_THAT(Settings().GetAllValues(Tag::DEVICE), IsEmpty());
}

TEST_F(InstallSettingsTest, MovesATagToTheEndWhenSettingIt) {
    Settings().SetStrings({{TextTag(L"A"), L"1"}, {TextTag(L"B"), L"2"}, {TextTag(L"A"), L"3"}});
    EXPECT_EQ(Document(), L"<B>2</B><A>3</A>");
}

TEST_F(InstallSettingsTest, ChangesNothingForAnEmptyTagName) {
    Settings().SetString(TextTag(L"A"), L"1");
    Settings().SetString(TextTag(L""), L"2");
    Settings().SetStrings({});
    Settings().SetBools({});
    EXPECT_EQ(Document(), L"<A>1</A>");
}

TEST_F(InstallSettingsTest, WritesFlagsInLowerCase) {
    Settings().SetBools({{FlagTag(L"A"), true}, {FlagTag(L"B"), false}});
    EXPECT_EQ(Document(), L"<A>true</A><B>false</B>");
}

TEST_F(InstallSettingsTest, CountsAsTheSecondVariantForTheExactWordOnly) {
    for (const wchar_t* text : {L"true", L"True", L"1", L"TRUE "}) {
        Settings().SetString(Tag::AMAZON_SUPPORTED, text);
        EXPECT_FALSE(Settings().IsAmazonSupported());
    }
    Settings().SetString(Tag::AMAZON_SUPPORTED, L"TRUE");
    EXPECT_TRUE(Settings().IsAmazonSupported());
}

struct FlagCase {
    std::wstring text;
    bool flag;
};

class StoredFlagTest : public InstallSettingsTest, public testing::WithParamInterface<FlagCase> {};

TEST_P(StoredFlagTest, IsTrueForAnyCaseOfTrueAndForOne) {
    Settings().SetString(TextTag(L"FLAG"), GetParam().text);
    EXPECT_EQ(Settings().GetBool(FlagTag(L"FLAG")), GetParam().flag);
}

const FlagCase flags[] = {{L"TRUE", true}, {L"True", true},   {L"true", true}, {L"1", true},
                          {L"yes", false}, {L"on", false},    {L"2", false},   {L" true", false},
                          {L"", false},    {L"true ", false}, {L"11", false},  {L"false", false}};

INSTANTIATE_TEST_SUITE_P(Texts, StoredFlagTest, testing::ValuesIn(flags));

TEST_F(InstallSettingsTest, ReadsTheKeysOfARepeatedTag) {
    Settings().SetString(
        TextTag(L"ALL"),
        L"<MODEL_NAME>A:X</MODEL_NAME><MODEL_NAME>A:Y</MODEL_NAME><MODEL_NAME>B</MODEL_NAME>");
    EXPECT_THAT(Settings().GetAllValues(Tag::MODEL_NAME), ElementsAre(L"A:X", L"A:Y", L"B"));
    EXPECT_THAT(Settings().GetKeyedValues(Tag::MODEL_NAME, L":"), ElementsAre(Pair(L"A", L"X")));
}

TEST_F(InstallSettingsTest, LeavesOutDevicesWithoutAValue) {
    Settings().SetDevices(
        {L"<DRIVER_ID>PS</DRIVER_ID>", L"<DRIVER_ID></DRIVER_ID>", L"", L"<DRIVER_ID>Fax</DRIVER_ID>"});
    EXPECT_THAT(Settings().GetDeviceValues(L"DRIVER_ID"), ElementsAre(L"PS", L"Fax"));
}

TEST_F(InstallSettingsTest, SetsTheLocalPortOfAFaxOnUsb) {
    Settings().SetDevices({L"<DRIVER_ID>PS</DRIVER_ID>", L"<DRIVER_ID>Fax</DRIVER_ID>"});
    Settings().SetDeviceValue(L"PORT_TYPE", L"USB");
    EXPECT_THAT(Settings().GetDeviceValues(L"PORT_TYPE"), ElementsAre(L"USB", L"Local Port"));
    EXPECT_THAT(Settings().GetDeviceValues(L"PORT_NAME"), ElementsAre(L"LPT1:"));
    EXPECT_THAT(Settings().GetDeviceValues(L"ADD_PORT"), ElementsAre(L"false"));
}

TEST_F(InstallSettingsTest, PutsEveryDeviceOnTheNetworkPort) {
    Settings().SetDevices({L"<A>1</A>", L"<A>2</A>"});
    Settings().SetNetworkPort(L"10.0.0.7", L"");
    EXPECT_THAT(Settings().GetDeviceValues(L"PORT_NAME"), ElementsAre(L"10.0.0.7", L"10.0.0.7"));
    EXPECT_THAT(Settings().GetDevices().front(),
                testing::StartsWith(L"<A>1</A><PORT_TYPE>Standard TCP/IP Port<"));
}

TEST_F(InstallSettingsTest, AppendsProgramsWithNothingBetween) {
    Settings().AppendStartApp(L"a.exe;");
    Settings().AppendStartApp(L"b.exe");
    EXPECT_EQ(Settings().GetStartApp(), L"a.exe;b.exe");
    EXPECT_EQ(Document(), L"<STARTAPP>a.exe;b.exe</STARTAPP>");
}

TEST_F(InstallSettingsTest, GivesTheValuesOfItsFilesAsTheyStandButWithoutAMarker) {
    Settings().Append(L"<A>1</A>");
    EXPECT_EQ(Settings().FileValues(), L"<A>1</A>");
    Settings().Append(L"\u00EF\u00BB\u00BF<B>2</B>");
    EXPECT_EQ(Settings().FileValues(), Settings().StripMarker());
    EXPECT_EQ(Document(), L"<A>1</A>\u00EF\u00BB\u00BF<B>2</B>");
}

TEST_F(InstallSettingsTest, BeginsEmptyAgainWhenItWasDestroyed) {
    Settings().SetString(TextTag(L"A"), L"1");
    InstallSettings::DestroyInstance();
    EXPECT_EQ(Settings().GetString(TextTag(L"A")), L"");
}

TEST_F(InstallSettingsTest, LosesNoTagOfTwoThreads) {
    const auto setTags = [](const std::wstring& prefix) {
        for (int i = 0; i < 200; ++i) {
            const std::wstring tag = prefix + std::to_wstring(i);
            Settings().SetString(TextTag(tag), L"1");
        }
    };
    std::thread other(setTags, L"OTHER_");
    setTags(L"OWN_");
    other.join();
    for (int i = 0; i < 200; ++i) {
        for (const wchar_t* const prefix : {L"OWN_", L"OTHER_"}) {
            const std::wstring tag = prefix + std::to_wstring(i);
            EXPECT_TRUE(Settings().GetBool(FlagTag(tag)));
        }
    }
}

}  // namespace
