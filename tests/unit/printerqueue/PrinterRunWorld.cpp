#include "tests/unit/printerqueue/PrinterRunWorld.h"

#include "CommonLib/Exception.h"

using printerqueue::DeviceLink;
using printerqueue::Part;
using printerqueue::PortKind;
using printerqueue::PrinterDevice;
using printerqueue::PrinterRun;

PrinterRunWorld::PrinterRunWorld() {
    spooler.state.ports = {L"LPT1:"};
    spooler.state.drivers = {L"Class A"};
    spooler.state.queues = {{.name = L"Old", .port = L"LPT1:", .driver = L"Class A", .comment = L"kept"}};
    spooler.state.defaultQueue = L"Old";
    untouched = spooler.state;
    order.wishes.classDrivers = {L"Class A"};
}

PrinterDevice PrinterRunWorld::Device(const std::wstring& name, const std::wstring& port) {
    return {.name = name,
            .link = DeviceLink::Port,
            .port = {.kind = PortKind::Raw, .name = port, .host = port, .number = 9100},
            .makesPort = true};
}

std::int32_t PrinterRunWorld::Install(const std::vector<PrinterDevice>& devices) {
    order.devices = devices;
    return Tried([&] {
        order.part = Part::Computer;
        PrinterRun(spooler, store, report).SetUp(order);
        order.part = Part::User;
        PrinterRun(spooler, userStore, report).SetUp(order);
    });
}

std::int32_t PrinterRunWorld::Remove() {
    return Tried([&] {
        PrinterRun(spooler, userStore, report).Remove(order);
        PrinterRun(spooler, store, report).Remove(order);
    });
}

void PrinterRunWorld::RollBackSetUp() {
    PrinterRun(spooler, userStore, report).RollBack(order.id);
    PrinterRun(spooler, store, report).RollBack(order.id);
}

void PrinterRunWorld::RollBackRemoval() {
    PrinterRun(spooler, store, report).RollBack(order.id);
    PrinterRun(spooler, userStore, report).RollBack(order.id);
}

void PrinterRunWorld::Commit() {
    PrinterRun(spooler, store, report).Commit(order.id);
    PrinterRun(spooler, userStore, report).Commit(order.id);
}

void PrinterRunWorld::ExpectUntouched() const {
    EXPECT_EQ(spooler.state.queues, untouched.queues);
    EXPECT_EQ(spooler.state.ports, untouched.ports);
    EXPECT_EQ(spooler.state.drivers, untouched.drivers);
    EXPECT_EQ(spooler.state.connections, untouched.connections);
    EXPECT_EQ(spooler.state.defaultQueue, untouched.defaultQueue);
}

std::int32_t PrinterRunWorld::Tried(const std::function<void()>& run) {
    try {
        run();
        return 0;
    } catch (const Exception& exception) {
        problem = exception.getMessage();
        return exception.getCode() == 0 ? -1 : exception.getCode();
    }
}
