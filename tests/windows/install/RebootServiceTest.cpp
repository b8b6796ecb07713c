#include <windows.h>

#include "install/RebootService.h"
#include "tests/windows/world/LogWorld.h"
#include "tests/windows/world/PatchedImport.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

UINT exitFlags = 0;
DWORD exitReason = 0;
DWORD tokenAccess = 0;

BOOL WINAPI KeepRestart(UINT flags, DWORD reason) {
    exitFlags = flags;
    exitReason = reason;
    return TRUE;
}

// No test restarts the machine.
class RebootServiceTest : public LogWorld {
protected:
    RebootServiceTest() { exitFlags = exitReason = tokenAccess = 0; }

    RebootService service;

private:
    PatchedImport noRestart{"ExitWindowsEx", &KeepRestart};
};

TEST_F(RebootServiceTest, AsksForARestartOfTheMachine) {
    EXPECT_EQ(service.DoRun(), 0U);
    EXPECT_EQ(exitFlags, 18U);
    EXPECT_EQ(exitReason, 0x40003U);
    EXPECT_THAT(BasicLog(), IsEmpty());
}

TEST_F(RebootServiceTest, OpensItsTokenForWhatItNeeds) {
    const PatchedImport patch(
        "OpenProcessToken", +[](HANDLE, DWORD access, PHANDLE) -> BOOL {
            tokenAccess = access;
            SetLastError(ERROR_ACCESS_DENIED);
            return FALSE;
        });
    EXPECT_EQ(service.DoRun(), 5U);
    EXPECT_EQ(tokenAccess, 40U);
    EXPECT_EQ(exitFlags, 0U);
    // The code is taken off the front of the text.
    EXPECT_THAT(BasicLog(),
                ElementsAre(Record(L"ERROR", L"tService::DoRun() OpenProcessToken() return error=")));
}

TEST_F(RebootServiceTest, LeavesNothingOfATextThatIsAsLongAsTheCode) {
    const PatchedImport patch(
        "OpenProcessToken", +[](HANDLE, DWORD, PHANDLE) -> BOOL {
            constexpr std::wstring_view text = L"RebootService::DoRun() OpenProcessToken() return error=";
            SetLastError(static_cast<DWORD>(text.size()));
            return FALSE;
        });
    service.DoRun();
    EXPECT_THAT(BasicLog(), ElementsAre(Record(L"ERROR", L"")));
}

TEST_F(RebootServiceTest, StopsWithoutThePrivilegeEvenWhereTheCallSucceeds) {
    const PatchedImport patch(
        "AdjustTokenPrivileges",
        +[](HANDLE, BOOL, PTOKEN_PRIVILEGES, DWORD, PTOKEN_PRIVILEGES, PDWORD) -> BOOL {
            SetLastError(ERROR_NOT_ALL_ASSIGNED);
            return TRUE;
        });
    EXPECT_EQ(service.DoRun(), DWORD{ERROR_NOT_ALL_ASSIGNED});
    EXPECT_EQ(exitFlags, 0U);
    // A code beyond the text's length leaves it whole.
    EXPECT_THAT(BasicLog(), ElementsAre(Record(
                                L"ERROR", L"RebootService::DoRun() AdjustTokenPrivileges() return error=")));
}

TEST_F(RebootServiceTest, TellsOfARestartThatTheSystemRefuses) {
    const PatchedImport patch(
        "ExitWindowsEx", +[](UINT, DWORD) -> BOOL {
            SetLastError(ERROR_NOT_READY);
            return FALSE;
        });
    EXPECT_EQ(service.DoRun(), DWORD{ERROR_NOT_READY});
    EXPECT_THAT(BasicLog(), ElementsAre(Record(L"ERROR", L") shutdown initiation failed, error=")));
}

}  // namespace
