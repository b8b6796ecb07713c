// The custom actions. Each catches what it throws, since the installer knows no exceptions.
#include <windows.h>

#include <msi.h>
#include <msiquery.h>

#include <functional>
#include <string>

#include "CommonLib/Exception.h"
#include "CommonLib/MsiCodes.h"
#include "CommonLib/TextUtilities.h"
#include "standins/PrinterQueue/InstallerSession.h"
#include "standins/PrinterQueue/Orders.h"
#include "standins/PrinterQueue/PrinterRun.h"
#include "standins/PrinterQueue/RegistryLedger.h"
#include "standins/PrinterQueue/SystemSpooler.h"

using printerqueue::InstallerSession;
using printerqueue::Orders;
using printerqueue::Part;
using printerqueue::PrinterDevice;
using printerqueue::PrinterRun;
using printerqueue::Task;

namespace {

// Which of the actions gets the orders of a run; the others find none and do nothing.
struct PlannedAction {
    const wchar_t* name;
    Task task;
    Part part;
};

constexpr PlannedAction plannedActions[] = {
    {L"PrinterQueueRestoreUser", Task::Remove, Part::User},
    {L"PrinterQueueRemoveUser", Task::Remove, Part::User},
    {L"PrinterQueueRollBack", Task::Remove, Part::Computer},
    {L"PrinterQueueRun", Task::Remove, Part::Computer},
    {L"PrinterQueueCommit", Task::Remove, Part::Computer},
    {L"PrinterQueueCommitUser", Task::Remove, Part::User},
    {L"PrinterQueueRollBack", Task::SetUp, Part::Computer},
    {L"PrinterQueueRun", Task::SetUp, Part::Computer},
    {L"PrinterQueueRollBackUser", Task::SetUp, Part::User},
    {L"PrinterQueueRunUser", Task::SetUp, Part::User},
    {L"PrinterQueueCommit", Task::SetUp, Part::Computer},
    {L"PrinterQueueCommitUser", Task::SetUp, Part::User},
};

// Of the time and the process, so that no run is taken for an earlier one.
std::wstring NewRunId() {
    FILETIME now{};
    GetSystemTimeAsFileTime(&now);
    return ToDecimalString(now.dwHighDateTime) + L"-" + ToDecimalString(now.dwLowDateTime) + L"-" +
           ToDecimalString(GetCurrentProcessId());
}

std::wstring PackageCodeOf(const InstallerSession& session) {
    const std::wstring upgradeCode = session.Property(L"UpgradeCode");
    return upgradeCode.empty() ? session.Property(L"ProductCode") : upgradeCode;
}

Orders ReadPackage(const InstallerSession& session) {
    return {.runId = NewRunId(),
            .packageCode = PackageCodeOf(session),
            .version = session.Property(L"ProductCode"),
            .wishes = {.driver = session.Property(L"PRINTER_DRIVER"),
                       .infPath = session.Formatted(session.Property(L"PRINTER_DRIVER_INF")),
                       .classDrivers = printerqueue::ReadNames(session.Property(L"CLASS_DRIVERS")),
                       .location = session.Property(L"PRINTER_LOCATION"),
                       .comment = session.Property(L"PRINTER_COMMENT"),
                       .protocol = session.Property(L"PRINTER_PROTOCOL"),
                       .portNumber = session.Property(L"PRINTER_PORT_NUMBER"),
                       .lprQueue = session.Property(L"PRINTER_LPR_QUEUE")},
            .printerInfo = session.Property(L"PRINTER_INFO")};
}

void HandOut(const InstallerSession& session, Orders orders) {
    for (const PlannedAction& action : plannedActions) {
        if (action.task != orders.task) continue;
        orders.part = action.part;
        session.SetProperty(action.name, WriteOrders(orders));
    }
}

void Plan(InstallerSession& session) {
    Orders orders = ReadPackage(session);
    const std::wstring removed = session.Property(L"REMOVE");
    if (!removed.empty()) {
        // The package that replaces this one takes its printers over.
        if (!EqualsIgnoringCase(removed, L"ALL") || !session.Property(L"UPGRADINGPRODUCTCODE").empty())
            return;
        orders.task = Task::Remove;
    } else if (ReadDevices(orders.printerInfo, orders.wishes).empty()) {
        session.Say(L"There is no device to set up.");
    }
    HandOut(session, orders);
}

void Run(PrinterRun& run, const Orders& orders) {
    if (orders.task == Task::Remove) {
        run.Remove({.id = orders.runId, .version = orders.version, .part = orders.part});
        return;
    }
    run.SetUp({.id = orders.runId,
               .version = orders.version,
               .part = orders.part,
               .wishes = orders.wishes,
               .devices = ReadDevices(orders.printerInfo, orders.wishes)});
}

UINT Failed(const InstallerSession& session, const std::wstring& text) {
    session.ShowError(text);
    return ERROR_INSTALL_FAILURE;
}

UINT Guarded(InstallerSession& session, const std::function<void()>& action) {
    try {
        action();
        return ERROR_SUCCESS;
    } catch (const Exception& exception) {
        if (exception.getCode() == static_cast<std::int32_t>(MsiCode::UserCancelled)) {
            return ERROR_INSTALL_USEREXIT;
        }
        return Failed(session, exception.getMessage());
    } catch (...) {
        return Failed(session, L"The printers cannot be set up: there is not enough memory.");
    }
}

// Runs a deferred action over the system, if it has orders.
UINT OverTheSystem(MSIHANDLE install, const std::function<void(PrinterRun&, const Orders&)>& action) {
    InstallerSession session(install);
    return Guarded(session, [&] {
        const std::wstring text = session.Property(L"CustomActionData");
        if (text.empty()) return;
        const Orders orders = printerqueue::ReadOrders(text);
        printerqueue::SystemSpooler spooler;
        printerqueue::RegistryLedger ledger(
            orders.part == Part::Computer ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER, orders.packageCode);
        PrinterRun run(spooler, ledger, session);
        action(run, orders);
    });
}

}  // namespace

extern "C" {

UINT __stdcall PlanPrinters(MSIHANDLE install) {
    InstallerSession session(install);
    return Guarded(session, [&] { Plan(session); });
}

UINT __stdcall RunPrinters(MSIHANDLE install) {
    return OverTheSystem(install, Run);
}

UINT __stdcall RollBackPrinters(MSIHANDLE install) {
    return OverTheSystem(install, [](PrinterRun& run, const Orders& orders) { run.RollBack(orders.runId); });
}

UINT __stdcall CommitPrinters(MSIHANDLE install) {
    return OverTheSystem(install, [](PrinterRun& run, const Orders& orders) { run.Commit(orders.runId); });
}
}
