#include <windows.h>

#include <commctrl.h>

#include "discovery/ModifySearchDlg.h"
#include "resources/resource.h"
#include "settings/TagNames.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/DialogUser.h"
#include "tests/windows/world/PatchedImport.h"
#include "tests/windows/world/SettingsTest.h"
#include "tests/windows/world/TestApp.h"
#include "tests/wizard/Waiting.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

// What the fields have said in balloons.
std::vector<std::wstring> balloons;

LRESULT CALLBACK NoteBalloon(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
    if (message != EM_SHOWBALLOONTIP) return DefSubclassProc(window, message, wParam, lParam);
    const auto& tip = *reinterpret_cast<const EDITBALLOONTIP*>(lParam);
    EXPECT_EQ(tip.pszTitle, std::wstring());
    EXPECT_EQ(tip.ttiIcon, TTI_NONE);
    balloons.emplace_back(tip.pszText);
    return TRUE;
}

BOOL WINAPI RefuseVersion(LPOSVERSIONINFOEXW, DWORD, DWORDLONG) {
    return FALSE;
}

class ModifySearchDlgTest : public SettingsTest {
protected:
    ModifySearchDlgTest() {
        std::string texts = "<ADD_NETWORK_PRINTER>Where?</ADD_NETWORK_PRINTER>";
        for (const char* const key : {"MSG_HOSTNAME_LIMIT", "MSG_INVALID_IPHOST_NAME", "MSG_IP_LIMIT",
                                      "MSG_INVALID_IP", "MSG_SUBNET_LIMIT", "MSG_INVALID_SUBNET"}) {
            texts += std::string("<") + key + ">" + key + "</" + key + ">";
        }
        AddTexts(texts);
        balloons.clear();
        EXPECT_TRUE(window.Create(IDD_TEST, nullptr));
        app.SetMainWnd(&window);
    }

    void Open(const std::wstring& search = {}) {
        Settings().SetString(Tag::DISCOVER_PARAMS, search);
        EXPECT_TRUE(dialog.Create(dialog.TemplateId(), &window));
        for (const int field : {IDC_MODIFY_SEARCH_HOST, IDC_MODIFY_SEARCH_ADDRESS, IDC_MODIFY_SEARCH_MASK})
            SetWindowSubclass(At(field), &NoteBalloon, 1, 0);
        dialog.ShowWindow(SW_SHOW);
    }
    HWND At(int id) const { return dialog.GetDlgItem(id); }
    void Choose(int radio) const { SendMessageW(At(radio), BM_CLICK, 0, 0); }
    void Type(int field, const std::wstring& text) const { SetWindowTextW(At(field), text.c_str()); }
    std::wstring Text(int field) const {
        std::wstring text(600, L'\0');
        text.resize(static_cast<std::size_t>(GetWindowTextW(At(field), text.data(), 600)));
        return text;
    }
    bool IsChecked(int radio) const { return SendMessageW(At(radio), BM_GETCHECK, 0, 0) == BST_CHECKED; }
    bool IsEnabled(int id) const { return IsWindowEnabled(At(id)) != FALSE; }
    // The user pauses, for longer than the check waits.
    void Pause() const { dialog.SendMessage(WM_TIMER, 0); }
    void Confirm() const { dialog.SendMessage(WM_COMMAND, IDOK); }
    static std::wstring Search() { return Settings().GetString(Tag::DISCOVER_PARAMS); }

    TestApp app;
    CDialogEx window;
    ModifySearchDlg dialog{context, window};
};

TEST_F(ModifySearchDlgTest, OpensOnTheOwnSubnet) {
    Open();
    EXPECT_EQ(dialog.GetWindowText(), L"Where?");
    EXPECT_TRUE(IsChecked(IDC_MODIFY_SEARCH_LOCAL));
    EXPECT_FALSE(IsEnabled(IDC_MODIFY_SEARCH_HOST) || IsEnabled(IDC_MODIFY_SEARCH_ADDRESS) ||
                 IsEnabled(IDC_MODIFY_SEARCH_MASK));
    EXPECT_FALSE(IsWindowVisible(At(IDC_HELP_BUTTON)));
    Pause();
    EXPECT_TRUE(IsEnabled(IDOK));
}

