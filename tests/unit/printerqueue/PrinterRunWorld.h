// A system with one printer, and a package that sets devices up on it.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "standins/PrinterQueue/PrinterRun.h"
#include "tests/unit/printerqueue/ScriptedSpooler.h"

class PrinterRunWorld : public testing::Test {
protected:
    PrinterRunWorld();

    // A device on a network port of that name.
    static printerqueue::PrinterDevice Device(const std::wstring& name, const std::wstring& port);

    // Run both parts, as the installer does. Return the code of the failure, -1 for one without a code, 0 for
    // none.
    std::int32_t Install(const std::vector<printerqueue::PrinterDevice>& devices);
    std::int32_t Remove();
    void RollBackSetUp();
    void RollBackRemoval();
    void Commit();

    // Compares what a user could tell apart; the order of entries is none of it.
    void ExpectUntouched() const;

    ScriptedSpooler spooler;
    printerqueue::SpoolerState untouched;
    ScriptedStore store;
    ScriptedStore userStore;
    ScriptedReport report;
    printerqueue::RunOrder order{.id = L"{1}", .version = L"{1.0}"};
    // The text of the last failure.
    std::wstring problem;

private:
    std::int32_t Tried(const std::function<void()>& run);
};
