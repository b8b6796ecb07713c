#include <gmock/gmock.h>

#include "CommonLib/Exception.h"
#include "CommonLib/MsiCodes.h"
#include "standins/PrinterQueue/PrinterRun.h"
#include "standins/PrinterQueue/RunScope.h"
#include "tests/unit/ScriptedSpooler.h"

using printerqueue::Deed;
using printerqueue::DeedKind;
using printerqueue::DeviceLink;
using printerqueue::FindQueue;
using printerqueue::Ledger;
using printerqueue::Part;
using printerqueue::PortKind;
using printerqueue::PrinterDevice;
using printerqueue::PrinterRun;
using printerqueue::PrintQueue;
using printerqueue::RunOrder;
using printerqueue::SpoolerState;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

// A system with one printer, and a package that sets devices up on it.
class PrinterRunTest : public testing::Test {
protected:
    PrinterRunTest() {
        spooler.state.ports = {L"LPT1:"};
        spooler.state.drivers = {L"Class A"};
        spooler.state.queues = {{.name = L"Old", .port = L"LPT1:", .driver = L"Class A", .comment = L"kept"}};
        spooler.state.defaultQueue = L"Old";
        untouched = spooler.state;
        order.wishes.classDrivers = {L"Class A"};
    }

    static PrinterDevice Device(const std::wstring& name, const std::wstring& port) {
        return {.name = name,
                .link = DeviceLink::Port,
                .port = {.kind = PortKind::Raw, .name = port, .host = port, .number = 9100},
                .makesPort = true};
    }

    // Runs both parts, as the installer does. Returns the code of the failure, -1 for one without a code, 0
    // for none.
    std::int32_t Install(const std::vector<PrinterDevice>& devices) {
        order.devices = devices;
        return Tried([&] {
            order.part = Part::Computer;
            PrinterRun(spooler, store, report).SetUp(order);
            order.part = Part::User;
            PrinterRun(spooler, userStore, report).SetUp(order);
        });
    }
    std::int32_t Remove() {
        return Tried([&] {
            PrinterRun(spooler, userStore, report).Remove(order);
            PrinterRun(spooler, store, report).Remove(order);
        });
    }
    void RollBackSetUp() {
        PrinterRun(spooler, userStore, report).RollBack(order.id);
        PrinterRun(spooler, store, report).RollBack(order.id);
    }
    void RollBackRemoval() {
        PrinterRun(spooler, store, report).RollBack(order.id);
        PrinterRun(spooler, userStore, report).RollBack(order.id);
    }
    void Commit() {
        PrinterRun(spooler, store, report).Commit(order.id);
        PrinterRun(spooler, userStore, report).Commit(order.id);
    }

    // Compares what a user could tell apart; the order of entries is none of it.
    void ExpectUntouched() {
        EXPECT_EQ(spooler.state.queues, untouched.queues);
        EXPECT_EQ(spooler.state.ports, untouched.ports);
        EXPECT_EQ(spooler.state.drivers, untouched.drivers);
        EXPECT_EQ(spooler.state.connections, untouched.connections);
        EXPECT_EQ(spooler.state.defaultQueue, untouched.defaultQueue);
    }

    ScriptedSpooler spooler;
    SpoolerState untouched;
    ScriptedStore store;
    ScriptedStore userStore;
    ScriptedReport report;
    RunOrder order{.id = L"{1}", .version = L"{1.0}"};
    std::wstring problem;

private:
    std::int32_t Tried(const std::function<void()>& run) {
        try {
            run();
            return 0;
        } catch (const Exception& exception) {
            problem = exception.getMessage();
            return exception.getCode() == 0 ? -1 : exception.getCode();
        }
    }
};

TEST_F(PrinterRunTest, MakesPortAndQueue) {
    PrinterDevice device = Device(L"New", L"10.0.0.1");
    device.location = L"Hall";
    device.comment = L"A3";
    EXPECT_EQ(Install({device}), 0);
    EXPECT_THAT(spooler.calls, ElementsAre(L"MakePort 10.0.0.1", L"AddQueue New"));
    EXPECT_THAT(spooler.portsAdded, ElementsAre(device.port));
    EXPECT_EQ(spooler.state.queues.back(), (PrintQueue{.name = L"New",
                                                       .port = L"10.0.0.1",
                                                       .driver = L"Class A",
                                                       .location = L"Hall",
                                                       .comment = L"A3"}));
}

