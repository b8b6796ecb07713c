#include <windows.h>

#include <commctrl.h>

#include "resources/resource.h"
#include "settings/TagNames.h"
#include "tests/windows/world/DialogUser.h"
#include "tests/windows/world/PatchedImport.h"
#include "tests/windows/world/SearchDialogWorld.h"
#include "tests/wizard/Waiting.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

BOOL WINAPI RefuseVersion(LPOSVERSIONINFOEXW, DWORD, DWORDLONG) {
    return FALSE;
}

using ModifySearchDlgTest = SearchDialogWorld;

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
        TypeSubnet(address, mask);
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

TEST_F(ModifySearchDlgTest, StoresAnEmptyHostOnEnter) {
    Open();
    Choose(IDC_MODIFY_SEARCH_BY_HOST);
    MSG enter{.hwnd = At(IDCANCEL), .message = WM_KEYDOWN, .wParam = VK_RETURN};
    EXPECT_TRUE(dialog.PreTranslateMessage(&enter));
    EXPECT_EQ(Search(), L"<UnicastAddress></UnicastAddress>");
}

TEST_F(ModifySearchDlgTest, StoresNothingOnAnotherKey) {
    Open();
    Choose(IDC_MODIFY_SEARCH_BY_HOST);
    for (MSG key :
         {MSG{.message = WM_KEYDOWN, .wParam = L'A'}, MSG{.message = WM_KEYUP, .wParam = VK_RETURN}}) {
        key.hwnd = At(IDCANCEL);
        dialog.PreTranslateMessage(&key);
        EXPECT_EQ(Search(), L"");
    }
}

TEST_F(ModifySearchDlgTest, StoresTheSubnet) {
    Open();
    TypeSubnet(L"10.1.0.0", L"255.255.0.0");
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
    TypeHost(L"a");
    EXPECT_THAT(delays, testing::Each(300u));
    EXPECT_EQ(delays.size(), 3u);
}

TEST_F(ModifySearchDlgTest, ChecksByItselfBehindThePause) {
    Open();
    TypeHost(L"printer");
    EXPECT_TRUE(WaitUntil([this] {
        PumpMessages();
        return IsEnabled(IDOK);
    }));
}

TEST_F(ModifySearchDlgTest, ChecksNothingForATimerThatIsGone) {
    Open();
    TypeHost(L"printer");
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
    TypeHost(L"a b");
    Pause();
    EXPECT_THAT(beeps, ElementsAre(UINT{MB_OK}));
    Type(IDC_MODIFY_SEARCH_HOST, std::wstring(256, L'a'));
    EXPECT_THAT(beeps, ElementsAre(UINT{MB_OK}, UINT{MB_OK}));
}

TEST_F(ModifySearchDlgTest, TellsThatItHasNoTimerAndChecksNothing) {
    const PatchedImport denied(
        "SetTimer", +[](HWND, UINT_PTR, UINT, TIMERPROC) -> UINT_PTR { return 0; });
    Open();
    TypeHost(L"a b");
    EXPECT_THAT(AdvancedMessages(), Contains(L"Timer for validation could not be set"));
    EXPECT_THAT(balloons, IsEmpty());
}

TEST_F(ModifySearchDlgTest, TakesEveryAddressOnASystemThatCannotReadThem) {
    const PatchedImport older("VerifyVersionInfoW", &RefuseVersion);
    Open();
    TypeSubnet(L"anything", L"24");
    Pause();
    EXPECT_TRUE(IsEnabled(IDOK));
    EXPECT_THAT(balloons, IsEmpty());
}

TEST_F(ModifySearchDlgTest, TakesHostNamesAloneOnASystemThatCannotReadAddresses) {
    const PatchedImport older("VerifyVersionInfoW", &RefuseVersion);
    Open();
    TypeHost(L"2001:db8::1");
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
    TypeHost(L"a b");
    EXPECT_EQ(ShownBalloon(), nullptr);
    Pause();
    EXPECT_NE(ShownBalloon(), nullptr);
    SendMessageW(At(IDC_MODIFY_SEARCH_HOST), WM_KEYDOWN, VK_END, 0);
    EXPECT_EQ(ShownBalloon(), nullptr);
}

}  // namespace