TEST_F(ModifySearchDlgTest, OpensOnTheStoredHostWithoutACheck) {
    Open(L"<UnicastAddress>not a host!</UnicastAddress>");
    EXPECT_TRUE(IsChecked(IDC_MODIFY_SEARCH_BY_HOST));
    EXPECT_EQ(Text(IDC_MODIFY_SEARCH_HOST), L"not a host!");
    EXPECT_TRUE(IsEnabled(IDC_MODIFY_SEARCH_HOST) && IsEnabled(IDOK));
    EXPECT_FALSE(IsEnabled(IDC_MODIFY_SEARCH_ADDRESS) || IsEnabled(IDC_MODIFY_SEARCH_MASK));
    EXPECT_THAT(balloons, IsEmpty());
}

TEST_F(ModifySearchDlgTest, OpensOnTheStoredSubnet) {
    Open(L"<RemoteSubnets>10.1.0.0:255.255.0.0;</RemoteSubnets>");
    EXPECT_TRUE(IsChecked(IDC_MODIFY_SEARCH_BY_SUBNET));
    EXPECT_EQ(Text(IDC_MODIFY_SEARCH_ADDRESS), L"10.1.0.0");
    EXPECT_EQ(Text(IDC_MODIFY_SEARCH_MASK), L"255.255.0.0");
    EXPECT_TRUE(IsEnabled(IDC_MODIFY_SEARCH_ADDRESS) && IsEnabled(IDC_MODIFY_SEARCH_MASK) && IsEnabled(IDOK));
    EXPECT_FALSE(IsEnabled(IDC_MODIFY_SEARCH_HOST));
}

TEST_F(ModifySearchDlgTest, TellsOfASubnetWithoutAColonAndChecksNothing) {
    Open(L"<RemoteSubnets>10.1.0.0</RemoteSubnets>");
    EXPECT_FALSE(IsChecked(IDC_MODIFY_SEARCH_LOCAL) || IsChecked(IDC_MODIFY_SEARCH_BY_HOST) ||
                 IsChecked(IDC_MODIFY_SEARCH_BY_SUBNET));
    EXPECT_THAT(BasicMessages(), Contains(L"Subnet values are not proper"));
}

TEST_F(ModifySearchDlgTest, TellsOfASearchOfNoKnownKind) {
    Open(L"<Other>x</Other>");
    EXPECT_FALSE(IsChecked(IDC_MODIFY_SEARCH_LOCAL) || IsChecked(IDC_MODIFY_SEARCH_BY_HOST) ||
                 IsChecked(IDC_MODIFY_SEARCH_BY_SUBNET));
    EXPECT_THAT(BasicMessages(), Contains(L"No control is checked"));
}

TEST_F(ModifySearchDlgTest, EnablesTheFieldsOfTheChosenSearch) {
    Open();
    Choose(IDC_MODIFY_SEARCH_BY_HOST);
    EXPECT_TRUE(IsEnabled(IDC_MODIFY_SEARCH_HOST));
    EXPECT_FALSE(IsEnabled(IDC_MODIFY_SEARCH_ADDRESS) || IsEnabled(IDC_MODIFY_SEARCH_MASK));
    EXPECT_EQ(GetFocus(), At(IDC_MODIFY_SEARCH_HOST));
    Choose(IDC_MODIFY_SEARCH_BY_SUBNET);
    EXPECT_FALSE(IsEnabled(IDC_MODIFY_SEARCH_HOST));
    EXPECT_TRUE(IsEnabled(IDC_MODIFY_SEARCH_ADDRESS) && IsEnabled(IDC_MODIFY_SEARCH_MASK));
    EXPECT_EQ(GetFocus(), At(IDC_MODIFY_SEARCH_ADDRESS));
    Choose(IDC_MODIFY_SEARCH_LOCAL);
    EXPECT_FALSE(IsEnabled(IDC_MODIFY_SEARCH_HOST) || IsEnabled(IDC_MODIFY_SEARCH_ADDRESS) ||
                 IsEnabled(IDC_MODIFY_SEARCH_MASK));
}

