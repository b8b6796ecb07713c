// The links: which address goes to the browser, and which folder is opened.

#include "resources/resource.h"
#include "tests/fakes/TextLines.h"
#include "tests/wizard/PageTest.h"

namespace {

constexpr wchar_t addresses[] =
    L"<INFOCENTER_LINK>http://help.test</INFOCENTER_LINK>"
    L"<OEM_NAME>Brand</OEM_NAME><MODEL_PRODUCT_CODE>S1:Brand M1|Brand M2</MODEL_PRODUCT_CODE>"
    L"<PRODUCT_REGISTRATION_LINK>http://register.test</PRODUCT_REGISTRATION_LINK>";

// A predefined printer, whose own product the help link names.
constexpr wchar_t configuredPrinter[] =
    L"<DEVICE><DRIVER_ID>X</DRIVER_ID><PRINTER_SERIES_NAME>S1</PRINTER_SERIES_NAME>"
    L"<PRINTER_MODEL_NAME>the Brand M2</PRINTER_MODEL_NAME></DEVICE>";

// A program that only tells of its start, in place of the browser where the system lets a test choose it.
class BrowserRecorder {
public:
    explicit BrowserRecorder(PackageTree& tree) : program(tree.Root() / L"browser.exe") {
        tree.AddProbe(program, 0);
        DWORD size = sizeof(former);
        RegGetValueW(HKEY_CLASSES_ROOT, commandKey, nullptr, RRF_RT_ANY | RRF_NOEXPAND, nullptr, former,
                     &size);
        Register(L"\"" + program.wstring() + L"\" \"%1\"");
    }
    BrowserRecorder(const BrowserRecorder&) = delete;
    BrowserRecorder& operator=(const BrowserRecorder&) = delete;
    ~BrowserRecorder() { Register(former); }

    // The address with which the browser was started.
    std::wstring WaitForAddress() const {
        std::vector<std::vector<std::wstring>> lines;
        WaitUntil([&] { return !(lines = ReadLines(program.wstring() + L".calls")).empty(); });
        if (lines.empty()) return L"none";
        const std::wstring commandLine = lines.front().front();
        const std::size_t end = commandLine.rfind(L'"');
        const std::size_t start = commandLine.rfind(L'"', end - 1) + 1;
        return commandLine.substr(start, end - start);
    }

private:
    static constexpr wchar_t commandKey[] = L"http\\shell\\open\\command";

    static void Register(const std::wstring& command) {
        RegSetKeyValueW(HKEY_CLASSES_ROOT, commandKey, nullptr, REG_EXPAND_SZ, command.c_str(),
                        static_cast<DWORD>((command.size() + 1) * sizeof(wchar_t)));
    }

    const std::filesystem::path program;
    wchar_t former[MAX_PATH]{};
};

class LinkTest : public PageTest {
protected:
    void SetUp() override {
        PageTest::SetUp();
        if (GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") == nullptr) {
            GTEST_SKIP() << "this system lets its user alone choose the browser";
        }
    }
};

struct LinkCase {
    const char* name;
    const wchar_t* settings;
    bool fromConfig;
    int control;
    const wchar_t* address;
};

void PrintTo(const LinkCase& link, std::ostream* stream) {
    *stream << link.name;
}

class PageLinkTest : public LinkTest, public testing::WithParamInterface<LinkCase> {};

TEST_P(PageLinkTest, OpensItsAddress) {
    const LinkCase& link = GetParam();
    UseSettings(std::wstring(addresses) + link.settings);
    if (link.fromConfig) tree.SetUserSettings(configuredPrinter);
    const BrowserRecorder browser(tree);
    StartOn(link.control);
    wizard.Press(link.control);
    EXPECT_EQ(browser.WaitForAddress(), link.address);
    EXPECT_TRUE(IsShown(link.control));
}

constexpr wchar_t toTheStart[] = L"<HIDE_EULA>true</HIDE_EULA>";
constexpr wchar_t toTheFinish[] = L"<HIDE_START>true</HIDE_START><HIDE_EULA>true</HIDE_EULA>";

INSTANTIATE_TEST_SUITE_P(
    Pages, PageLinkTest,
    testing::Values(
        LinkCase{"StartHelp", toTheStart, false, IDC_START_INFORMATION_LINK, L"http://help.test?loc=en"},
        LinkCase{"StartHelpFromConfiguration", toTheStart, true, IDC_START_INFORMATION_LINK,
                 L"http://help.test?productCode=Brand_M2&loc=en"},
        LinkCase{"StartRegistration", toTheStart, false, IDC_START_REGISTRATION_LINK,
                 L"http://register.test"},
        LinkCase{"FinishHelp", toTheFinish, false, IDC_FINISH_INFORMATION_LINK, L"http://help.test?loc=en"},
        LinkCase{"FinishHelpFromConfiguration", toTheFinish, true, IDC_FINISH_INFORMATION_LINK,
                 L"http://help.test?productCode=Brand_M2&loc=en"},
        LinkCase{"FinishRegistration", toTheFinish, false, IDC_FINISH_REGISTRATION_LINK,
                 L"http://register.test"}),
    [](const testing::TestParamInfo<LinkCase>& link) { return std::string(link.param.name); });

TEST_F(LinkTest, OpensTheRegistrationFromTheRestartPage) {
    UseSettings(std::wstring(toTheFinish) +
                L"<REBOOT>true</REBOOT><SHOW_REGISTRATION>1</SHOW_REGISTRATION>"
                L"<REGISTRATION_LINK>http://card.test</REGISTRATION_LINK>");
    const BrowserRecorder browser(tree);
    StartOn(IDC_FINISH);
    wizard.Press(IDC_FINISH);
    wizard.Press(IDC_WEB_LINK);
    EXPECT_EQ(browser.WaitForAddress(), L"http://card.test");
}

TEST_F(LinkTest, OpensTheFolderOfTheLogsAfterAFailure) {
    UseSettings(toTheFinish);
    tree.Add({.path = L"Applications\\a.msi", .install = {.steps = {}, .code = 1623}});
    wizard.Start();
    wizard.Answer(IDOK);
    wizard.Press(IDC_FINISH_ERROR_LINK);
    // The title of its window is the folder's name.
    const std::wstring name = std::filesystem::path(LogFolder()).parent_path().filename();
    HWND folder = nullptr;
    EXPECT_TRUE(
        WaitUntil([&] { return (folder = FindWindowW(L"ExplorerWClass", name.c_str())) != nullptr; }));
    PostMessageW(folder, WM_CLOSE, 0, 0);
    EXPECT_TRUE(WaitUntil([&] { return !IsWindow(folder); }));
}

}  // namespace
