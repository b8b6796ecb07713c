// What the immediate action hands to the deferred ones, which see no properties of the package.
#pragma once

#include <string>
#include <string_view>

#include "standins/PrinterQueue/PrinterDevice.h"

namespace printerqueue {

enum class Task { SetUp, Remove };

// What belongs to the computer, and what to the user who installs: each has its own ledger.
enum class Part { Computer, User };

struct Orders {
    Task task = Task::SetUp;
    Part part = Part::Computer;
    std::wstring runId;
    std::wstring packageCode;  // the same for all versions
    std::wstring version;      // names this one
    PackageWishes wishes;
    std::wstring printerInfo;

    friend bool operator==(const Orders&, const Orders&) = default;
};

std::wstring WriteOrders(const Orders& orders);
Orders ReadOrders(std::wstring_view text);

}  // namespace printerqueue