struct FieldCase {
    const wchar_t* text;
    bool isAccepted;
};

void PrintTo(const FieldCase& field, std::ostream* stream) {
    *stream << testing::PrintToString(std::wstring(field.text));
}

class HostFieldTest : public ModifySearchDlgTest, public testing::WithParamInterface<FieldCase> {};

TEST_P(HostFieldTest, IsCheckedWhenTheUserPauses) {
    Open();
    Choose(IDC_MODIFY_SEARCH_BY_HOST);
    Type(IDC_MODIFY_SEARCH_HOST, GetParam().text);
    Pause();
    EXPECT_EQ(IsEnabled(IDOK), GetParam().isAccepted);
    EXPECT_EQ(balloons, GetParam().isAccepted ? std::vector<std::wstring>()
                                              : std::vector<std::wstring>{L"MSG_INVALID_IPHOST_NAME"});
}

INSTANTIATE_TEST_SUITE_P(Texts, HostFieldTest,
                         testing::Values(FieldCase{L"10.0.0.1", true}, FieldCase{L"2001:db8::1", true},
                                         FieldCase{L"printer-7.example", true}, FieldCase{L"a b", false},
                                         FieldCase{L"-x", false}, FieldCase{L"2001:db8::g", false}));

TEST_F(ModifySearchDlgTest, SaysNothingAboutAnEmptyHost) {
    Open();
    Choose(IDC_MODIFY_SEARCH_BY_HOST);
    Pause();
    EXPECT_FALSE(IsEnabled(IDOK));
    EXPECT_THAT(balloons, IsEmpty());
}

TEST_F(ModifySearchDlgTest, RefusesAGoodHostThatIsAsItWas) {
    Open();
    Choose(IDC_MODIFY_SEARCH_BY_HOST);
    Type(IDC_MODIFY_SEARCH_HOST, L"printer");
    Pause();
    EXPECT_TRUE(IsEnabled(IDOK));
    // A character is typed and deleted again before the check.
    Type(IDC_MODIFY_SEARCH_HOST, L"printers");
    Type(IDC_MODIFY_SEARCH_HOST, L"printer");
    Pause();
    EXPECT_FALSE(IsEnabled(IDOK));
    Type(IDC_MODIFY_SEARCH_HOST, L"printer2");
    Pause();
    EXPECT_TRUE(IsEnabled(IDOK));
}

TEST_F(ModifySearchDlgTest, ChecksAnUnchangedHostOnceMoreBehindARadioClick) {
    Open();
    Choose(IDC_MODIFY_SEARCH_BY_HOST);
    Type(IDC_MODIFY_SEARCH_HOST, L"printer");
    Pause();
    Choose(IDC_MODIFY_SEARCH_LOCAL);
    Pause();
    Choose(IDC_MODIFY_SEARCH_BY_HOST);
    Pause();
    EXPECT_TRUE(IsEnabled(IDOK));
}

TEST_F(ModifySearchDlgTest, LetsAnEmptyHostUseUpTheExtraCheck) {
    Open();
    Choose(IDC_MODIFY_SEARCH_BY_HOST);
    Type(IDC_MODIFY_SEARCH_HOST, L"printer");
    Pause();
    Type(IDC_MODIFY_SEARCH_HOST, L"");
    Choose(IDC_MODIFY_SEARCH_BY_HOST);
    Pause();
    Type(IDC_MODIFY_SEARCH_HOST, L"printer");
    Pause();
    EXPECT_FALSE(IsEnabled(IDOK));
}

TEST_F(ModifySearchDlgTest, RepeatsNoBalloonForATextThatIsStillWrong) {
    Open();
    Choose(IDC_MODIFY_SEARCH_BY_HOST);
    Type(IDC_MODIFY_SEARCH_HOST, L"a b");
    Pause();
    Choose(IDC_MODIFY_SEARCH_LOCAL);
    Choose(IDC_MODIFY_SEARCH_BY_HOST);
    Pause();
    EXPECT_FALSE(IsEnabled(IDOK));
    EXPECT_EQ(balloons.size(), 1u);
}

