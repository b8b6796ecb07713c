#include "catalogue/AppCatalogue.h"
#include "catalogue/DriverInfo.h"
#include "discovery/DeviceChoice.h"
#include "discovery/DiscoveredDevices.h"
#include "printer/ApplyChoice.h"
#include "tests/windows/world/CatalogueWorld.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

class DeviceChoiceTest : public CatalogueWorld {
protected:
    DeviceChoiceTest() {
        DiscoveredDevices::GetInstance().Assign({{.model = L"M1",
                                                  .series = L"S",
                                                  .address = L"10.0.0.1",
                                                  .hostName = L"host1",
                                                  .macAddress = L"A1"},
                                                 {.model = L"M2",
                                                  .series = L"S",
                                                  .address = L"10.0.0.2",
                                                  .hostName = L"host2",
                                                  .macAddress = L"A2",
                                                  .isMultiFunction = true},
                                                 {.model = L"M3", .address = L"10.0.0.3"}});
        AddDriver(L"scan.msi", L"SCAN").properties[L"DRIVERTYPE"] = L"SCAN";
        AddApplication(L"fax", L"FAX", L"OtherFax1");
        AddApplication(L"scanner", L"SCANNER", L"");
        AddApplication(L"plain", L"FAX SCANNER", L"");
    }
    ~DeviceChoiceTest() override { DiscoveredDevices::GetInstance().Assign({}); }

    static std::wstring Setting(const TextTag& tag) { return Settings().GetString(tag); }
    // What is optional and what is selected of the applications and of the scan driver.
    static std::vector<std::wstring> OptionalNames() { return NamesThat(&MSI_APP::isOptional); }
    static std::vector<std::wstring> SelectedNames() { return NamesThat(&MSI_APP::isSelected); }
    static bool IsScanSelected() { return DriverRecords().GetDriver(L"SCAN").isSelected; }

private:
    void AddApplication(const std::wstring& name, const std::wstring& deviceType,
                        const std::wstring& driverId) {
        MSI_APP record;
        record.productName = name;
        record.msiPath = name;
        record.deviceType = deviceType;
        record.driverId = driverId;
        applications.push_back(record);
    }
    static std::vector<std::wstring> NamesThat(bool MSI_APP::*flag) {
        std::vector<std::wstring> names;
        for (const MSI_APP& app : Applications()) {
            if (app.*flag) names.push_back(app.productName);
        }
        return names;
    }

protected:
    // Picks the row on the page and goes on.
    void TakeDevice(const std::wstring& rowName, bool selectedHasFax) {
        ApplyChoice(ChooseDevice(DeviceOfRow(DiscoveredDevices::GetInstance(), rowName, selectedHasFax),
                                 MakeChoiceInputs(Settings(), DriverRecords(), L"")),
                    {Settings(), AppRecords(), DriverRecords(), Texts()});
    }

    // The catalogues with the applications above beside what lies in the tree.
    void Prepare() {
        Settings().SetString(Tag::WIN8_DRVTYPES, L"SCAN");
        BuildCatalogues();
        for (const MSI_APP& record : applications) AppRecords().Append(record);
    }

private:
    std::vector<MSI_APP> applications;
};

TEST_F(DeviceChoiceTest, WritesThePortOfTheLastDeviceOfTheSeries) {
    Prepare();
    Settings().SetString(Tag::OEM_NAME, L"Brand");
    TakeDevice(L"S", false);
    EXPECT_EQ(Setting(Tag::PRINTER_NAME), L"S");
    EXPECT_EQ(Setting(Tag::PORT_NAME), L"host2");
    EXPECT_EQ(Setting(Tag::HOST_NAME), L"host2");
    EXPECT_EQ(Setting(Tag::IPADDRESS), L"10.0.0.2");
    EXPECT_EQ(Setting(Tag::DRIVER_MODEL_NAME), L"M2");
    EXPECT_EQ(Setting(Tag::PORT_TYPE), L"Standard TCP/IP Port");
    EXPECT_TRUE(Settings().GetBool(Tag::SET_DEFAULT) && Settings().GetBool(Tag::ADD_PORT) &&
                Settings().GetBool(Tag::PRINT_DEVICE));
    EXPECT_THAT(BasicMessages(),
                ElementsAre(L"Selected Port Type: Standard TCP/IP Port", L"Selected Host Name: host2",
                            L"Selected Port Name: host2", L"Selected Printer Name: S", L"Selected driver: "));
}

