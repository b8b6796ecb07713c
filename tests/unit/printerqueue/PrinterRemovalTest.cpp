// What a package takes away when it is removed, and what it leaves.

#include <gmock/gmock.h>

#include "standins/PrinterQueue/RunScope.h"
#include "tests/unit/printerqueue/PrinterRunWorld.h"

using printerqueue::FindQueue;
using printerqueue::Ledger;
using printerqueue::Part;
using printerqueue::PrinterDevice;
using printerqueue::PrinterRun;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;

namespace {

using PrinterRemovalTest = PrinterRunWorld;

TEST_F(PrinterRemovalTest, LeavesNothingBehindAfterARemoval) {
    PrinterDevice device = Device(L"New", L"10.0.0.1");
    device.becomesDefault = true;
    EXPECT_EQ(Install({device, Device(L"Second", L"10.0.0.1")}), 0);
    EXPECT_EQ(spooler.state.defaultQueue, L"New");
    Commit();
    EXPECT_EQ(Remove(), 0);
    Commit();
    ExpectUntouched();
    EXPECT_EQ(store.ledger, Ledger{});
    EXPECT_EQ(userStore.ledger, Ledger{});
}

TEST_F(PrinterRemovalTest, SaysWhatItHasRemovedAndNothingOfWhatItCouldNot) {
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.1"), Device(L"Second", L"10.0.0.2")}), 0);
    Commit();
    report.texts.clear();
    spooler.refusals["RemovePort"] = SpoolerCode::Busy;
    EXPECT_EQ(Remove(), 0);
    EXPECT_THAT(report.texts, Contains(HasSubstr(L"The printer \"Second\" was removed.")));
    EXPECT_THAT(report.texts, Not(Contains(HasSubstr(L"The port \"10.0.0.2\" was removed."))));
}

TEST_F(PrinterRemovalTest, LeavesWhatAUserHasChangedSince) {
    EXPECT_EQ(Install({Device(L"Old", L"10.0.0.1")}), 0);
    spooler.state.ports.push_back(L"COM1:");
    spooler.state.queues[0].port = L"COM1:";
    EXPECT_EQ(Remove(), 0);
    EXPECT_EQ(spooler.state.queues[0].port, L"COM1:");
}

TEST_F(PrinterRemovalTest, RemovesAfterASecondRunWhatTheFirstHasMade) {
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.1")}), 0);
    Commit();
    order.id = L"{2}";
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.2")}), 0);
    Commit();
    EXPECT_EQ(spooler.state.queues.size(), 2U);
    EXPECT_EQ(spooler.state.queues[1].port, L"10.0.0.2");
    EXPECT_EQ(Remove(), 0);
    ExpectUntouched();
}

TEST_F(PrinterRemovalTest, LeavesToTheNewerVersionWhatThatHasTakenOver) {
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.1")}), 0);
    Commit();
    order.version = L"{2.0}";
    EXPECT_EQ(Install({}), 0);
    Commit();
    order.version = L"{1.0}";
    EXPECT_EQ(Remove(), 0);
    EXPECT_NE(FindQueue(spooler.state, L"New"), nullptr);
    order.version = L"{2.0}";
    EXPECT_EQ(Remove(), 0);
    ExpectUntouched();
}

TEST_F(PrinterRemovalTest, LeavesADefaultThatTheUserHasChosenSince) {
    spooler.state.queues.push_back({.name = L"Other", .port = L"LPT1:", .driver = L"Class A"});
    PrinterDevice device = Device(L"New", L"10.0.0.1");
    device.becomesDefault = true;
    EXPECT_EQ(Install({device}), 0);
    spooler.state.defaultQueue = L"Other";
    EXPECT_EQ(Remove(), 0);
    EXPECT_EQ(spooler.state.defaultQueue, L"Other");
}

TEST_F(PrinterRemovalTest, LeavesPortAndDriverThatAnotherQueueUses) {
    order.wishes.classDrivers = {L"Class W"};
    spooler.driversOfWindows = {L"Class W"};
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.1")}), 0);
    spooler.state.queues.push_back({.name = L"By hand", .port = L"10.0.0.1", .driver = L"Class W"});
    EXPECT_EQ(Remove(), 0);
    EXPECT_THAT(spooler.state.ports, Contains(L"10.0.0.1"));
    EXPECT_THAT(spooler.state.drivers, Contains(L"Class W"));
    EXPECT_EQ(FindQueue(spooler.state, L"New"), nullptr);
    EXPECT_THAT(report.texts, Contains(L"The port \"10.0.0.1\" stays for another printer."));
    EXPECT_THAT(report.texts, Contains(L"The driver \"Class W\" stays for another printer."));
    EXPECT_THAT(report.texts, Not(Contains(HasSubstr(L"stays behind"))));
}

// Two packages that share a port and a driver; each has a ledger of its own.
TEST_F(PrinterRemovalTest, LeavesASharedPortToThePackageThatGoesLast) {
    order.wishes.classDrivers = {L"Class W"};
    spooler.driversOfWindows = {L"Class W"};
    EXPECT_EQ(Install({Device(L"First", L"10.0.0.1")}), 0);

    ScriptedStore secondStore;
    secondStore.others = store.ledger.lasting;
    order.devices = {Device(L"Second", L"10.0.0.1")};
    order.part = Part::Computer;
    PrinterRun(spooler, secondStore, report).SetUp(order);

    store.others = secondStore.ledger.lasting;
    EXPECT_EQ(Remove(), 0);
    EXPECT_THAT(spooler.state.ports, Contains(L"10.0.0.1"));
    secondStore.others = {};
    PrinterRun(spooler, secondStore, report).Remove(order);
    ExpectUntouched();
}

TEST_F(PrinterRemovalTest, FailsToRemoveAQueueThatTheSpoolerKeeps) {
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.1"), Device(L"Second", L"10.0.0.2")}), 0);
    Commit();
    const Ledger ledgerBefore = store.ledger;
    spooler.refusals["DeleteQueue"] = SpoolerCode::AccessDenied;
    EXPECT_EQ(Remove(), -1);
    EXPECT_THAT(problem, HasSubstr(L"\"Second\" cannot be removed (error 5: Access is denied.)"));
    EXPECT_EQ(spooler.state.queues.size(), 3U);
    EXPECT_EQ(store.ledger, ledgerBefore);
}

TEST_F(PrinterRemovalTest, IsRemovedAlthoughAPortIsBusyOrAQueueHasGone) {
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.1"), Device(L"Second", L"10.0.0.2")}), 0);
    spooler.DeleteQueue(L"New");
    spooler.refusals["RemovePort"] = SpoolerCode::Busy;
    EXPECT_EQ(Remove(), 0);
    EXPECT_EQ(spooler.state.queues, untouched.queues);
    EXPECT_THAT(report.texts, Contains(HasSubstr(L"\"10.0.0.2\" stays behind (error 170)")));
}

}  // namespace