TEST_F(ModifySearchDlgTest, KeepsAHostOfTheGreatestLength) {
    Open();
    Choose(IDC_MODIFY_SEARCH_BY_HOST);
    Type(IDC_MODIFY_SEARCH_HOST, std::wstring(255, L'a'));
    Pause();
    EXPECT_TRUE(IsEnabled(IDOK));
    EXPECT_THAT(balloons, IsEmpty());
}

TEST_F(ModifySearchDlgTest, CutsAHostThatIsTooLongAtOnceAndTakesItUntested) {
    Open();
    Choose(IDC_MODIFY_SEARCH_BY_HOST);
    Type(IDC_MODIFY_SEARCH_HOST, std::wstring(255, L'!') + L"!");
    EXPECT_EQ(Text(IDC_MODIFY_SEARCH_HOST), std::wstring(255, L'!'));
    EXPECT_THAT(balloons, ElementsAre(L"MSG_HOSTNAME_LIMIT"));
    EXPECT_TRUE(IsEnabled(IDOK));
    DWORD caret = 0;
    SendMessageW(At(IDC_MODIFY_SEARCH_HOST), EM_GETSEL, reinterpret_cast<WPARAM>(&caret), 0);
    EXPECT_EQ(caret, 255u);
}

TEST_F(ModifySearchDlgTest, TakesACutHostUntilTheUserChangesIt) {
    Open();
    Choose(IDC_MODIFY_SEARCH_BY_HOST);
    Type(IDC_MODIFY_SEARCH_HOST, std::wstring(300, L'!'));
    EXPECT_TRUE(IsEnabled(IDOK));
    // The cut itself was a change, and the check that it sets off finds the text that it knows.
    Pause();
    EXPECT_TRUE(IsEnabled(IDOK));
    Type(IDC_MODIFY_SEARCH_HOST, std::wstring(254, L'!'));
    Pause();
    EXPECT_FALSE(IsEnabled(IDOK));
}

struct SubnetCase {
    const wchar_t* address;
    const wchar_t* mask;
    bool isAccepted;
    std::vector<std::wstring> balloons;
};

void PrintTo(const SubnetCase& subnet, std::ostream* stream) {
    *stream << testing::PrintToString(std::wstring(subnet.address)) << " "
            << testing::PrintToString(std::wstring(subnet.mask));
}

class SubnetFieldsTest : public ModifySearchDlgTest, public testing::WithParamInterface<SubnetCase> {};

TEST_P(SubnetFieldsTest, AreCheckedWhenTheUserPauses) {
    Open();
    Choose(IDC_MODIFY_SEARCH_BY_SUBNET);
    Type(IDC_MODIFY_SEARCH_ADDRESS, GetParam().address);
    Type(IDC_MODIFY_SEARCH_MASK, GetParam().mask);
    Pause();
    EXPECT_EQ(IsEnabled(IDOK), GetParam().isAccepted);
    EXPECT_EQ(balloons, GetParam().balloons);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, SubnetFieldsTest,
    testing::Values(SubnetCase{L"10.1.0.0", L"255.255.0.0", true, {}},
                    SubnetCase{L"2001:db8::", L"ffff:ffff::", true, {}},
                    SubnetCase{L"10.1.0.0", L"24", false, {L"MSG_INVALID_SUBNET"}},
                    SubnetCase{L"10.1.0", L"255.255.0.0", false, {L"MSG_INVALID_IP"}},
                    SubnetCase{L"host", L"mask", false, {L"MSG_INVALID_IP", L"MSG_INVALID_SUBNET"}},
                    SubnetCase{L"", L"255.255.0.0", false, {}}, SubnetCase{L"10.1.0.0", L"", false, {}}));

TEST_F(ModifySearchDlgTest, KeepsAGoodSubnetThatIsAsItWas) {
    Open();
    Choose(IDC_MODIFY_SEARCH_BY_SUBNET);
    Type(IDC_MODIFY_SEARCH_ADDRESS, L"10.1.0.0");
    Type(IDC_MODIFY_SEARCH_MASK, L"255.255.0.0");
    Pause();
    Type(IDC_MODIFY_SEARCH_ADDRESS, L"10.1.0.0");
    Pause();
    EXPECT_TRUE(IsEnabled(IDOK));
}

