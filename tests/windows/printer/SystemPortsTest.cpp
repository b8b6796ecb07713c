#include <windows.h>

#include <gmock/gmock.h>
#include <winspool.h>

#include "printer/SystemPorts.h"
#include "tests/windows/world/PatchedExport.h"

namespace {

using testing::IsEmpty;

constexpr wchar_t portsKey[] = L"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Ports";
constexpr wchar_t existingPort[] = L"KESTRUNETEST:";

// A system that has one port more than it came with.
class SystemPortsTest : public testing::Test {
protected:
    SystemPortsTest() {
        RegSetKeyValueW(HKEY_LOCAL_MACHINE, portsKey, existingPort, REG_SZ, L"", sizeof(wchar_t));
    }
    ~SystemPortsTest() override { RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, portsKey, existingPort); }
};

TEST_F(SystemPortsTest, KnowAPortByItsExactName) {
    EXPECT_TRUE(IsSystemPort(existingPort));
    EXPECT_FALSE(IsSystemPort(L"KestruneTest:"));
    EXPECT_FALSE(IsSystemPort(L"10.0.0.7"));
}

TEST_F(SystemPortsTest, AreNoneOnASystemWithoutAny) {
    const PatchedExport patch(
        "EnumPortsW", +[](LPWSTR, DWORD, LPBYTE, DWORD, LPDWORD needed, LPDWORD) -> BOOL {
            *needed = 0;
            return FALSE;
        });
    EXPECT_THAT(SystemPorts(), IsEmpty());
    EXPECT_FALSE(IsSystemPort(existingPort));
}

TEST_F(SystemPortsTest, AreNoneWhereTheListCannotBeFetched) {
    const PatchedExport patch(
        "EnumPortsW", +[](LPWSTR, DWORD, LPBYTE, DWORD, LPDWORD needed, LPDWORD) -> BOOL {
            *needed = 100;
            return FALSE;
        });
    EXPECT_THAT(SystemPorts(), IsEmpty());
    EXPECT_FALSE(IsSystemPort(existingPort));
}

}  // namespace
