#include <gmock/gmock.h>

#include <algorithm>

#include "tests/windows/standins/PrinterWorld.h"

using printerqueue::PrintQueue;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::UnorderedElementsAre;

namespace {

constexpr auto failure = static_cast<std::uint32_t>(ERROR_INSTALL_FAILURE);
constexpr wchar_t failingPackage[] = L"printer-failing.msi";
constexpr wchar_t asDefault[] = L"<SET_DEFAULT>true</SET_DEFAULT>";

class PrinterQueueTest : public PrinterWorldTest {
protected:
    // What the world is made of, and nothing of a package.
    void ExpectUntouched() {
        EXPECT_THAT(QueueNames(), ElementsAre(L"Earlier"));
        EXPECT_EQ(Queue(L"Earlier"), (PrintQueue{.name = L"Earlier",
                                                 .port = L"LPT1:",
                                                 .driver = L"Testwerk Driver A",
                                                 .comment = L"by hand"}));
        EXPECT_EQ(DefaultPrinter(), L"Earlier");
        EXPECT_FALSE(HasPort(port));
        EXPECT_FALSE(HasPort(otherPort));
        EXPECT_FALSE(HasRecords());
    }
};

TEST_F(PrinterQueueTest, IsInTheListOfTheSystemAndTakesAJob) {
    EXPECT_EQ(Install(printerPackage, Document({LocalDevice(L"Front desk", port) + asDefault})), 0U);
    EXPECT_EQ(Queue(L"Front desk"), (PrintQueue{.name = L"Front desk",
                                                .port = port,
                                                .driver = L"Testwerk Driver A",
                                                .location = L"Hall [1]",
                                                .comment = L"made by Testwerk"}));
    EXPECT_EQ(DefaultPrinter(), L"Front desk");
    EXPECT_EQ(Printed(L"Front desk", "a page\f", port), "a page\f");
}

TEST_F(PrinterQueueTest, LeavesNothingBehind) {
    EXPECT_EQ(Install(printerPackage, Document({LocalDevice(L"Front desk", port) + asDefault,
                                                LocalDevice(L"Earlier", otherPort)})),
              0U);
    EXPECT_EQ(Queue(L"Earlier").port, otherPort);
    EXPECT_EQ(Uninstall(printerPackage), 0U);
    ExpectUntouched();
}

TEST_F(PrinterQueueTest, IsChangedAndNotDoubledByASecondRun) {
    EXPECT_EQ(Install(printerPackage, Document({LocalDevice(L"Front desk", port)})), 0U);
    EXPECT_EQ(Install(printerPackage, Document({LocalDevice(L"Front desk", otherPort)}) +
                                          L"<TAG_REINSTALL>true</TAG_REINSTALL>"),
              0U);
    EXPECT_THAT(QueueNames(), UnorderedElementsAre(L"Earlier", L"Front desk"));
    EXPECT_EQ(Queue(L"Front desk").port, otherPort);
    EXPECT_EQ(Uninstall(printerPackage), 0U);
    ExpectUntouched();
}

TEST_F(PrinterQueueTest, IsTakenOverByANewerPackage) {
    EXPECT_EQ(Install(printerPackage, Document({LocalDevice(L"Front desk", port)})), 0U);
    EXPECT_EQ(Install(L"printer-2.0.msi", Document({LocalDevice(L"Front desk", port)})), 0U);
    EXPECT_EQ(Queue(L"Front desk").driver, L"Testwerk Driver B");
    EXPECT_EQ(Uninstall(L"printer-2.0.msi"), 0U);
    ExpectUntouched();
}

TEST_F(PrinterQueueTest, IsRolledBackWhereThePackageFailsLater) {
    EXPECT_EQ(Install(failingPackage, Document({LocalDevice(L"Front desk", port) + asDefault,
                                                LocalDevice(L"Earlier", otherPort)}) +
                                          L"<FAILS>1</FAILS>"),
              failure);
    EXPECT_THAT(InstallerLog(), HasSubstr(L"The printer \"Front desk\" was made"));
    ExpectUntouched();
}

// What belongs to the computer is done by then.
TEST_F(PrinterQueueTest, IsRolledBackWhereASharedPrinterCannotBeReached) {
    EXPECT_EQ(Install(printerPackage, Document({LocalDevice(L"Front desk", port) + asDefault,
                                                L"<PRINTER_NAME>Shared</PRINTER_NAME>"
                                                L"<NETWORK_PATH>\\\\server.invalid\\front</NETWORK_PATH>"})),
              failure);
    EXPECT_THAT(InstallerLog(), HasSubstr(L"The printer \"Front desk\" was made"));
    EXPECT_THAT(InstallerLog(), HasSubstr(L"The printer \"Shared\" cannot be set up: no connection to "
                                          L"\"\\\\server.invalid\\front\" (error "));
    ExpectUntouched();
}

TEST_F(PrinterQueueTest, ComesBackWhereTheRemovalFailsLater) {
    EXPECT_EQ(Install(failingPackage, Document({LocalDevice(L"Front desk", port) + asDefault})), 0U);
    const PrintQueue before = Queue(L"Front desk");
    EXPECT_NE(Uninstall(failingPackage), 0U);
    EXPECT_THAT(InstallerLog(), HasSubstr(L"The printer \"Front desk\" was removed"));
    EXPECT_EQ(Queue(L"Front desk"), before);
    EXPECT_TRUE(HasPort(port));
    EXPECT_EQ(DefaultPrinter(), L"Front desk");
}

TEST_F(PrinterQueueTest, IsNotMadeWithoutADevice) {
    EXPECT_EQ(Install(printerPackage), 0U);
    EXPECT_THAT(InstallerLog(), HasSubstr(L"There is no device to set up."));
    EXPECT_EQ(Uninstall(printerPackage), 0U);
    ExpectUntouched();
}

TEST_F(PrinterQueueTest, EndsThePackageWithAnErrorThatNamesItAndSaysWhy) {
    EXPECT_EQ(Install(L"printer-no-driver.msi", Document({LocalDevice(L"Front desk", port)})), failure);
    EXPECT_THAT(InstallerLog(),
                HasSubstr(L"The printer \"Front desk\" cannot be set up: there is no driver of these: "
                          L"No such driver; Nor this one"));
    EXPECT_FALSE(State(L"printer-no-driver.msi").installed);
    ExpectUntouched();
}

TEST_F(PrinterQueueTest, IsRefusedBeforeAnythingIsChanged) {
    EXPECT_EQ(Install(printerPackage,
                      Document({LocalDevice(L"Front desk", port), LocalDevice(L"a, b", otherPort)})),
              failure);
    EXPECT_THAT(InstallerLog(), HasSubstr(L"\"a, b\" cannot be set up"));
    EXPECT_THAT(InstallerLog(), Not(HasSubstr(L"\"Front desk\" was made")));
    ExpectUntouched();
    EXPECT_EQ(Install(printerPackage, Document({LocalDevice(L"", port)})), failure);
    EXPECT_THAT(InstallerLog(), HasSubstr(L"no name"));
}

TEST_F(PrinterQueueTest, IsRefusedAtAPortThatIsNotThere) {
    EXPECT_EQ(Install(printerPackage,
                      Document({L"<PRINTER_NAME>Front desk</PRINTER_NAME><PORT_NAME>NONE:</PORT_NAME>"})),
              failure);
    EXPECT_THAT(InstallerLog(), HasSubstr(L"there is no port \"NONE:\""));
    ExpectUntouched();
}

TEST_F(PrinterQueueTest, UsesAPortThatExistsAndLeavesIt) {
    EXPECT_EQ(Install(printerPackage, Document({LocalDevice(L"Front desk", L"LPT1:")})), 0U);
    EXPECT_EQ(Queue(L"Front desk").port, L"LPT1:");
    EXPECT_EQ(Uninstall(printerPackage), 0U);
    EXPECT_TRUE(HasPort(L"LPT1:"));
    ExpectUntouched();
}

TEST_F(PrinterQueueTest, LeavesAPortToThePackageThatGoesLast) {
    EXPECT_EQ(Install(printerPackage, Document({LocalDevice(L"Front desk", port)})), 0U);
    EXPECT_EQ(Install(L"printer-lpr.msi", Document({LocalDevice(L"Fax", port)})), 0U);
    EXPECT_EQ(Uninstall(printerPackage), 0U);
    EXPECT_TRUE(HasPort(port));
    EXPECT_EQ(Uninstall(L"printer-lpr.msi"), 0U);
    ExpectUntouched();
}

class QueueNameTest : public PrinterQueueTest, public testing::WithParamInterface<const wchar_t*> {};

TEST_P(QueueNameTest, ReachesTheSystemAndIsGoneAgain) {
    const std::wstring name = GetParam();
    EXPECT_EQ(Install(printerPackage, Document({LocalDevice(name, port) + asDefault})), 0U);
    EXPECT_THAT(QueueNames(), UnorderedElementsAre(L"Earlier", name));
    EXPECT_EQ(DefaultPrinter(), name);
    EXPECT_EQ(Uninstall(printerPackage), 0U);
    ExpectUntouched();
}

INSTANTIATE_TEST_SUITE_P(Names, QueueNameTest,
                         testing::Values(L"19\" desk", L"it's [ProductName]", L"B\u00fcro \u65e5\u672c",
                                         L"100 % & <more>"));

// A switch of the system, which a test puts back.
class ProtectedPrintTest : public PrinterQueueTest {
protected:
    static constexpr wchar_t policy[] = L"Software\\Policies\\Microsoft\\Windows NT\\Printers\\WPP";