TEST_F(ModifySearchDlgTest, CutsAnAddressThatIsTooLongAtOnce) {
    Open();
    Choose(IDC_MODIFY_SEARCH_BY_SUBNET);
    Type(IDC_MODIFY_SEARCH_MASK, L"255.255.0.0");
    Type(IDC_MODIFY_SEARCH_ADDRESS, std::wstring(46, L'1'));
    EXPECT_EQ(Text(IDC_MODIFY_SEARCH_ADDRESS), std::wstring(45, L'1'));
    EXPECT_THAT(balloons, ElementsAre(L"MSG_IP_LIMIT"));
    EXPECT_TRUE(IsEnabled(IDOK));
    Pause();
    EXPECT_TRUE(IsEnabled(IDOK));
    EXPECT_EQ(balloons.size(), 1u);
}

TEST_F(ModifySearchDlgTest, CutsAMaskThatIsTooLongAtOnce) {
    Open();
    Choose(IDC_MODIFY_SEARCH_BY_SUBNET);
    Type(IDC_MODIFY_SEARCH_ADDRESS, L"10.1.0.0");
    Type(IDC_MODIFY_SEARCH_MASK, std::wstring(60, L'2'));
    EXPECT_EQ(Text(IDC_MODIFY_SEARCH_MASK), std::wstring(45, L'2'));
    EXPECT_THAT(balloons, ElementsAre(L"MSG_SUBNET_LIMIT"));
}

TEST_F(ModifySearchDlgTest, TestsAnAddressOfTheGreatestLength) {
    Open();
    Choose(IDC_MODIFY_SEARCH_BY_SUBNET);
    Type(IDC_MODIFY_SEARCH_MASK, L"255.255.0.0");
    Type(IDC_MODIFY_SEARCH_ADDRESS, std::wstring(45, L'1'));
    Pause();
    EXPECT_FALSE(IsEnabled(IDOK));
    EXPECT_THAT(balloons, ElementsAre(L"MSG_INVALID_IP"));
}

TEST_F(ModifySearchDlgTest, StoresTheHostOnEnterThoughOkIsDisabled) {
    Open();
    Choose(IDC_MODIFY_SEARCH_BY_HOST);
    MSG enter{.hwnd = At(IDC_MODIFY_SEARCH_HOST), .message = WM_KEYDOWN, .wParam = VK_RETURN};
    Type(IDC_MODIFY_SEARCH_HOST, L"not good!");
    Pause();
    EXPECT_FALSE(IsEnabled(IDOK));
    EXPECT_TRUE(dialog.PreTranslateMessage(&enter));
    EXPECT_EQ(Search(), L"<UnicastAddress>not good!</UnicastAddress>");
    EXPECT_THAT(BasicMessages(), Contains(L"Filter for Hostname: not good!"));
}

TEST_F(ModifySearchDlgTest, StoresABadSubnetOnEnter) {
    for (const auto& [address, mask] : {std::pair{L"host", L"255.0.0.0"}, {L"10.1.0.0", L"24"}, {L"", L""}}) {
        Open();
        Choose(IDC_MODIFY_SEARCH_BY_SUBNET);
        Type(IDC_MODIFY_SEARCH_ADDRESS, address);
        Type(IDC_MODIFY_SEARCH_MASK, mask);
        Pause();
        EXPECT_FALSE(IsEnabled(IDOK));
        MSG enter{.hwnd = At(IDC_MODIFY_SEARCH_MASK), .message = WM_KEYDOWN, .wParam = VK_RETURN};
        EXPECT_TRUE(dialog.PreTranslateMessage(&enter));
        const std::wstring subnet = std::wstring(address) + L":" + mask + L";";
        EXPECT_EQ(Search(), L"<RemoteSubnets>" + subnet + L"</RemoteSubnets>");
        EXPECT_THAT(BasicMessages(), Contains(L"Filter for Subnet: " + subnet));
        dialog.DestroyWindow();
        Settings().SetString(Tag::DISCOVER_PARAMS, {});
    }
}

