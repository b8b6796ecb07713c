// What is left of a run that fails, is cancelled or is rolled back.

#include <gmock/gmock.h>

#include "CommonLib/MsiCodes.h"
#include "tests/unit/printerqueue/PrinterRunWorld.h"

using printerqueue::DeedKind;
using printerqueue::Ledger;
using printerqueue::PrinterDevice;
using printerqueue::SpoolerState;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

using PrinterRollBackTest = PrinterRunWorld;

TEST_F(PrinterRollBackTest, RestoresAQueueThatItHadChanged) {
    EXPECT_EQ(Install({Device(L"Old", L"10.0.0.1")}), 0);
    RollBackSetUp();
    ExpectUntouched();
    EXPECT_THAT(report.texts, Not(Contains(HasSubstr(L"stays behind"))));
    EXPECT_EQ(Install({Device(L"Old", L"10.0.0.1")}), 0);
    EXPECT_EQ(Remove(), 0);
    ExpectUntouched();
}

TEST_F(PrinterRollBackTest, GivesThePrintersBackWhereANewerVersionIsRolledBack) {
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.1")}), 0);
    Commit();
    const Ledger before = store.ledger;
    order.id = L"{2}";
    order.version = L"{2.0}";
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.2")}), 0);
    RollBackSetUp();
    EXPECT_EQ(store.ledger, before);
}

TEST_F(PrinterRollBackTest, RollsASecondRunBackToTheFirst) {
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

TEST_F(PrinterRollBackTest, DoesNotRollBackARunThatIsOver) {
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.1")}), 0);
    Commit();
    RollBackSetUp();
    EXPECT_EQ(spooler.state.queues.size(), 2U);
}

TEST_F(PrinterRollBackTest, DoesNotRollBackARunOfAnotherTime) {
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.1")}), 0);
    order.id = L"{2}";
    RollBackSetUp();
    EXPECT_EQ(spooler.state.queues.size(), 2U);
}

// Each operation that a run needs, refused in turn.
class RefusedRunTest : public PrinterRunWorld, public testing::WithParamInterface<const char*> {};

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

TEST_F(PrinterRollBackTest, SaysThatTheSpoolerDoesNotAnswer) {
    spooler.refusals["Look"] = 1722;
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.1")}), -1);
    EXPECT_THAT(problem, HasSubstr(L"The print spooler does not answer (error 1722)"));
    spooler.refusals.clear();
    ExpectUntouched();
}

TEST_F(PrinterRollBackTest, EndsWhereTheUserCancelsAndLeavesNothing) {
    report.cancelAfter = L"The printer \"New\" was made";
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.1"), Device(L"Never", L"10.0.0.2")}),
              static_cast<std::int32_t>(MsiCode::UserCancelled));
    EXPECT_THAT(spooler.calls, ElementsAre(L"MakePort 10.0.0.1", L"AddQueue New", L"DeleteQueue New",
                                           L"RemovePort 10.0.0.1"));
    ExpectUntouched();
    EXPECT_EQ(store.ledger, Ledger{});
}

TEST_F(PrinterRollBackTest, WritesDownWhatItIsAboutToDo) {
    // The system stops between the record and the deed, so only the record is there.
    store.ledger = {.lasting = {{.kind = DeedKind::QueueMade, .name = L"New"}},
                    .runId = L"{1}",
                    .run = {{.kind = DeedKind::QueueMade, .name = L"New"}}};
    RollBackSetUp();
    ExpectUntouched();
    EXPECT_EQ(store.ledger, Ledger{});
}

TEST_F(PrinterRollBackTest, BringsBackWhatARemovalTookAway) {
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

// Between the removal and its roll-back somebody has made the one printer and the port anew, and removed the
// other printer.
TEST_F(PrinterRollBackTest, LeavesWhatSomebodyHasDoneToThePrintersSinceTheRemoval) {
    EXPECT_EQ(Install({Device(L"New", L"10.0.0.1"), Device(L"Old", L"10.0.0.1")}), 0);
    Commit();
    EXPECT_EQ(Remove(), 0);
    spooler.state.queues = {{.name = L"New", .port = L"LPT1:", .driver = L"Class A"}};
    spooler.state.ports.push_back(L"10.0.0.1");
    const SpoolerState before = spooler.state;
    report.texts.clear();
    RollBackRemoval();
    EXPECT_EQ(spooler.state.queues, before.queues);
    EXPECT_EQ(spooler.state.ports, before.ports);
    EXPECT_THAT(report.texts, IsEmpty());
}

}  // namespace