    void SetUp() override {
        PrinterQueueTest::SetUp();
        const DWORD on = 1;
        RegSetKeyValueW(HKEY_LOCAL_MACHINE, policy, L"WindowsProtectedPrintGroupPolicyState", REG_DWORD, &on,
                        sizeof(on));
    }
    void TearDown() override {
        RegDeleteTreeW(HKEY_LOCAL_MACHINE, policy);
        PrinterQueueTest::TearDown();
    }
};

TEST_F(ProtectedPrintTest, LeavesTheQueueToTheClassDriver) {
    EXPECT_EQ(Install(L"printer-lpr.msi", Document({LocalDevice(L"Front desk", port)})), 0U);
    EXPECT_EQ(Queue(L"Front desk").driver, L"Testwerk Driver A");
    EXPECT_THAT(InstallerLog(), HasSubstr(L"protected print mode"));
}

TEST_F(PrinterQueueTest, HasAnotherDriverWhereTheSystemRefusesThatOfThePackage) {
    EXPECT_EQ(Install(L"printer-inf.msi", Document({LocalDevice(L"Front desk", port)})), 0U);
    EXPECT_EQ(Queue(L"Front desk").driver, L"Testwerk Driver A");
    EXPECT_THAT(InstallerLog(),
                HasSubstr(L"The driver \"Testwerk Loom\" cannot be installed from \"C:\\Program Files\\"
                          L"Testwerk\\PrinterInf\\loom.inf\" (error "));
    EXPECT_EQ(Uninstall(L"printer-inf.msi"), 0U);
    ExpectUntouched();
}

TEST_F(PrinterQueueTest, HasTheDriverOfThePackageWhereTheSystemTakesIt) {
    EXPECT_EQ(Install(L"printer-lpr.msi", Document({LocalDevice(L"Front desk", port)})), 0U);
    EXPECT_EQ(Queue(L"Front desk").driver, L"Testwerk Driver B");
}

}  // namespace