TEST_F(ModifySearchDlgTest, RepeatsNoBalloonForASubnetThatIsStillWrong) {
    Open();
    Choose(IDC_MODIFY_SEARCH_BY_SUBNET);
    Type(IDC_MODIFY_SEARCH_ADDRESS, L"host");
    Type(IDC_MODIFY_SEARCH_MASK, L"mask");
    Pause();
    Choose(IDC_MODIFY_SEARCH_LOCAL);
    Choose(IDC_MODIFY_SEARCH_BY_SUBNET);
    Pause();
    EXPECT_FALSE(IsEnabled(IDOK));
    EXPECT_THAT(balloons, ElementsAre(L"MSG_INVALID_IP", L"MSG_INVALID_SUBNET"));
}

TEST_F(ModifySearchDlgTest, StoresAnEmptyHostOnEnter) {
    Open();
    Choose(IDC_MODIFY_SEARCH_BY_HOST);
    MSG enter{.hwnd = At(IDCANCEL), .message = WM_KEYDOWN, .wParam = VK_RETURN};
    EXPECT_TRUE(dialog.PreTranslateMessage(&enter));
    EXPECT_EQ(Search(), L"<UnicastAddress></UnicastAddress>");
}

TEST_F(ModifySearchDlgTest, StoresTheSubnet) {
    Open();
    Choose(IDC_MODIFY_SEARCH_BY_SUBNET);
    Type(IDC_MODIFY_SEARCH_ADDRESS, L"10.1.0.0");
    Type(IDC_MODIFY_SEARCH_MASK, L"255.255.0.0");
    Confirm();
    EXPECT_EQ(Search(), L"<RemoteSubnets>10.1.0.0:255.255.0.0;</RemoteSubnets>");
    EXPECT_THAT(BasicMessages(), Contains(L"Filter for Subnet: 10.1.0.0:255.255.0.0;"));
}

TEST_F(ModifySearchDlgTest, ForgetsTheSearchForTheOwnSubnet) {
    Open(L"<UnicastAddress>a</UnicastAddress>");
    Choose(IDC_MODIFY_SEARCH_LOCAL);
    Confirm();
    EXPECT_EQ(Search(), L"");
    EXPECT_THAT(BasicMessages(), Contains(L"No user-set filter in place"));
}

TEST_F(ModifySearchDlgTest, ChangesNothingOnCancel) {
    Open(L"<UnicastAddress>a</UnicastAddress>");
    Type(IDC_MODIFY_SEARCH_HOST, L"b");
    dialog.SendMessage(WM_COMMAND, IDCANCEL);
    EXPECT_EQ(Search(), L"<UnicastAddress>a</UnicastAddress>");
}

TEST_F(ModifySearchDlgTest, WaitsThreeTenthsOfASecondForThePause) {
    static std::vector<UINT> delays;
    delays.clear();
    const PatchedImport watch(
        "SetTimer", +[](HWND, UINT_PTR, UINT delay, TIMERPROC) -> UINT_PTR {
            delays.push_back(delay);
            return 1;
        });
    Open();
    Choose(IDC_MODIFY_SEARCH_BY_HOST);
    Type(IDC_MODIFY_SEARCH_HOST, L"a");
    EXPECT_THAT(delays, testing::Each(300u));
    EXPECT_EQ(delays.size(), 3u);
}

TEST_F(ModifySearchDlgTest, ChecksByItselfBehindThePause) {
    Open();
    Choose(IDC_MODIFY_SEARCH_BY_HOST);
    Type(IDC_MODIFY_SEARCH_HOST, L"printer");
    EXPECT_TRUE(WaitUntil([this] {
        PumpMessages();
        return IsEnabled(IDOK);
    }));
}

TEST_F(ModifySearchDlgTest, ChecksNothingForATimerThatIsGone) {
    Open();
    Choose(IDC_MODIFY_SEARCH_BY_HOST);
    Type(IDC_MODIFY_SEARCH_HOST, L"printer");
    Pause();
    // One more check would refuse the unchanged text.
    Pause();
    EXPECT_TRUE(IsEnabled(IDOK));
}