TEST_F(DeviceChoiceTest, FindsNothingForARowThatShowsAModel) {
    Prepare();
    TakeDevice(L"M3", false);
    EXPECT_EQ(Setting(Tag::PRINTER_NAME), L"M3");
    EXPECT_EQ(Setting(Tag::PORT_NAME) + Setting(Tag::HOST_NAME) + Setting(Tag::IPADDRESS) +
                  Setting(Tag::DRIVER_MODEL_NAME),
              L"");
    EXPECT_TRUE(Settings().GetBool(Tag::ADD_PORT));
}

TEST_F(DeviceChoiceTest, OffersScanAndFaxForAMultiFunctionDevice) {
    Prepare();
    TakeDevice(L"S", true);
    EXPECT_THAT(OptionalNames(), UnorderedElementsAre(L"fax", L"scanner"));
    EXPECT_THAT(SelectedNames(), ElementsAre());
    EXPECT_TRUE(IsScanSelected());
}

TEST_F(DeviceChoiceTest, GoesByTheFirstDeviceWithTheHardwareAddress) {
    Prepare();
    DiscoveredDevices::GetInstance().Assign({{.series = L"T", .macAddress = L"A1", .isMultiFunction = true},
                                             {.series = L"S", .macAddress = L"A1"}});
    TakeDevice(L"S", false);
    EXPECT_THAT(OptionalNames(), UnorderedElementsAre(L"fax", L"scanner"));
}

TEST_F(DeviceChoiceTest, TakesTheOfferBackForASingleFunction) {
    Prepare();
    TakeDevice(L"S", true);
    DiscoveredDevices::GetInstance().Assign({{.series = L"S", .macAddress = L"A1"}});
    TakeDevice(L"S", false);
    EXPECT_THAT(OptionalNames(), ElementsAre());
    EXPECT_FALSE(IsScanSelected());
}

TEST_F(DeviceChoiceTest, SelectsFaxApplicationsByTheRowInTheSecondVariant) {
    Settings().SetString(Tag::AMAZON_SUPPORTED, L"TRUE");
    Prepare();
    TakeDevice(L"S", true);
    EXPECT_THAT(SelectedNames(), ElementsAre(L"fax"));
    EXPECT_THAT(OptionalNames(), ElementsAre());
    EXPECT_TRUE(IsScanSelected());
    TakeDevice(L"S", false);
    EXPECT_THAT(SelectedNames(), ElementsAre());
}

TEST_F(DeviceChoiceTest, TurnsToTheDevicesOfAConfiguration) {
    Prepare();
    Settings().SetBool(Tag::INSTALL_FROM_CONFIG, true);
    Settings().SetDevices({L"<DETECT_PRINTER>true</DETECT_PRINTER>", L"<DRIVER_ID>Fax</DRIVER_ID>"});
    TakeDevice(L"S", true);
    EXPECT_THAT(Settings().GetDeviceValues(L"PRINTER_NAME"), Contains(L"S"));
    EXPECT_THAT(Settings().GetDeviceValues(L"PORT_NAME"), ElementsAre(L"host2", L"host2"));
    EXPECT_THAT(Settings().GetDeviceValues(L"IPADDRESS"), ElementsAre(L"10.0.0.2", L"10.0.0.2"));
    EXPECT_THAT(Settings().GetDeviceValues(L"HOST_NAME"), ElementsAre(L"host2", L"host2"));
    EXPECT_THAT(Settings().GetDeviceValues(L"ADD_PORT"), ElementsAre(L"true", L"true"));
    EXPECT_THAT(Settings().GetDeviceValues(L"PORT_TYPE"),
                ElementsAre(L"Standard TCP/IP Port", L"Standard TCP/IP Port"));
    EXPECT_THAT(Settings().GetDeviceValues(L"PRINTER_SERIES_NAME"), ElementsAre(L"S", L"S"));
    EXPECT_THAT(Settings().GetDeviceValues(L"PRINTER_MODEL_NAME"), ElementsAre(L"M2", L"M2"));
}

TEST_F(DeviceChoiceTest, LeavesTheCatalogueToAConfiguration) {
    Prepare();
    Settings().SetBool(Tag::INSTALL_FROM_CONFIG, true);
    DriverRecords().SelectDriver(L"SCAN", false);
    TakeDevice(L"S", true);
    EXPECT_THAT(OptionalNames(), ElementsAre());
    EXPECT_FALSE(IsScanSelected());
}

}  // namespace
