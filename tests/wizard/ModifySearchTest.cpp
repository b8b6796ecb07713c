// The dialog that changes the search, over the page of the devices.

#include "NetworkPageTest.h"

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
        if (!wizard.IsRunning()) StartOn(Control::devices);
        EXPECT_TRUE(WaitForHeading(L"NO_PRINTER_FOUND"));
        wizard.Press(Control::modifySearch);
        wizard.WaitForControl(Control::localSearch);
    }
    void Choose(int radio, int field) const {
        wizard.Press(radio);
        EXPECT_TRUE(WaitUntilEnabled(field));
    }
    void Type(int field, const std::wstring& text) const {
        SendMessageW(wizard.FindControl(field), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
    }
    void Confirm() const { wizard.Press(Control::next); }
};

TEST_F(ModifySearchTest, SearchesForOneHost) {
    OpenDialog();
    Choose(Control::hostSearch, Control::searchHost);
    Type(Control::searchHost, L"printer.example");
    EXPECT_TRUE(WaitUntilEnabled(Control::next));
    Confirm();
    EXPECT_TRUE(WaitForRows(1));
    EXPECT_THAT(Searches(), ElementsAre(L"", L"<UnicastAddress>printer.example</UnicastAddress>"));
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"Filter for Hostname: printer.example"));
}

TEST_F(ModifySearchTest, SearchesInAnotherSubnet) {
    OpenDialog();
    Choose(Control::subnetSearch, Control::searchAddress);
    Type(Control::searchAddress, L"10.1.0.0");
    Type(Control::searchMask, L"255.255.0.0");
    EXPECT_TRUE(WaitUntilEnabled(Control::next));
    Confirm();
    EXPECT_TRUE(WaitForRows(1));
    EXPECT_THAT(Searches(), ElementsAre(L"", L"<RemoteSubnets>10.1.0.0:255.255.0.0;</RemoteSubnets>"));
}

TEST_F(ModifySearchTest, KeepsOkShutForAMaskInPrefixForm) {
    OpenDialog();
    Choose(Control::subnetSearch, Control::searchAddress);
    Type(Control::searchAddress, L"10.1.0.0");
    EXPECT_TRUE(WaitUntil([this] { return !IsEnabled(Control::next); }));
    Type(Control::searchMask, L"24");
    EXPECT_FALSE(WaitUntil([this] { return IsEnabled(Control::next); }, std::chrono::milliseconds(700)));
}

TEST_F(ModifySearchTest, TakesAnyTextOnEnter) {
    OpenDialog();
    Choose(Control::hostSearch, Control::searchHost);
    EXPECT_TRUE(WaitUntil([this] { return wizard.Focus() == wizard.FindControl(Control::searchHost); }));
    Type(Control::searchHost, L"a b");
    wizard.PressKey(VK_RETURN);
    EXPECT_TRUE(WaitForSearches(2));
    EXPECT_EQ(Searches().back(), L"<UnicastAddress>a b</UnicastAddress>");
}

TEST_F(ModifySearchTest, TakesWhatIsTypedKeyByKeyAndPasted) {
    OpenDialog();
    Choose(Control::hostSearch, Control::searchHost);
    EXPECT_TRUE(WaitUntil([this] { return !IsEnabled(Control::next); }));
    const HWND host = wizard.FindControl(Control::searchHost);
    for (const wchar_t sign : std::wstring(L"10.0.0.")) PostMessageW(host, WM_CHAR, sign, 0);
    EXPECT_TRUE(WaitUntil([&] { return WizardDriver::TextOf(host) == L"10.0.0."; }));
    EXPECT_FALSE(WaitUntil([this] { return IsEnabled(Control::next); }, std::chrono::milliseconds(500)));
    SendMessageW(host, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"42"));
    EXPECT_TRUE(WaitUntilEnabled(Control::next));
    Confirm();
    EXPECT_TRUE(WaitForSearches(2));
    EXPECT_EQ(Searches().back(), L"<UnicastAddress>10.0.0.42</UnicastAddress>");
}

TEST_F(ModifySearchTest, CutsATextThatIsTooLong) {
    OpenDialog();
    Choose(Control::hostSearch, Control::searchHost);
    Type(Control::searchHost, std::wstring(300, L'a'));
    EXPECT_EQ(WizardDriver::TextOf(wizard.FindControl(Control::searchHost)), std::wstring(255, L'a'));
}

TEST_F(ModifySearchTest, SearchesNotAgainOnCancel) {
    OpenDialog();
    Choose(Control::hostSearch, Control::searchHost);
    Type(Control::searchHost, L"printer");
    wizard.Press(Control::cancel);
    EXPECT_TRUE(WaitUntil([this] { return !IsShown(Control::localSearch); }));
    wizard.Press(Control::refresh);
    EXPECT_TRUE(WaitForSearches(2));
    EXPECT_EQ(Searches().back(), L"");
}

TEST_F(ModifySearchTest, ShowsTheSearchThatIsInPlace) {
    UseDiscovery(L"<DISCOVER_PARAMS><UnicastAddress>printer</UnicastAddress></DISCOVER_PARAMS>");
    OpenDialog();
    EXPECT_EQ(WizardDriver::TextOf(wizard.FindControl(Control::searchHost)), L"printer");
    EXPECT_TRUE(IsEnabled(Control::next));
    wizard.Press(Control::localSearch);
    EXPECT_TRUE(WaitUntilEnabled(Control::next));
    Confirm();
    EXPECT_TRUE(WaitForSearches(2));
    EXPECT_THAT(Searches(), ElementsAre(L"<UnicastAddress>printer</UnicastAddress>", L""));
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"No user-set filter in place"));
}

}  // namespace