TEST_F(ModifySearchDlgTest, BeepsWithEachBalloon) {
    static std::vector<UINT> beeps;
    beeps.clear();
    const PatchedImport watch(
        "MessageBeep", +[](UINT sound) -> BOOL {
            beeps.push_back(sound);
            return TRUE;
        });
    Open();
    Choose(IDC_MODIFY_SEARCH_BY_HOST);
    Type(IDC_MODIFY_SEARCH_HOST, L"a b");
    Pause();
    EXPECT_THAT(beeps, ElementsAre(UINT{MB_OK}));
    Type(IDC_MODIFY_SEARCH_HOST, std::wstring(256, L'a'));
    EXPECT_THAT(beeps, ElementsAre(UINT{MB_OK}, UINT{MB_OK}));
}

TEST_F(ModifySearchDlgTest, TellsThatItHasNoTimerAndChecksNothing) {
    const PatchedImport denied(
        "SetTimer", +[](HWND, UINT_PTR, UINT, TIMERPROC) -> UINT_PTR { return 0; });
    Open();
    Choose(IDC_MODIFY_SEARCH_BY_HOST);
    Type(IDC_MODIFY_SEARCH_HOST, L"a b");
    EXPECT_THAT(AdvancedMessages(), Contains(L"Timer for validation could not be set"));
    EXPECT_THAT(balloons, IsEmpty());
}

TEST_F(ModifySearchDlgTest, TakesEveryAddressOnASystemThatCannotReadThem) {
    const PatchedImport older("VerifyVersionInfoW", &RefuseVersion);
    Open();
    Choose(IDC_MODIFY_SEARCH_BY_SUBNET);
    Type(IDC_MODIFY_SEARCH_ADDRESS, L"anything");
    Type(IDC_MODIFY_SEARCH_MASK, L"24");
    Pause();
    EXPECT_TRUE(IsEnabled(IDOK));
    EXPECT_THAT(balloons, IsEmpty());
}

TEST_F(ModifySearchDlgTest, TakesHostNamesAloneOnASystemThatCannotReadAddresses) {
    const PatchedImport older("VerifyVersionInfoW", &RefuseVersion);
    Open();
    Choose(IDC_MODIFY_SEARCH_BY_HOST);
    Type(IDC_MODIFY_SEARCH_HOST, L"2001:db8::1");
    Pause();
    EXPECT_FALSE(IsEnabled(IDOK));
    // There the message comes again for the same text.
    Choose(IDC_MODIFY_SEARCH_BY_HOST);
    Pause();
    EXPECT_THAT(balloons, ElementsAre(L"MSG_INVALID_IPHOST_NAME", L"MSG_INVALID_IPHOST_NAME"));
}

// The class of the tool tip windows of this thread that are shown.
BOOL CALLBACK TakeBalloon(HWND found, LPARAM parameter) {
    wchar_t kind[32]{};
    GetClassNameW(found, kind, 32);
    const bool isBalloon = kind == std::wstring(TOOLTIPS_CLASSW) && IsWindowVisible(found) != FALSE &&
                           (GetWindowLongW(found, GWL_STYLE) & TTS_BALLOON) != 0;
    if (isBalloon) *reinterpret_cast<HWND*>(parameter) = found;
    return isBalloon ? FALSE : TRUE;
}

HWND ShownBalloon() {
    HWND found = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), &TakeBalloon, reinterpret_cast<LPARAM>(&found));
    return found;
}

LRESULT CALLBACK RefuseBalloon(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
    return message == EM_SHOWBALLOONTIP ? FALSE : DefSubclassProc(window, message, wParam, lParam);
}

TEST_F(ModifySearchDlgTest, ShowsABalloonOfItsOwnWhereTheFieldHasNone) {
    Open();
    SetWindowSubclass(At(IDC_MODIFY_SEARCH_HOST), &RefuseBalloon, 2, 0);
    Choose(IDC_MODIFY_SEARCH_BY_HOST);
    Type(IDC_MODIFY_SEARCH_HOST, L"a b");
    EXPECT_EQ(ShownBalloon(), nullptr);
    Pause();
    EXPECT_NE(ShownBalloon(), nullptr);
    SendMessageW(At(IDC_MODIFY_SEARCH_HOST), WM_KEYDOWN, VK_END, 0);
    EXPECT_EQ(ShownBalloon(), nullptr);
}

}  // namespace
