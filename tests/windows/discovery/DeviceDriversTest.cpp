// What the page of the devices offers and proposes of drivers and connections.

#include "resources/resource.h"
#include "settings/TagNames.h"
#include "tests/windows/world/DevicesPageWorld.h"

namespace {

using DeviceDriversTest = DevicesPageWorld;

TEST_F(DeviceDriversTest, ProposesTheDriverOfTheColour) {
    Show();
    Deliver(FourDevices());
    Select(1);
    EXPECT_EQ(SelectedDriver(), L"MONO1 driver");
    Select(2);
    EXPECT_EQ(SelectedDriver(), L"COLOR1V4 driver");
    Select(0);
    EXPECT_EQ(SelectedDriver(), L"NONE1 driver");
}

TEST_F(DeviceDriversTest, ProposesTheDriverWithoutAColourForARowThatShowsAModel) {
    Show();
    Deliver({{.model = L"M", .address = L"10.0.0.2", .colour = L"mono"}});
    Select(0);
    EXPECT_EQ(SelectedDriver(), L"NONE1 driver");
}

TEST_F(DeviceDriversTest, ProposesTheDriverThatThePackageNames) {
    Settings().SetString(Tag::MODEL_DEFAULT_OVERRIDE, L"B:COLOR1V4;");
    Show();
    Deliver(FourDevices());
    Select(1);
    EXPECT_EQ(SelectedDriver(), L"COLOR1V4 driver");
}

TEST_F(DeviceDriversTest, KeepsTheDriverWhenThePackageNamesOneThatThereIsNot) {
    Settings().SetString(Tag::MODEL_DEFAULT_OVERRIDE, L"A:color1v4;");
    Show();
    Deliver(FourDevices());
    Select(1);
    Select(0);
    EXPECT_EQ(SelectedDriver(), L"MONO1 driver");
}

TEST_F(DeviceDriversTest, LeavesThePackagesConfigurationToTheFirstDriverAndNoOther) {
    Settings().SetStrings({{Tag::DRIVERCONFIG_PATH, L"C:\\a.zdc"},
                           {Tag::CONFIG_EXE_PATH, L"C:\\a.exe"},
                           {Tag::OMBREL_DESC, L"Two-sided"}});
    Settings().SetBool(Tag::CONFIG_APPLY_FUTURE, true);
    Show();
    Deliver(FourDevices());
    EXPECT_EQ(SelectedDriver(), L"NONE1 driver");
    Select(0);
    EXPECT_EQ(Settings().GetString(Tag::DRIVERCONFIG_PATH), L"C:\\a.zdc");
    Select(1);
    EXPECT_EQ(SelectedDriver(), L"MONO1 driver");
    for (const TextTag tag : {Tag::DRIVERCONFIG_PATH, Tag::CONFIG_EXE_PATH, Tag::OMBREL_DESC})
        EXPECT_EQ(Settings().GetString(tag), L"");
    EXPECT_FALSE(Settings().GetBool(Tag::CONFIG_APPLY_FUTURE));
}

TEST_F(DeviceDriversTest, HidesTheDriverChoiceWhileThereAreNoDrivers) {
    page.ShowWindow(SW_SHOW);
    for (const int id : {IDC_DISCOVERY_DRIVER_LIST, IDC_DISCOVERY_DRIVER_FRAME, IDC_DISCOVERY_DRIVER_LABEL,
                         IDC_DISCOVERY_CONFIGURE})
        EXPECT_FALSE(IsShown(id)) << id;
    EXPECT_FALSE(IsEnabled(IDC_DISCOVERY_DRIVER_LABEL));
    page.AddDriver(Driver(L"X"));
    for (const int id : {IDC_DISCOVERY_DRIVER_LIST, IDC_DISCOVERY_DRIVER_FRAME, IDC_DISCOVERY_DRIVER_LABEL})
        EXPECT_TRUE(IsShown(id)) << id;
    EXPECT_TRUE(IsEnabled(IDC_DISCOVERY_DRIVER_LABEL));
}

TEST_F(DeviceDriversTest, OffersTheConfigurationWhereThePackageHasATool) {
    tree.Add(L"Install\\MakerDriverConfig.msi");
    Show();
    EXPECT_TRUE(IsShown(IDC_DISCOVERY_CONFIGURE));
}

TEST_F(DeviceDriversTest, OffersTheConfigurationAsSoonAsADriverHasATool) {
    tree.Add(L"Install\\MakerDriverConfig.msi");
    page.ShowWindow(SW_SHOW);
    page.AddDriver(Driver(L"FirstV4"));
    EXPECT_FALSE(IsShown(IDC_DISCOVERY_CONFIGURE));
    page.AddDriver(Driver(L"Second"));
    EXPECT_TRUE(IsShown(IDC_DISCOVERY_CONFIGURE));
}

struct UsbConfigureCase {
    const wchar_t* driverId;
    bool isEnabledOnUsb;
};

class ConfigureOnUsbTest : public DeviceDriversTest, public testing::WithParamInterface<UsbConfigureCase> {};

TEST_P(ConfigureOnUsbTest, IsShutForTheNewerKindOfDriver) {
    Settings().SetStrings({{Tag::USB_SUPPORTED, L"1"},
                           {Tag::WIN8_DRVTYPES, L"MONO1;COLOR1V4"},
                           {TextTag(L"WIN8_NO_COMM_DEFAULT"), GetParam().driverId}});
    AddDriver(L"d.msi", GetParam().driverId).properties[L"ISOMBRELSUPPORTED"] = L"TRUE";
    tree.Add(L"Install\\MakerDriverConfig.msi");
    tree.Add(L"Install\\MakerArdentis.msi");
    BuildCatalogues();
    Show();
    Deliver(FourDevices());
    EXPECT_EQ(SelectedDriver(), GetParam().driverId + std::wstring(L" driver"));
    EXPECT_TRUE(IsEnabled(IDC_DISCOVERY_CONFIGURE));
    Click(IDC_DISCOVERY_USB);
    EXPECT_EQ(IsEnabled(IDC_DISCOVERY_CONFIGURE), GetParam().isEnabledOnUsb);
}

INSTANTIATE_TEST_SUITE_P(Drivers, ConfigureOnUsbTest,
                         testing::Values(UsbConfigureCase{L"MONO1", true},
                                         UsbConfigureCase{L"COLOR1V4", false}));

TEST_F(DeviceDriversTest, HidesTheDriverListInARunFromConfiguration) {
    Settings().SetBool(Tag::INSTALL_FROM_CONFIG, true);
    Show();
    EXPECT_FALSE(IsShown(IDC_DISCOVERY_DRIVER_LIST) || IsShown(IDC_DISCOVERY_CONFIGURE));
}

TEST_F(DeviceDriversTest, HidesTheChoicesInTheSecondVariant) {
    Settings().SetStrings({{Tag::AMAZON_SUPPORTED, L"TRUE"}, {Tag::USB_SUPPORTED, L"1"}});
    AddPackage(L"Applications", L"n.msi").properties[L"APPTYPE"] = L"NIMBOJET";
    BuildCatalogues();
    Show();
    for (const int id : {IDC_DISCOVERY_DRIVER_LIST, IDC_DISCOVERY_DRIVER_FRAME, IDC_DISCOVERY_DRIVER_LABEL,
                         IDC_DISCOVERY_CONFIGURE, IDC_DISCOVERY_USB, IDC_DISCOVERY_NIMBOJET}) {
        EXPECT_FALSE(IsShown(id)) << id;
    }
    EXPECT_FALSE(IsEnabled(IDC_DISCOVERY_USB) || IsEnabled(IDC_DISCOVERY_NIMBOJET) ||
                 IsEnabled(IDC_DISCOVERY_DRIVER_LABEL));
}

TEST_F(DeviceDriversTest, HidesTheChoicesAgainWheneverItIsShownInTheSecondVariant) {
    Settings().SetString(Tag::AMAZON_SUPPORTED, L"TRUE");
    Show();
    const std::vector<int> choices{IDC_DISCOVERY_DRIVER_LIST, IDC_DISCOVERY_DRIVER_FRAME,
                                   IDC_DISCOVERY_DRIVER_LABEL, IDC_DISCOVERY_CONFIGURE};
    for (const int id : choices) ShowWindow(At(id), SW_SHOW);
    page.ShowWindow(SW_HIDE);
    page.ShowWindow(SW_SHOW);
    for (const int id : choices) EXPECT_FALSE(IsShown(id)) << id;
}

TEST_F(DeviceDriversTest, OffersUsbToThePackagesThatAskForIt) {
    Settings().SetString(Tag::USB_SUPPORTED, L"1");
    Show();
    EXPECT_TRUE(IsShown(IDC_DISCOVERY_USB) && IsEnabled(IDC_DISCOVERY_USB));
    EXPECT_FALSE(IsShown(IDC_DISCOVERY_NIMBOJET) || IsEnabled(IDC_DISCOVERY_NIMBOJET));
}

TEST_F(DeviceDriversTest, OffersNoUsbForAnyOtherValue) {
    Settings().SetString(Tag::USB_SUPPORTED, L"true");
    Show();
    EXPECT_FALSE(IsShown(IDC_DISCOVERY_USB) || IsEnabled(IDC_DISCOVERY_USB));
}

TEST_F(DeviceDriversTest, OffersTheNimbojetThatThePackageHas) {
    AddPackage(L"Applications", L"n.msi").properties[L"APPTYPE"] = L"NIMBOJET";
    BuildCatalogues();
    Show();
    EXPECT_TRUE(IsShown(IDC_DISCOVERY_NIMBOJET) && IsEnabled(IDC_DISCOVERY_NIMBOJET));
}

class RadioTest : public DeviceDriversTest, public testing::WithParamInterface<int> {
protected:
    RadioTest() {
        Settings().SetString(Tag::USB_SUPPORTED, L"1");
        AddPackage(L"Applications", L"n.msi").properties[L"APPTYPE"] = L"NIMBOJET";
        BuildCatalogues();
    }
};

TEST_P(RadioTest, OpensNextAndShutsTheSearch) {
    Show();
    Click(GetParam());
    EXPECT_TRUE(IsEnabled(IDOK));
    for (const int id :
         {IDC_DISCOVERY_LIST, IDC_DISCOVERY_REFRESH, IDC_DISCOVERY_MODIFY_SEARCH, IDC_DISCOVERY_ADD_PORT})
        EXPECT_FALSE(IsEnabled(id)) << id;
    EXPECT_EQ(SelectedDriver(), L"NONE1 driver");
}

TEST_P(RadioTest, LeavesTheSelectedRow) {
    Show();
    Deliver(FourDevices());
    Click(GetParam());
    EXPECT_EQ(SelectedRow(), 3);
}

TEST_P(RadioTest, IsNotChosenByTheFocusAlone) {
    Show();
    SetFocus(At(IDCANCEL));
    SetFocus(At(GetParam()));
    EXPECT_TRUE(IsEnabled(IDC_DISCOVERY_LIST));
}

TEST_P(RadioTest, GivesWayToTheCommandThatHasNoControl) {
    Show();
    Deliver(FourDevices());
    Click(GetParam());
    page.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_DISCOVERY_BACK_TO_LIST, BN_CLICKED));
    for (const int id : {IDC_DISCOVERY_LIST, IDC_DISCOVERY_REFRESH, IDC_DISCOVERY_MODIFY_SEARCH,
                         IDC_DISCOVERY_ADD_PORT, IDOK})
        EXPECT_TRUE(IsEnabled(id)) << id;
    EXPECT_EQ(At(IDC_DISCOVERY_BACK_TO_LIST), nullptr);
    EXPECT_EQ(SelectedDriver(), L"NONE1 driver");
    EXPECT_EQ(GetFocus(), At(IDC_DISCOVERY_LIST));
}

TEST_P(RadioTest, KeepsNextOpenWhenAListArrives) {
    Show();
    Click(GetParam());
    page.NoPrinterFound();
    PumpMessages();
    EXPECT_TRUE(IsEnabled(IDOK));
}

INSTANTIATE_TEST_SUITE_P(Connections, RadioTest, testing::Values(IDC_DISCOVERY_USB, IDC_DISCOVERY_NIMBOJET));

TEST_F(DeviceDriversTest, ClosesNextForTheCommandThatHasNoControlWithoutARow) {
    Show();
    EnableWindow(At(IDOK), TRUE);
    page.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_DISCOVERY_BACK_TO_LIST, BN_CLICKED));
    EXPECT_FALSE(IsEnabled(IDOK));
}

TEST_F(DeviceDriversTest, GoesBackToTheFirstRowAsToAnyOther) {
    Show();
    Deliver({{.series = L"A", .address = L"10.0.0.1"}});
    Select(0);
    SetFocus(At(IDCANCEL));
    page.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_DISCOVERY_BACK_TO_LIST, BN_CLICKED));
    EXPECT_EQ(GetFocus(), At(IDC_DISCOVERY_LIST));
    EXPECT_TRUE(IsEnabled(IDOK));
}

}  // namespace
