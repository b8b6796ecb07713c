// What a package makes of the devices that it is given.

#include <gmock/gmock.h>

#include "tests/unit/printerqueue/PrinterRunWorld.h"

using printerqueue::DeviceLink;
using printerqueue::Ledger;
using printerqueue::PrinterDevice;
using printerqueue::PrintQueue;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

using PrinterMakerTest = PrinterRunWorld;

TEST_F(PrinterMakerTest, MakesPortAndQueue) {
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

TEST_F(PrinterMakerTest, UsesAPortThatExistsAndLeavesItThere) {
    PrinterDevice device = Device(L"New", L"lpt1:");
    EXPECT_EQ(Install({device}), 0);
    EXPECT_EQ(Remove(), 0);
    ExpectUntouched();
    EXPECT_THAT(spooler.calls, ElementsAre(L"AddQueue New", L"DeleteQueue New"));
}

TEST_F(PrinterMakerTest, FailsForAPortThatIsNotThereAndIsNotToBeMade) {
    PrinterDevice device = Device(L"New", L"10.0.0.1");
    device.makesPort = false;
    EXPECT_EQ(Install({device}), -1);
    EXPECT_THAT(problem, HasSubstr(L"\"New\" cannot be set up: there is no port \"10.0.0.1\""));
    ExpectUntouched();
}

TEST_F(PrinterMakerTest, ChangesAQueueOfThatNameAndDoesNotDoubleIt) {
    spooler.state.queues[0].shareName = L"old";
    EXPECT_EQ(Install({Device(L"OLD", L"10.0.0.1")}), 0);
    EXPECT_THAT(spooler.state.queues, ElementsAre(PrintQueue{.name = L"Old",
                                                             .port = L"10.0.0.1",
                                                             .driver = L"Class A",
                                                             .comment = L"kept",
                                                             .shareName = L"old"}));
}

TEST_F(PrinterMakerTest, TouchesNothingThatIsAsItIsToBe) {
    EXPECT_EQ(Install({Device(L"Old", L"LPT1:")}), 0);
    EXPECT_THAT(spooler.calls, IsEmpty());
    EXPECT_THAT(store.ledger.lasting, IsEmpty());
}

TEST_F(PrinterMakerTest, KeepsNoRecordWhereItHasMadeNothing) {
    EXPECT_EQ(Install({{.name = L"New", .link = DeviceLink::PlugAndPlay}}), 0);
    Commit();
    EXPECT_EQ(store.ledger, Ledger{});
    EXPECT_EQ(userStore.ledger, Ledger{});
    report.texts.clear();
    EXPECT_EQ(Remove(), 0);
    EXPECT_THAT(report.texts, IsEmpty());
}

TEST_F(PrinterMakerTest, LeavesNoTraceWithoutADevice) {
    EXPECT_EQ(Install({}), 0);
    EXPECT_EQ(store.ledger, Ledger{});
    EXPECT_EQ(userStore.ledger, Ledger{});
}

TEST_F(PrinterMakerTest, LeavesAUsbPrinterToWindows) {
    EXPECT_EQ(Install({{.name = L"New", .link = DeviceLink::PlugAndPlay, .becomesDefault = true},
                       {.name = L"Newer", .link = DeviceLink::None}}),
              0);
    EXPECT_THAT(spooler.calls, IsEmpty());
    EXPECT_THAT(report.texts, Contains(HasSubstr(L"plugged in")));
    EXPECT_THAT(report.texts, Contains(HasSubstr(L"No port was picked for \"Newer\"")));
}

TEST_F(PrinterMakerTest, ConnectsToASharedPrinterWithoutADriver) {
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

TEST_F(PrinterMakerTest, UsesAConnectionThatExistsAndLeavesItThere) {
    spooler.state.connections = untouched.connections = {L"\\\\SERVER\\front"};
    const PrinterDevice shared{
        .name = L"Shared", .link = DeviceLink::SharedPrinter, .sharePath = L"\\\\server\\front"};
    EXPECT_EQ(Install({shared}), 0);
    EXPECT_EQ(Remove(), 0);
    ExpectUntouched();
}

}  // namespace
