// A test whose records go to logs of its own.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/wizard/Logs.h"

// Begins with a new logger, a vendor that nobody else has, no logs, and the advanced log switched on.
class LogWorld : public testing::Test {
protected:
    LogWorld();
    ~LogWorld() override;

    // Expects the records under another vendor's name from here on, with no logs of it yet.
    void UseVendor(const std::wstring& name);

    // The switch of the advanced log, as the user sets it.
    void SwitchAdvancedLog(unsigned value) const;
    void RemoveSwitch() const;

    std::wstring LogFolder() const;
    std::vector<LogRecord> BasicLog() const;
    std::vector<LogRecord> AdvancedLog() const;
    std::vector<std::wstring> BasicMessages() const;
    std::vector<std::wstring> AdvancedMessages() const;

    std::wstring vendor;

private:
    void RemoveTraces() const;
};

// A record of this level with this message.
testing::Matcher<const LogRecord&> Record(const std::wstring& level, const std::wstring& message);
