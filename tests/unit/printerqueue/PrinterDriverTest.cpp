// Which driver the printers of a package get.

#include <gmock/gmock.h>

#include "tests/unit/printerqueue/PrinterRunWorld.h"

using printerqueue::DeedKind;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

using PrinterDriverTest = PrinterRunWorld;

TEST_F(PrinterDriverTest, InstallsTheDriverOfThePackage) {
    order.wishes.driver = L"Vendor X";
    order.wishes.infPath = L"C:\\x.inf";
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.1"), Device(L"Second", L"10.0.0.1")}), 0);
    EXPECT_THAT(spooler.calls, ElementsAre(L"InstallDriver Vendor X", L"MakePort 10.0.0.1", L"AddQueue New",
                                           L"AddQueue Second"));
    EXPECT_EQ(spooler.lastInfPath, L"C:\\x.inf");
    EXPECT_EQ(spooler.state.queues.back().driver, L"Vendor X");
    EXPECT_EQ(Remove(), 0);
    ExpectUntouched();
}

TEST_F(PrinterDriverTest, TakesTheClassDriverWhereVendorsDriversAreBlocked) {
    order.wishes.driver = L"Vendor X";
    order.wishes.infPath = L"C:\\x.inf";
    spooler.state.blocksVendorDrivers = true;
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.1")}), 0);
    EXPECT_EQ(spooler.state.queues.back().driver, L"Class A");
    EXPECT_THAT(spooler.calls, Not(Contains(L"InstallDriver Vendor X")));
    EXPECT_THAT(report.texts, Contains(HasSubstr(L"protected print mode")));
}

TEST_F(PrinterDriverTest, FallsBackFromDriverToDriver) {
    order.wishes.driver = L"Vendor X";
    order.wishes.classDrivers = {L"Class M", L"Class W", L"Class A"};
    spooler.driversOfWindows = {L"Class W"};
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.1")}), 0);
    EXPECT_EQ(spooler.state.queues.back().driver, L"Class W");
    EXPECT_THAT(report.texts, Contains(HasSubstr(L"\"Vendor X\" cannot be installed (error 1797)")));
    EXPECT_EQ(Remove(), 0);
    ExpectUntouched();
}

TEST_F(PrinterDriverTest, KeepsNoRecordOfADriverThatCouldNotBeInstalled) {
    order.wishes.classDrivers = {L"Class M", L"Class A"};
    EXPECT_EQ(Install({Device(L"New", L"LPT1:")}), 0);
    EXPECT_EQ(FindDeed(store.ledger.lasting, DeedKind::DriverMade, L"Class M"), nullptr);
    EXPECT_EQ(FindDeed(store.ledger.run, DeedKind::DriverMade, L"Class M"), nullptr);
}

TEST_F(PrinterDriverTest, FailsWithoutAnyDriver) {
    order.wishes.classDrivers = {L"Class M", L"Class N"};
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.1")}), -1);
    EXPECT_THAT(problem,
                HasSubstr(L"\"New\" cannot be set up: there is no driver of these: Class M; Class N"));
    order.wishes.classDrivers.clear();
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.1")}), -1);
    EXPECT_THAT(problem, HasSubstr(L"names no driver"));
    ExpectUntouched();
}

}  // namespace