TEST_F(PrinterRunTest, LeavesNothingBehindAfterARemoval) {
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

TEST_F(PrinterRunTest, UsesAPortThatExistsAndLeavesItThere) {
    PrinterDevice device = Device(L"New", L"lpt1:");
    EXPECT_EQ(Install({device}), 0);
    EXPECT_EQ(Remove(), 0);
    ExpectUntouched();
    EXPECT_THAT(spooler.calls, ElementsAre(L"AddQueue New", L"DeleteQueue New"));
}

TEST_F(PrinterRunTest, FailsForAPortThatIsNotThereAndIsNotToBeMade) {
    PrinterDevice device = Device(L"New", L"10.0.0.1");
    device.makesPort = false;
    EXPECT_EQ(Install({device}), -1);
    EXPECT_THAT(problem, HasSubstr(L"\"New\" cannot be set up: there is no port \"10.0.0.1\""));
    ExpectUntouched();
}

TEST_F(PrinterRunTest, ChangesAQueueOfThatNameAndDoesNotDoubleIt) {
    spooler.state.queues[0].shareName = L"old";
    EXPECT_EQ(Install({Device(L"OLD", L"10.0.0.1")}), 0);
    EXPECT_THAT(spooler.state.queues, ElementsAre(PrintQueue{.name = L"Old",
                                                             .port = L"10.0.0.1",
                                                             .driver = L"Class A",
                                                             .comment = L"kept",
                                                             .shareName = L"old"}));
}

TEST_F(PrinterRunTest, RestoresAQueueThatItHadChanged) {
    EXPECT_EQ(Install({Device(L"Old", L"10.0.0.1")}), 0);
    RollBackSetUp();
    ExpectUntouched();
    EXPECT_EQ(Install({Device(L"Old", L"10.0.0.1")}), 0);
    EXPECT_EQ(Remove(), 0);
    ExpectUntouched();
}

TEST_F(PrinterRunTest, LeavesWhatAUserHasChangedSince) {
    EXPECT_EQ(Install({Device(L"Old", L"10.0.0.1")}), 0);
    spooler.state.ports.push_back(L"COM1:");
    spooler.state.queues[0].port = L"COM1:";
    EXPECT_EQ(Remove(), 0);
    EXPECT_EQ(spooler.state.queues[0].port, L"COM1:");
}

TEST_F(PrinterRunTest, TouchesNothingThatIsAsItIsToBe) {
    EXPECT_EQ(Install({Device(L"Old", L"LPT1:")}), 0);
    EXPECT_THAT(spooler.calls, IsEmpty());
    EXPECT_THAT(store.ledger.lasting, IsEmpty());
}

TEST_F(PrinterRunTest, RemovesAfterASecondRunWhatTheFirstHasMade) {
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

TEST_F(PrinterRunTest, LeavesToTheNewerVersionWhatThatHasTakenOver) {
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

TEST_F(PrinterRunTest, GivesThePrintersBackWhereANewerVersionIsRolledBack) {
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.1")}), 0);
    Commit();
    const Ledger before = store.ledger;
    order.id = L"{2}";
    order.version = L"{2.0}";
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.2")}), 0);
    RollBackSetUp();
    EXPECT_EQ(store.ledger, before);
}

TEST_F(PrinterRunTest, KeepsNoRecordWhereItHasMadeNothing) {
    EXPECT_EQ(Install({{.name = L"New", .link = DeviceLink::PlugAndPlay}}), 0);
    Commit();
    EXPECT_EQ(store.ledger, Ledger{});
    EXPECT_EQ(userStore.ledger, Ledger{});
    report.texts.clear();
    EXPECT_EQ(Remove(), 0);
    EXPECT_THAT(report.texts, IsEmpty());
}

TEST_F(PrinterRunTest, LeavesNoTraceWithoutADevice) {
    EXPECT_EQ(Install({}), 0);
    EXPECT_EQ(store.ledger, Ledger{});
    EXPECT_EQ(userStore.ledger, Ledger{});
}

TEST_F(PrinterRunTest, RollsASecondRunBackToTheFirst) {
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.1")}), 0);
    Commit();
    const SpoolerState first = spooler.state;
    order.id = L"{2}";
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.2")}), 0);
    RollBackSetUp();
    EXPECT_EQ(spooler.state.queues, first.queues);
    EXPECT_EQ(spooler.state.ports, first.ports);
    EXPECT_EQ(Remove(), 0);
    ExpectUntouched();
}

TEST_F(PrinterRunTest, DoesNotRollBackARunThatIsOver) {
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.1")}), 0);
    Commit();
    RollBackSetUp();
    EXPECT_EQ(spooler.state.queues.size(), 2U);
}

TEST_F(PrinterRunTest, DoesNotRollBackARunOfAnotherTime) {
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.1")}), 0);
    order.id = L"{2}";
    RollBackSetUp();
    EXPECT_EQ(spooler.state.queues.size(), 2U);
}

// Each operation that a run needs, refused in turn.
class RefusedRunTest : public PrinterRunTest, public testing::WithParamInterface<const char*> {};

TEST_P(RefusedRunTest, SaysWhichPrinterAndWhyAndLeavesTheSystemAsItWas) {
    spooler.refusals[GetParam()] = SpoolerCode::AccessDenied;
    PrinterDevice device = Device(L"New", L"10.0.0.1");
    device.becomesDefault = true;
    EXPECT_EQ(Install({Device(L"Old", L"10.0.0.2"), device}), -1);
    EXPECT_THAT(problem, HasSubstr(L"error 5: Access is denied."));
    RollBackSetUp();
    spooler.refusals.clear();
    ExpectUntouched();
    EXPECT_EQ(store.ledger, Ledger{});
    EXPECT_EQ(userStore.ledger, Ledger{});
}

INSTANTIATE_TEST_SUITE_P(Operations, RefusedRunTest,
                         testing::Values("MakePort", "AddQueue", "ChangeQueue", "SetDefault"));

TEST_F(PrinterRunTest, SaysThatTheSpoolerDoesNotAnswer) {
    spooler.refusals["Look"] = 1722;
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.1")}), -1);
    EXPECT_THAT(problem, HasSubstr(L"The print spooler does not answer (error 1722)"));
    spooler.refusals.clear();
    ExpectUntouched();
}

TEST_F(PrinterRunTest, EndsWhereTheUserCancelsAndLeavesNothing) {
    report.cancelAfter = L"The printer \"New\" was made";
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.1"), Device(L"Never", L"10.0.0.2")}),
              static_cast<std::int32_t>(MsiCode::UserCancelled));
    EXPECT_THAT(spooler.calls, ElementsAre(L"MakePort 10.0.0.1", L"AddQueue New", L"DeleteQueue New",
                                           L"RemovePort 10.0.0.1"));
    ExpectUntouched();
    EXPECT_EQ(store.ledger, Ledger{});
}

TEST_F(PrinterRunTest, WritesDownWhatItIsAboutToDo) {
    // The system stops between the record and the deed, so only the record is there.
    store.ledger = {.lasting = {{.kind = DeedKind::QueueMade, .name = L"New"}},
                    .runId = L"{1}",
                    .run = {{.kind = DeedKind::QueueMade, .name = L"New"}}};
    RollBackSetUp();
    ExpectUntouched();
    EXPECT_EQ(store.ledger, Ledger{});
}

TEST_F(PrinterRunTest, InstallsTheDriverOfThePackage) {
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

TEST_F(PrinterRunTest, TakesTheClassDriverWhereVendorsDriversAreBlocked) {
    order.wishes.driver = L"Vendor X";
    order.wishes.infPath = L"C:\\x.inf";
    spooler.state.blocksVendorDrivers = true;
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.1")}), 0);
    EXPECT_EQ(spooler.state.queues.back().driver, L"Class A");
    EXPECT_THAT(spooler.calls, Not(Contains(L"InstallDriver Vendor X")));
    EXPECT_THAT(report.texts, Contains(HasSubstr(L"protected print mode")));
}

TEST_F(PrinterRunTest, FallsBackFromDriverToDriver) {
    order.wishes.driver = L"Vendor X";
    order.wishes.classDrivers = {L"Class M", L"Class W", L"Class A"};
    spooler.driversOfWindows = {L"Class W"};
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.1")}), 0);
    EXPECT_EQ(spooler.state.queues.back().driver, L"Class W");
    EXPECT_THAT(report.texts, Contains(HasSubstr(L"\"Vendor X\" cannot be installed (error 1797)")));
    EXPECT_EQ(Remove(), 0);
    ExpectUntouched();
}

TEST_F(PrinterRunTest, KeepsNoRecordOfADriverThatCouldNotBeInstalled) {
    order.wishes.classDrivers = {L"Class M", L"Class A"};
    EXPECT_EQ(Install({Device(L"New", L"LPT1:")}), 0);
    EXPECT_EQ(FindDeed(store.ledger.lasting, DeedKind::DriverMade, L"Class M"), nullptr);
    EXPECT_EQ(FindDeed(store.ledger.run, DeedKind::DriverMade, L"Class M"), nullptr);
}

TEST_F(PrinterRunTest, FailsWithoutAnyDriver) {
    order.wishes.classDrivers = {L"Class M", L"Class N"};
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.1")}), -1);
    EXPECT_THAT(problem,
                HasSubstr(L"\"New\" cannot be set up: there is no driver of these: Class M; Class N"));
    order.wishes.classDrivers.clear();
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.1")}), -1);
    EXPECT_THAT(problem, HasSubstr(L"names no driver"));
    ExpectUntouched();
}

TEST_F(PrinterRunTest, LeavesAUsbPrinterToWindows) {
    EXPECT_EQ(Install({{.name = L"New", .link = DeviceLink::PlugAndPlay, .becomesDefault = true},
                       {.name = L"Newer", .link = DeviceLink::None}}),
              0);
    EXPECT_THAT(spooler.calls, IsEmpty());
    EXPECT_THAT(report.texts, Contains(HasSubstr(L"plugged in")));
    EXPECT_THAT(report.texts, Contains(HasSubstr(L"No port was picked for \"Newer\"")));
}

TEST_F(PrinterRunTest, ConnectsToASharedPrinterWithoutADriver) {
    order.wishes.classDrivers.clear();
    const PrinterDevice shared{.name = L"Shared",
                               .link = DeviceLink::SharedPrinter,
                               .sharePath = L"\\\\server\\front",
                               .becomesDefault = true};
    EXPECT_EQ(Install({shared}), 0);
    EXPECT_THAT(spooler.calls,
                ElementsAre(L"AddConnection \\\\server\\front", L"SetDefault \\\\server\\front"));
    EXPECT_EQ(Remove(), 0);
    ExpectUntouched();
}

TEST_F(PrinterRunTest, UsesAConnectionThatExistsAndLeavesItThere) {
    spooler.state.connections = untouched.connections = {L"\\\\SERVER\\front"};
    const PrinterDevice shared{
        .name = L"Shared", .link = DeviceLink::SharedPrinter, .sharePath = L"\\\\server\\front"};
    EXPECT_EQ(Install({shared}), 0);
    EXPECT_EQ(Remove(), 0);
    ExpectUntouched();
}

TEST_F(PrinterRunTest, LeavesADefaultThatTheUserHasChosenSince) {
    spooler.state.queues.push_back({.name = L"Other", .port = L"LPT1:", .driver = L"Class A"});
    PrinterDevice device = Device(L"New", L"10.0.0.1");
    device.becomesDefault = true;
    EXPECT_EQ(Install({device}), 0);
    spooler.state.defaultQueue = L"Other";
    EXPECT_EQ(Remove(), 0);
    EXPECT_EQ(spooler.state.defaultQueue, L"Other");
}

TEST_F(PrinterRunTest, LeavesPortAndDriverThatAnotherQueueUses) {
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
}

// Two packages that share a port and a driver; each has a ledger of its own.
TEST_F(PrinterRunTest, LeavesASharedPortToThePackageThatGoesLast) {
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

TEST_F(PrinterRunTest, BringsBackWhatARemovalTookAway) {
    order.wishes.classDrivers = {L"Class W"};
    spooler.driversOfWindows = {L"Class W"};
    PrinterDevice device = Device(L"New", L"10.0.0.1");
    device.becomesDefault = true;
    EXPECT_EQ(Install({device, Device(L"Old", L"10.0.0.1")}), 0);
    Commit();
    spooler.state.queues[1].comment = L"by hand";
    const SpoolerState before = spooler.state;
    const Ledger ledgerBefore = store.ledger;
    EXPECT_EQ(Remove(), 0);
    RollBackRemoval();
    EXPECT_THAT(spooler.state.queues, testing::UnorderedElementsAreArray(before.queues));
    EXPECT_THAT(spooler.state.ports, testing::UnorderedElementsAreArray(before.ports));
    EXPECT_THAT(spooler.state.drivers, testing::UnorderedElementsAreArray(before.drivers));
    EXPECT_EQ(spooler.state.defaultQueue, L"New");
    EXPECT_EQ(store.ledger, ledgerBefore);
}

TEST_F(PrinterRunTest, FailsToRemoveAQueueThatTheSpoolerKeeps) {
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.1"), Device(L"Second", L"10.0.0.2")}), 0);
    Commit();
    const Ledger ledgerBefore = store.ledger;
    spooler.refusals["DeleteQueue"] = SpoolerCode::AccessDenied;
    EXPECT_EQ(Remove(), -1);
    EXPECT_THAT(problem, HasSubstr(L"\"Second\" cannot be removed (error 5: Access is denied.)"));
    EXPECT_EQ(spooler.state.queues.size(), 3U);
    EXPECT_EQ(store.ledger, ledgerBefore);
}

TEST_F(PrinterRunTest, IsRemovedAlthoughAPortIsBusyOrAQueueHasGone) {
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.1"), Device(L"Second", L"10.0.0.2")}), 0);
    spooler.DeleteQueue(L"New");
    spooler.refusals["RemovePort"] = SpoolerCode::Busy;
    EXPECT_EQ(Remove(), 0);
    EXPECT_EQ(spooler.state.queues, untouched.queues);
    EXPECT_THAT(report.texts, Contains(HasSubstr(L"\"10.0.0.2\" stays behind (error 170)")));
}

}  // namespace
