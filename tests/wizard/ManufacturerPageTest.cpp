// The choice of a brand: when it is offered and what it settles.

#include "CommonLib/Utf8.h"
#include "resources/resource.h"
#include "tests/wizard/PageTest.h"

using testing::Not;

namespace {

class ManufacturerPageTest : public PageTest {
protected:
    void SetUp() override {
        PageTest::SetUp();
        tree.Add({.path = L"Applications\\a.msi"});
    }

    static std::wstring Hidden() { return L"<HIDE_START>true</HIDE_START><HIDE_EULA>true</HIDE_EULA>"; }

    void Offer(const std::wstring& list, const std::wstring& proposal = {}) {
        UseSettings(Hidden() + Element(L"MANUFACTURERS", list) + Element(L"DEFAULT_MANUFACTURER", proposal));
    }

    // The same for a package that bears no brand.
    void OfferWithoutBrand(const std::wstring& list) {
        tree.WriteFile(L"Setup\\defaultInstallSettings.xml",
                       ToUtf8(Element(L"OEM", L"Printer") + L"<HIDE_DISCOVERY>true</HIDE_DISCOVERY>" +
                              Hidden() + Element(L"MANUFACTURERS", list)));
        ExpectVendor(L"Printer");
    }

    void ChooseByKeys(int downs) {
        for (int key = 0; key < downs; ++key) wizard.PressKey(VK_DOWN);
        EXPECT_TRUE(WaitUntilEnabled(IDOK));
    }

    void LeaveForTheEnd() {
        wizard.Press(IDOK);
        CloseOnFinishPage();
    }
};

TEST_F(ManufacturerPageTest, IsNotShownWithoutAChoice) {
    Offer({});
    wizard.Start();
    CloseOnFinishPage();
    EXPECT_EQ(FinalSetting(L"OEM_NAME"), tree.Vendor());
    EXPECT_EQ(FinalSetting(L"SHOW_MANUFACTURERS"), L"false");
    EXPECT_THAT(BasicLog(), Not(HasRecordWith(L"", L"was chosen for Manufacturer")));
}

TEST_F(ManufacturerPageTest, TakesTheOnlyBrandWithoutAQuestion) {
    OfferWithoutBrand(L"Halvenny:72");
    wizard.Start();
    CloseOnFinishPage();
    EXPECT_EQ(FinalSetting(L"OEM_NAME"), L"Halvenny");
    EXPECT_EQ(FinalSetting(L"OEMBYTE"), L"72");
    EXPECT_THAT(BasicLog(), Not(HasRecordWith(L"", L"was chosen for Manufacturer")));
}

TEST_F(ManufacturerPageTest, ProposesTheDefault) {
    Offer(L"A:1|B:2", L"B");
    const HWND list = StartOn(IDC_MANUFACTURER_LIST);
    EXPECT_EQ(SendMessageW(list, CB_GETCOUNT, 0, 0), 2);
    EXPECT_EQ(SendMessageW(list, CB_GETCURSEL, 0, 0), 1);
    EXPECT_TRUE(IsEnabled(IDOK));
    LeaveForTheEnd();
    EXPECT_EQ(FinalSetting(L"OEMBYTE"), L"2");
}

TEST_F(ManufacturerPageTest, WaitsForAChoiceWithoutADefault) {
    OfferWithoutBrand(L"A:1|B:2");
    const HWND list = StartOn(IDC_MANUFACTURER_LIST);
    EXPECT_EQ(SendMessageW(list, CB_GETCURSEL, 0, 0), CB_ERR);
    EXPECT_FALSE(IsEnabled(IDOK));
    ChooseByKeys(2);
    LeaveForTheEnd();
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"B was chosen for Manufacturer"));
    EXPECT_EQ(FinalSetting(L"OEM_NAME"), L"B");
    EXPECT_EQ(FinalSetting(L"OEMBYTE"), L"2");
}

TEST_F(ManufacturerPageTest, KeepsThePackagesOwnBrandWhateverIsPicked) {
    Offer(L"A:1|B:2");
    StartOn(IDC_MANUFACTURER_LIST);
    ChooseByKeys(1);
    LeaveForTheEnd();
    EXPECT_THAT(BasicLog(), HasRecord(L"", tree.Vendor() + L" was chosen for Manufacturer"));
    EXPECT_EQ(FinalSetting(L"OEMBYTE"), L"1");
}

TEST_F(ManufacturerPageTest, TakesABrandWithoutACode) {
    UseSettings(Hidden() + L"<OEMBYTE>9</OEMBYTE><MANUFACTURERS>A|B:2</MANUFACTURERS>");
    StartOn(IDC_MANUFACTURER_LIST);
    ChooseByKeys(1);
    LeaveForTheEnd();
    EXPECT_EQ(FinalSetting(L"OEMBYTE"), L"");
    EXPECT_THAT(
        AdvancedLog(),
        HasRecord(L"SUCCESS", L"ManufacturerDlg::GetManufacturers:  Found manufacturer: A OEMByte: "));
}

}  // namespace
