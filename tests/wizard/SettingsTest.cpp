// The two settings files as they take effect in a run.

#include "CommonLib/Utf8.h"
#include "tests/wizard/WizardTest.h"

using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace {

class SettingsTest : public WizardTest {
protected:
    void SetUp() override {
        WizardTest::SetUp();
        tree.Add({.path = L"Applications\\a.msi"});
    }

    void SetDefaults(const std::wstring& document) {
        tree.SetSettings(std::wstring(Settings::silent) + document);
    }

    // The record of a settings file that cannot be read.
    std::wstring ReadFailure(const std::wstring& file) const {
        return L"InstallSettings::ReadFromFile(), Loading InstallSettings file failed! " +
               tree.ProgramFolder().wstring() + L"\\..\\" + file;
    }
};

TEST_F(SettingsTest, DumpsTheDefaultsAndThenTheMergedValues) {
    SetDefaults(L"<A>1</A>");
    tree.SetUserSettings(L"<A>2</A>");
    Run();
    const std::vector<std::wstring> messages = BasicMessages(L"");
    ASSERT_GE(messages.size(), 4U);
    EXPECT_EQ(messages[0], L"Default Configuration File Values");
    EXPECT_THAT(messages[1], HasSubstr(L"<A>1</A>"));
    EXPECT_EQ(messages[2], L"Default Configuration File Values");
    EXPECT_THAT(messages[3], AllOf(HasSubstr(L"<A>2</A>"), Not(HasSubstr(L"<A>1</A>"))));
}

TEST_F(SettingsTest, RunsWithTheVendorPrinterWhenTheDefaultsAreEmpty) {
    tree.WriteFile(L"Setup\\defaultInstallSettings.xml", {});
    tree.SetUserSettings(Settings::silent);
    ExpectVendor(L"Printer");
    Run();
    EXPECT_THAT(BasicLog(), HasRecord(L"ERROR",
                                      L"Default Settings file does not have Vendor name. Bad configuration "
                                      L"found. Ensure UTF-8 file format is used."));
    EXPECT_EQ(FinalSetting(L"OEM"), L"Printer");
    EXPECT_THAT(CommandOf(L"a.msi"), HasSubstr(Element(L"TARGET_DIR", TargetFolder())));
}

TEST_F(SettingsTest, PutsARepeatedTagInPlaceOfTheDefault) {
    SetDefaults(L"<A>1</A>");
    tree.SetUserSettings(L"<A>2</A><A>3</A>");
    Run();
    EXPECT_THAT(FinalSettings(), HasSubstr(L"<A>2</A><A>3</A>"));
    EXPECT_THAT(FinalSettings(), Not(HasSubstr(L"<A>1</A>")));
    EXPECT_EQ(FinalSetting(L"A"), L"2");
}

TEST_F(SettingsTest, KeepsTheDefaultWhereTheUserSettingIsEmpty) {
    SetDefaults(L"<A>1</A>");
    tree.SetUserSettings(L"<A></A>");
    Run();
    EXPECT_EQ(FinalSetting(L"A"), L"1");
}

TEST_F(SettingsTest, AppendsAUserSettingThatHasNoDefault) {
    tree.SetUserSettings(L"<B>new</B>");
    Run();
    EXPECT_EQ(FinalSetting(L"B"), L"new");
    EXPECT_EQ(FinalSetting(L"INSTALL_FROM_CONFIG"), L"true");
}

TEST_F(SettingsTest, TakesADeviceOverSeveralLinesForGeneralSettings) {
    SetDefaults(L"<WIN8_DRVTYPES>X</WIN8_DRVTYPES>");
    tree.SetUserSettings(L"<DEVICE>\r\n<DRIVER_ID>X</DRIVER_ID>\r\n<HOST_NAME>h</HOST_NAME>\r\n</DEVICE>");
    tree.Add({.path = L"Drivers\\x64\\x.msi",
              .properties = L"<ProductName>X</ProductName><DRIVERID>X</DRIVERID>"});
    Run();
    EXPECT_EQ(FinalSetting(L"INSTALL_FROM_CONFIG"), L"true");
    EXPECT_EQ(FinalSetting(L"HOST_NAME"), L"h");
    EXPECT_THAT(CommandOf(L"x.msi"), StartsWith(L"<PRINTER_INFO></PRINTER_INFO>"));
}

TEST_F(SettingsTest, RunsAsUsualWithoutUserSettings) {
    Run();
    EXPECT_THAT(AdvancedLog(), HasRecord(L"ERROR", ReadFailure(L"PackageUserSettings.xml")));
    EXPECT_EQ(FinalSetting(L"INSTALL_FROM_CONFIG"), L"");
    EXPECT_EQ(FinalSetting(L"APPS_ONLY_PACKAGE"), L"true");
    EXPECT_THAT(Installs(), ElementsAre(L"a.msi"));
}

TEST_F(SettingsTest, TakesUnreadableUserSettingsForMissingOnes) {
    tree.SetUserSettings(L"<B>new</B>");
    const FileHandle owner(CreateFileW((tree.Root() / L"Setup\\PackageUserSettings.xml").c_str(),
                                       GENERIC_READ, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL,
                                       nullptr));
    Run();
    EXPECT_THAT(AdvancedLog(), HasRecord(L"ERROR", ReadFailure(L"PackageUserSettings.xml")));
    EXPECT_EQ(FinalSetting(L"B"), L"");
    EXPECT_EQ(FinalSetting(L"INSTALL_FROM_CONFIG"), L"");
}

TEST_F(SettingsTest, KeepsAByteOrderMarkAtTheHeadOfTheSettings) {
    tree.WriteFile(L"Setup\\defaultInstallSettings.xml",
                   "\xEF\xBB\xBF" + ToUtf8(Element(L"OEM", tree.Vendor()) + Settings::silent));
    Run();
    EXPECT_THAT(BasicMessages(L"").at(1), StartsWith(L"\xFEFF" + Element(L"OEM", tree.Vendor())));
    EXPECT_THAT(Installs(), ElementsAre(L"a.msi"));
}

TEST_F(SettingsTest, LeavesTheChainOfAPackageWithoutTheSecondVariantAsItIs) {
    SetDefaults(L"<AMAZON_SUPPORTED>true</AMAZON_SUPPORTED>");
    Run();
    EXPECT_EQ(FinalSetting(L"HIDE_CONNECTIVITY"), L"true");
    EXPECT_EQ(FinalSetting(L"HIDE_SECURITY"), L"");
}

TEST_F(SettingsTest, TurnsToTheSecondVariantByTheExactWordAlone) {
    SetDefaults(L"<AMAZON_SUPPORTED>TRUE</AMAZON_SUPPORTED>");
    Run();
    EXPECT_EQ(FinalSetting(L"HIDE_CONNECTIVITY"), L"");
    EXPECT_EQ(FinalSetting(L"HIDE_SECURITY"), L"true");
}

TEST_F(SettingsTest, BeginsTheFinalValuesWithADoubledSign) {
    Run();
    EXPECT_THAT(FinalSettings(), StartsWith(L"<<OEM>"));
}

}  // namespace
