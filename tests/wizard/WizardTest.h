// A test of the program from outside: a package tree, a driver, and what the run left behind.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/wizard/LibraryCalls.h"
#include "tests/wizard/Logs.h"
#include "tests/wizard/PackageTree.h"
#include "tests/wizard/Waiting.h"
#include "tests/wizard/WizardDriver.h"

class WizardTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // Starts the program and waits for its end.
    void Run(const std::wstring& arguments = {});
    // Waits until the walk has come to the first Finish page, closes the window there and waits for the end.
    void CloseOnFinishPage();
    // Expects logs under that vendor's name, for a package whose settings do not give the tree's.
    void ExpectVendor(const std::wstring& name);
    // The switch of the advanced log; on unless a test turns it off.
    void SwitchAdvancedLog(bool on) const;

    std::wstring LogFolder() const;
    std::vector<LogRecord> BasicLog() const;
    std::vector<LogRecord> AdvancedLog() const;
    // The messages of the basic log at that level, in their order.
    std::vector<std::wstring> BasicMessages(const std::wstring& level) const;
    // Waits until the advanced log holds the message.
    bool WaitForMessage(const std::wstring& message) const;

    std::vector<LibraryCall> Calls() const;
    std::vector<LibraryCall> Calls(const std::wstring& name) const;
    // The file names of the packages that were installed and removed, in the order of the calls.
    std::vector<std::wstring> Installs() const;
    std::vector<std::wstring> Removals() const;
    // The command document with which the package was installed.
    std::wstring CommandOf(const std::wstring& package) const;
    // The settings with which the install run began, as the advanced log gives them.
    std::wstring FinalSettings() const;
    // The value of a tag in them, empty for a tag that is missing.
    std::wstring FinalSetting(const std::wstring& tag) const;
    // The target folder, by the rule that its name is the vendor's.
    std::wstring TargetFolder() const;
    // The path of a package as the program writes it.
    std::wstring ProgramPathOf(const std::wstring& path) const;

    PackageTree tree;
    WizardDriver wizard{tree.ProgramFolder() / L"Kestrune.exe"};

private:
    void RemoveTraces() const;
    std::vector<std::wstring> PackagesOf(const std::wstring& name) const;
    void ExpectScriptUsed() const;

    std::wstring vendor = tree.Vendor();
};

// A log that holds a record of this level and message.
testing::Matcher<const std::vector<LogRecord>&> HasRecord(const std::wstring& level,
                                                          const std::wstring& message);
// The same for a message of which only a part is given.
testing::Matcher<const std::vector<LogRecord>&> HasRecordWith(const std::wstring& level,
                                                              const std::wstring& part);
