#include "tests/windows/standins/LibraryFixture.h"

#include <msi.h>

#include <mutex>
#include <utility>

namespace {

std::mutex messagesLock;
std::vector<std::wstring> messages;
std::function<std::int32_t(const std::wstring&)> answerTo;

std::int32_t OnMessage(const wchar_t* message) {
    std::function<std::int32_t(const std::wstring&)> answer;
    {
        const std::lock_guard guard(messagesLock);
        messages.emplace_back(message);
        answer = answerTo;
    }
    return answer ? answer(message) : IDOK;
}

std::wstring OwnFolder() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::wstring text = path;
    return text.substr(0, text.rfind(L'\\') + 1);
}

template <typename Function>
void Find(HMODULE module, const char* name, Function& function) {
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
    ASSERT_NE(function, nullptr) << name;
}

void RemoveTestProducts() {
    std::vector<std::wstring> codes;
    wchar_t code[39] = {};
    for (DWORD index = 0; MsiEnumProductsW(index, code) == ERROR_SUCCESS; ++index) {
        wchar_t publisher[100] = {};
        DWORD length = 100;
        MsiGetProductInfoW(code, INSTALLPROPERTY_PUBLISHER, publisher, &length);
        if (std::wstring(publisher) == L"Testwerk") codes.emplace_back(code);
    }
    MsiSetInternalUI(INSTALLUILEVEL_NONE, nullptr);
    for (const std::wstring& product : codes) {
        MsiConfigureProductExW(product.c_str(), INSTALLLEVEL_DEFAULT, INSTALLSTATE_ABSENT, L"REMOVE=ALL");
    }
}

}  // namespace

void PrintTo(const PackageState& state, std::ostream* stream) {
    *stream << (state.installed ? "installed" : "absent") << (state.upToDate ? ", up to date" : "")
            << (state.upgradable ? ", upgradable" : "") << (state.minorUpgrade ? ", minor upgrade" : "");
}

void LibraryTest::SetUp() {
    RemoveTestProducts();
    messages.clear();
    answerTo = nullptr;
    const HMODULE module = LoadLibraryW((OwnFolder() + L"Brevanto.dll").c_str());
    ASSERT_NE(module, nullptr);
    Find(module, "MsiInitialize", library.initialize);
    Find(module, "MsiEnableInstallLog", library.enableInstallLog);
    Find(module, "MsiInstallApp", library.installApp);
    Find(module, "MsiUninstallApp", library.uninstallApp);
    Find(module, "MsiCancel", library.cancel);
    Find(module, "MsiGetProperties", library.getProperties);
    Find(module, "MsiIsAppInstalledByLang", library.isAppInstalled);
    library.initialize();
    library.enableInstallLog(L"Testwerk", 8);
}

void LibraryTest::TearDown() {
    RemoveTestProducts();
}

std::wstring LibraryTest::Package(const std::wstring& fileName) {
    return OwnFolder() + L"packages\\" + fileName;
}

std::wstring LibraryTest::InstalledFile(const std::wstring& product) {
    return L"C:\\Program Files\\Testwerk\\" + product + L"\\payload.txt";
}

bool LibraryTest::Exists(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::wstring LibraryTest::Noted(const std::wstring& id, const std::wstring& property) {
    wchar_t value[2000] = {};
    DWORD size = sizeof(value);
    RegGetValueW(HKEY_LOCAL_MACHINE, (L"Software\\Testwerk\\Packages\\" + id).c_str(), property.c_str(),
                 RRF_RT_REG_SZ, nullptr, value, &size);
    return value;
}

std::uint32_t LibraryTest::Install(const std::wstring& fileName, const std::wstring& commandDocument) {
    const std::wstring path = Package(fileName);
    return library.installApp(path.c_str(), static_cast<std::uint32_t>(path.size()), OnMessage,
                              commandDocument.c_str(), static_cast<std::uint32_t>(commandDocument.size()));
}

std::uint32_t LibraryTest::Uninstall(const std::wstring& fileName) {
    const std::wstring path = Package(fileName);
    return library.uninstallApp(path.c_str(), static_cast<std::uint32_t>(path.size()), OnMessage);
}

PackageState LibraryTest::State(const std::wstring& fileName) {
    const std::wstring path = Package(fileName);
    std::uint8_t upToDate = 7;
    std::uint8_t upgradable = 7;
    std::uint8_t minorUpgrade = 7;
    const std::uint8_t installed =
        library.isAppInstalled(path.c_str(), static_cast<std::uint32_t>(path.size()), &upToDate, &upgradable,
                               &minorUpgrade, L"1033");
    EXPECT_LE(std::max({upToDate, upgradable, minorUpgrade}), 1);
    return {installed == 1, upToDate == 1, upgradable == 1, minorUpgrade == 1};
}

bool LibraryTest::WaitFor(const std::function<bool()>& condition) {
    for (int tries = 0; tries < 3000; ++tries) {
        if (condition()) return true;
        Sleep(10);
    }
    return false;
}

void LibraryTest::AnswerWith(std::function<std::int32_t(const std::wstring&)> answer) {
    const std::lock_guard guard(messagesLock);
    answerTo = std::move(answer);
}

std::vector<std::wstring> LibraryTest::Messages() {
    const std::lock_guard guard(messagesLock);
    return messages;
}

std::vector<int> LibraryTest::Percentages() {
    std::vector<int> percentages;
    for (const std::wstring& message : Messages()) {
        int percent = -1;
        if (swscanf(message.c_str(), L"<PERCENT>%d</PERCENT>", &percent) == 1) percentages.push_back(percent);
    }
    return percentages;
}
