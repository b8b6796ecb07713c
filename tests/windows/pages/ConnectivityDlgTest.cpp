// What the choice of USB makes of the records. No page is behind it here, so that the walk ends with it.

#include <windows.h>

#include <commctrl.h>

#include "pages/ConnectivityDlg.h"
#include "resources/resource.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/CatalogueWorld.h"
#include "tests/windows/world/Sheet.h"
#include "tests/windows/world/TestApp.h"

namespace {

using testing::ElementsAre;

class ConnectivityDlgTest : public CatalogueWorld {
protected:
    ConnectivityDlgTest() {
        EXPECT_TRUE(window.Create(IDD_TEST, nullptr));
        app.SetMainWnd(&window);
        Settings().SetString(TextTag(L"AMAZON_SUPPORTED"), L"TRUE");
        for (const wchar_t* const kind : {L"PRINTER", L"SCANNER", L"FAX", L"OTHER"}) {
            AddPackage(L"Common\\x64", std::wstring(kind) + L".msi").properties[L"DEVICETYPE"] = kind;
        }
        AddDriver(L"x.msi", L"X").properties[L"DRIVERNAME"] = L"Driver X";
        BuildCatalogues();
    }
    // The message that ends the program must not reach the next test.
    ~ConnectivityDlgTest() override { PumpMessages(); }

    void UseConfiguration() const {
        Settings().SetBool(Tag::INSTALL_FROM_CONFIG, true);
        Settings().SetDevices({L"<DRIVER_ID>X</DRIVER_ID>", L"<PORT_TYPE>Local Port</PORT_TYPE>"});
    }
    void Press(int control) {
        page.SendMessage(WM_COMMAND, static_cast<WPARAM>(control),
                         reinterpret_cast<LPARAM>(page.GetDlgItem(control)));
    }
    void Open() { EXPECT_TRUE(page.Create(page.TemplateId(), &window)); }
    void GoOnWith(int choice) {
        Open();
        Press(choice);
        Press(IDOK);
    }
    static std::vector<std::wstring> StillOptional() {
        std::vector<std::wstring> names;
        for (const MSI_APP& record : AppRecords().Select(L"<ISOPTIONAL>true</ISOPTIONAL>"))
            names.push_back(record.productName);
        return names;
    }

    // Whether the page draws anything over a choice that the system has drawn.
    bool DrawsOver(int choice) {
        const Sheet sheet;
        NMCUSTOMDRAW drawing{.hdr = {.hwndFrom = page.GetDlgItem(choice),
                                     .idFrom = static_cast<UINT_PTR>(choice),
                                     .code = static_cast<UINT>(NM_CUSTOMDRAW)},
                             .dwDrawStage = CDDS_POSTPAINT,
                             .hdc = sheet.Context()};
        page.SendMessage(WM_NOTIFY, static_cast<WPARAM>(choice), reinterpret_cast<LPARAM>(&drawing));
        for (int x = 0; x < Sheet::area.right; ++x) {
            for (int y = 0; y < Sheet::area.bottom; ++y) {
                if (sheet.At(x, y) != RGB(0, 0, 0)) return true;
            }
        }
        return false;
    }

    TestApp app;
    CDialogEx window;
    ConnectivityDlg page{context, AppRecords(), DriverRecords()};
};

TEST_F(ConnectivityDlgTest, MakesThePartsOfPredefinedPrintersCoreSoftwareOnUsb) {
    UseConfiguration();
    GoOnWith(IDC_CONNECTIVITY_USB);
    EXPECT_THAT(StillOptional(), ElementsAre(L"OTHER"));
    EXPECT_THAT(Settings().GetDeviceValues(L"PORT_TYPE"), ElementsAre(L"USB", L"USB"));
}

TEST_F(ConnectivityDlgTest, TakesTheNetworkWithoutAChoice) {
    Open();
    Press(IDOK);
    EXPECT_FALSE(Settings().GetBool(Tag::USB));
    EXPECT_THAT(BasicMessages(), testing::Not(testing::Contains(L"Selected Port Type: USB")));
}

TEST_F(ConnectivityDlgTest, LeavesTheDriversAloneOnUsbWhereNoneIsForTheScanner) {
    GoOnWith(IDC_CONNECTIVITY_USB);
    const std::vector<MSI_APP> drivers = DriverRecords().GetDrivers();
    ASSERT_EQ(drivers.size(), 1U);
    EXPECT_EQ(drivers.front().driverId, L"X");
}

TEST_F(ConnectivityDlgTest, LeavesThePartsOfThePrinterOptionalOnUsbWithoutAPredefinedOne) {
    GoOnWith(IDC_CONNECTIVITY_USB);
    EXPECT_THAT(StillOptional(), ElementsAre(L"OTHER", L"PRINTER"));
}

TEST_F(ConnectivityDlgTest, LeavesPredefinedPrintersAloneOnTheNetwork) {
    UseConfiguration();
    GoOnWith(IDC_CONNECTIVITY_NETWORK);
    EXPECT_THAT(StillOptional(), ElementsAre(L"OTHER", L"PRINTER"));
    EXPECT_THAT(Settings().GetDeviceValues(L"PORT_TYPE"), ElementsAre(L"Local Port"));
}

TEST_F(ConnectivityDlgTest, DrawsARingOnTheChoiceThatHasTheFocusAlone) {
    Open();
    window.ShowWindow(SW_SHOW);
    page.ShowWindow(SW_SHOW);
    SetFocus(page.GetDlgItem(IDC_CONNECTIVITY_USB));
    EXPECT_TRUE(DrawsOver(IDC_CONNECTIVITY_USB));
    EXPECT_FALSE(DrawsOver(IDC_CONNECTIVITY_NETWORK));
}

}  // namespace
