#include "standins/PrinterQueue/PrinterMaker.h"

#include "CommonLib/Exception.h"
#include "CommonLib/TextUtilities.h"

namespace printerqueue {
namespace {

// The queue as the device asks for it; an existing one keeps what the device does not speak of.
PrintQueue QueueFor(const PrinterDevice& device, const std::wstring& driver, const PrintQueue* existing) {
    PrintQueue queue = existing != nullptr ? *existing : PrintQueue{.name = device.name};
    queue.port = device.port.name;
    queue.driver = driver;
    if (!device.location.empty()) queue.location = device.location;
    if (!device.comment.empty()) queue.comment = device.comment;
    return queue;
}

}  // namespace

void PrinterMaker::Make(const PrinterDevice& device) {
    if (device.link == DeviceLink::SharedPrinter) return;
    if (driver.empty()) ChooseDriver(device.name);
    switch (device.link) {
        case DeviceLink::PlugAndPlay:
            scope.Step(Quote(device.name) +
                       L" has its driver; Windows makes the queue when it is plugged in.");
            break;
        case DeviceLink::None:
            scope.Step(L"No port was picked for " + Quote(device.name) +
                       L"; it has its driver and no queue.");
            break;
        default:
            MakePort(device);
            MakeQueue(device);
    }
}

void PrinterMaker::MakeForUser(const PrinterDevice& device) {
    if (device.link == DeviceLink::SharedPrinter) ConnectTo(device);
    const std::wstring& queue = device.link == DeviceLink::SharedPrinter ? device.sharePath : device.name;
    const bool hasQueue = device.link == DeviceLink::SharedPrinter || device.link == DeviceLink::Port;
    if (device.becomesDefault && hasQueue) MakeDefault(queue);
}

void PrinterMaker::MakePort(const PrinterDevice& device) {
    const PrinterPort& port = device.port;
    if (HoldsName(scope.Look().ports, port.name)) {
        KeepShared(DeedKind::PortMade, port.name);
        scope.Step(L"The port " + Quote(port.name) + L" exists and is used.");
        return;
    }
    if (!device.makesPort) {
        throw Exception(L"The printer " + Quote(device.name) + L" cannot be set up: there is no port " +
                        Quote(port.name) + L".");
    }
    scope.Announce({.kind = DeedKind::PortMade, .name = port.name, .port = port});
    if (const std::uint32_t code = scope.Spooler().MakePort(port); code != 0) {
        throw Exception(L"The printer " + Quote(device.name) + L" cannot be set up: the port " +
                        Quote(port.name) + L" cannot be made" + scope.ReasonOf(code));
    }
    scope.Step(L"The port " + Quote(port.name) + L" was made.");
}

// The package that goes last takes along what several have used.
void PrinterMaker::KeepShared(DeedKind kind, const std::wstring& name) {
    const std::vector<Deed> others = scope.DeedsOfOthers();
    const Deed* made = FindDeed(others, kind, name);
    if (made == nullptr) return;
    AddLastingDeed(scope.Records().lasting, *made);
    scope.Save();
}

void PrinterMaker::MakeQueue(const PrinterDevice& device) {
    const SpoolerState state = scope.Look();
    const PrintQueue* existing = FindQueue(state, device.name);
    const PrintQueue queue = QueueFor(device, driver, existing);
    if (existing != nullptr) {
        ChangeQueue(*existing, queue);
        return;
    }
    scope.Announce({.kind = DeedKind::QueueMade, .name = queue.name, .after = queue});
    if (const std::uint32_t code = scope.Spooler().AddQueue(queue); code != 0) {
        throw Exception(L"The printer " + Quote(device.name) + L" cannot be made" + scope.ReasonOf(code));
    }
    scope.Step(L"The printer " + Quote(queue.name) + L" was made at the port " + Quote(queue.port) +
               L" with the driver " + Quote(queue.driver) + L".");
}

void PrinterMaker::ChangeQueue(const PrintQueue& before, const PrintQueue& after) {
    if (before == after) {
        scope.Step(L"The printer " + Quote(after.name) + L" is as it is to be.");
        return;
    }
    KeepShared(DeedKind::QueueMade, after.name);
    scope.Announce({.kind = DeedKind::QueueChanged, .name = after.name, .before = before, .after = after});
    if (const std::uint32_t code = scope.Spooler().ChangeQueue(after); code != 0) {
        throw Exception(L"The printer " + Quote(after.name) + L" cannot be changed" + scope.ReasonOf(code));
    }
    scope.Step(L"The printer " + Quote(after.name) + L" existed, and was changed to the port " +
               Quote(after.port) + L" and the driver " + Quote(after.driver) + L".");
}

void PrinterMaker::ConnectTo(const PrinterDevice& device) {
    if (HoldsName(scope.Look().connections, device.sharePath)) {
        scope.Step(L"The connection to " + Quote(device.sharePath) + L" exists.");
        return;
    }
    scope.Announce({.kind = DeedKind::ConnectionMade, .name = device.sharePath});
    if (const std::uint32_t code = scope.Spooler().AddConnection(device.sharePath); code != 0) {
        throw Exception(L"The printer " + Quote(device.name) + L" cannot be set up: no connection to " +
                        Quote(device.sharePath) + scope.ReasonOf(code));
    }
    scope.Step(L"The connection to " + Quote(device.sharePath) + L" was made.");
}

void PrinterMaker::MakeDefault(const std::wstring& name) {
    const std::wstring former = scope.Look().defaultQueue;
    if (EqualsIgnoringCase(former, name)) return;
    scope.Announce({.kind = DeedKind::DefaultChanged, .name = name, .former = former});
    if (const std::uint32_t code = scope.Spooler().SetDefault(name); code != 0) {
        throw Exception(L"The printer " + Quote(name) + L" cannot be made the default" +
                        scope.ReasonOf(code));
    }
    scope.Step(L"The printer " + Quote(name) + L" is the default.");
}

void PrinterMaker::ChooseDriver(const std::wstring& printer) {
    const SpoolerState state = scope.Look();
    if (TakeVendorDriver(state)) return;
    std::wstring names = wishes.driver;
    for (const std::wstring& name : wishes.classDrivers) {
        if (TakeClassDriver(state, name)) return;
        names += (names.empty() ? L"" : L"; ") + name;
    }
    const std::wstring none =
        names.empty() ? L"the package names no driver." : L"there is no driver of these: ";
    throw Exception(L"The printer " + Quote(printer) + L" cannot be set up: " + none + names);
}

bool PrinterMaker::TakeVendorDriver(const SpoolerState& state) {
    if (wishes.driver.empty()) return false;
    if (state.blocksVendorDrivers) {
        scope.Step(L"The driver " + Quote(wishes.driver) +
                   L" is left out: this system takes no drivers of vendors (protected print mode).");
        return false;
    }
    if (wishes.infPath.empty()) return TakeClassDriver(state, wishes.driver);
    return InstallDriver(state, wishes.driver, wishes.infPath);
}

bool PrinterMaker::TakeClassDriver(const SpoolerState& state, const std::wstring& name) {
    if (!HoldsName(state.drivers, name)) return InstallDriver(state, name, {});
    KeepShared(DeedKind::DriverMade, name);
    driver = name;
    scope.Step(L"The driver " + Quote(name) + L" is on this system and is used.");
    return true;
}

// By design: a newer driver that takes the place of one of the same name stays when the run is rolled back.
bool PrinterMaker::InstallDriver(const SpoolerState& state, const std::wstring& name,
                                 const std::wstring& infPath) {
    const bool isNew = !HoldsName(state.drivers, name);
    if (isNew) {
        scope.Announce({.kind = DeedKind::DriverMade, .name = name, .infPath = infPath});
    } else {
        KeepShared(DeedKind::DriverMade, name);
    }
    if (const std::uint32_t code = scope.Spooler().InstallDriver(name, infPath); code != 0) {
        if (isNew) scope.Withdraw();
        const std::wstring source = infPath.empty() ? L"" : L" from " + Quote(infPath);
        scope.Step(L"The driver " + Quote(name) + L" cannot be installed" + source + scope.ReasonOf(code));
        return false;
    }
    driver = name;
    scope.Step(L"The driver " + Quote(name) + L" was installed.");
    return true;
}

}  // namespace printerqueue
