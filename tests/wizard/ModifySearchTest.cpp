// The dialog that changes the search, over the page of the devices.

#include "resources/resource.h"
#include "tests/wizard/NetworkPageTest.h"

using testing::ElementsAre;

namespace {

class ModifySearchTest : public NetworkPageTest {
protected:
    void SetUp() override {
        NetworkPageTest::SetUp();
        Script({L"run"});
        AddDevice(L"10.0.0.9", L"Found");
    }

    // Opens the dialog from the page, where nothing was found.
    void OpenDialog() {
        if (!wizard.IsRunning()) StartOn(IDC_DISCOVERY_LIST);
        EXPECT_TRUE(WaitForHeading(L"NO_PRINTER_FOUND"));
        wizard.Press(IDC_DISCOVERY_MODIFY_SEARCH);
        wizard.WaitForControl(IDC_MODIFY_SEARCH_LOCAL);
    }
    void Choose(int radio, int field) const {
        wizard.Press(radio);
        EXPECT_TRUE(WaitUntilEnabled(field));
    }
    void Type(int field, const std::wstring& text) const {
        SendMessageW(wizard.FindControl(field), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
    }
    void Confirm() const { wizard.Press(IDOK); }
};

TEST_F(ModifySearchTest, SearchesForOneHost) {
    OpenDialog();
    Choose(IDC_MODIFY_SEARCH_BY_HOST, IDC_MODIFY_SEARCH_HOST);
    Type(IDC_MODIFY_SEARCH_HOST, L"printer.example");
    EXPECT_TRUE(WaitUntilEnabled(IDOK));
    Confirm();
    EXPECT_TRUE(WaitForRows(1));
    EXPECT_THAT(Searches(), ElementsAre(L"", L"<UnicastAddress>printer.example</UnicastAddress>"));
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"Filter for Hostname: printer.example"));
}

TEST_F(ModifySearchTest, SearchesInAnotherSubnet) {
    OpenDialog();
    Choose(IDC_MODIFY_SEARCH_BY_SUBNET, IDC_MODIFY_SEARCH_ADDRESS);
    Type(IDC_MODIFY_SEARCH_ADDRESS, L"10.1.0.0");
    Type(IDC_MODIFY_SEARCH_MASK, L"255.255.0.0");
    EXPECT_TRUE(WaitUntilEnabled(IDOK));
    Confirm();
    EXPECT_TRUE(WaitForRows(1));
    EXPECT_THAT(Searches(), ElementsAre(L"", L"<RemoteSubnets>10.1.0.0:255.255.0.0;</RemoteSubnets>"));
}

TEST_F(ModifySearchTest, KeepsOkShutForAMaskInPrefixForm) {
    OpenDialog();
    Choose(IDC_MODIFY_SEARCH_BY_SUBNET, IDC_MODIFY_SEARCH_ADDRESS);
    Type(IDC_MODIFY_SEARCH_ADDRESS, L"10.1.0.0");
    EXPECT_TRUE(WaitUntil([this] { return !IsEnabled(IDOK); }));
    Type(IDC_MODIFY_SEARCH_MASK, L"24");
    EXPECT_FALSE(WaitUntil([this] { return IsEnabled(IDOK); }, std::chrono::milliseconds(700)));
}

TEST_F(ModifySearchTest, TakesAnyTextOnEnter) {
    OpenDialog();
    Choose(IDC_MODIFY_SEARCH_BY_HOST, IDC_MODIFY_SEARCH_HOST);
    EXPECT_TRUE(WaitUntil([this] { return wizard.Focus() == wizard.FindControl(IDC_MODIFY_SEARCH_HOST); }));
    Type(IDC_MODIFY_SEARCH_HOST, L"a b");
    wizard.PressKey(VK_RETURN);
    EXPECT_TRUE(WaitForSearches(2));
    EXPECT_EQ(Searches().back(), L"<UnicastAddress>a b</UnicastAddress>");
}

TEST_F(ModifySearchTest, TakesWhatIsTypedKeyByKeyAndPasted) {
    OpenDialog();
    Choose(IDC_MODIFY_SEARCH_BY_HOST, IDC_MODIFY_SEARCH_HOST);
    EXPECT_TRUE(WaitUntil([this] { return !IsEnabled(IDOK); }));
    const HWND host = wizard.FindControl(IDC_MODIFY_SEARCH_HOST);
    for (const wchar_t sign : std::wstring(L"10.0.0.")) PostMessageW(host, WM_CHAR, sign, 0);
    EXPECT_TRUE(WaitUntil([&] { return WizardDriver::TextOf(host) == L"10.0.0."; }));
    EXPECT_FALSE(WaitUntil([this] { return IsEnabled(IDOK); }, std::chrono::milliseconds(500)));
    SendMessageW(host, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"42"));
    EXPECT_TRUE(WaitUntilEnabled(IDOK));
    Confirm();
    EXPECT_TRUE(WaitForSearches(2));
    EXPECT_EQ(Searches().back(), L"<UnicastAddress>10.0.0.42</UnicastAddress>");
}

TEST_F(ModifySearchTest, CutsATextThatIsTooLong) {
    OpenDialog();
    Choose(IDC_MODIFY_SEARCH_BY_HOST, IDC_MODIFY_SEARCH_HOST);
    Type(IDC_MODIFY_SEARCH_HOST, std::wstring(300, L'a'));
    EXPECT_EQ(WizardDriver::TextOf(wizard.FindControl(IDC_MODIFY_SEARCH_HOST)), std::wstring(255, L'a'));
}

TEST_F(ModifySearchTest, SearchesNotAgainOnCancel) {
    OpenDialog();
    Choose(IDC_MODIFY_SEARCH_BY_HOST, IDC_MODIFY_SEARCH_HOST);
    Type(IDC_MODIFY_SEARCH_HOST, L"printer");
    wizard.Press(IDCANCEL);
    EXPECT_TRUE(WaitUntil([this] { return !IsShown(IDC_MODIFY_SEARCH_LOCAL); }));
    wizard.Press(IDC_DISCOVERY_REFRESH);
    EXPECT_TRUE(WaitForSearches(2));
    EXPECT_EQ(Searches().back(), L"");
}

TEST_F(ModifySearchTest, ShowsTheSearchThatIsInPlace) {
    UseDiscovery(L"<DISCOVER_PARAMS><UnicastAddress>printer</UnicastAddress></DISCOVER_PARAMS>");
    OpenDialog();
    EXPECT_EQ(WizardDriver::TextOf(wizard.FindControl(IDC_MODIFY_SEARCH_HOST)), L"printer");
    EXPECT_TRUE(IsEnabled(IDOK));
    wizard.Press(IDC_MODIFY_SEARCH_LOCAL);
    EXPECT_TRUE(WaitUntilEnabled(IDOK));
    Confirm();
    EXPECT_TRUE(WaitForSearches(2));
    EXPECT_THAT(Searches(), ElementsAre(L"<UnicastAddress>printer</UnicastAddress>", L""));
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"No user-set filter in place"));
}

}  // namespace
