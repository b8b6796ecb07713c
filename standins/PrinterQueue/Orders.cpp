#include "standins/PrinterQueue/Orders.h"

#include "standins/PrinterQueue/FieldText.h"

namespace printerqueue {

std::wstring WriteOrders(const Orders& orders) {
    const PackageWishes& wishes = orders.wishes;
    std::wstring classDrivers;
    for (const std::wstring& name : wishes.classDrivers) classDrivers += WriteField(L"NAME", name);
    return WriteField(L"TASK", orders.task == Task::SetUp ? L"set up" : L"remove") +
           WriteField(L"PART", orders.part == Part::Computer ? L"computer" : L"user") +
           WriteField(L"RUN_ID", orders.runId) + WriteField(L"CODE", orders.packageCode) +
           WriteField(L"VERSION", orders.version) + WriteField(L"DRIVER", wishes.driver) +
           WriteField(L"INF", wishes.infPath) + WriteField(L"CLASS_DRIVERS", classDrivers) +
           WriteField(L"LOCATION", wishes.location) + WriteField(L"COMMENT", wishes.comment) +
           WriteField(L"PROTOCOL", wishes.protocol) + WriteField(L"PORT_NUMBER", wishes.portNumber) +
           WriteField(L"LPR_QUEUE", wishes.lprQueue) + WriteField(L"PRINTER_INFO", orders.printerInfo);
}

Orders ReadOrders(std::wstring_view text) {
    return {.task = ReadField(text, L"TASK") == L"remove" ? Task::Remove : Task::SetUp,
            .part = ReadField(text, L"PART") == L"user" ? Part::User : Part::Computer,
            .runId = ReadField(text, L"RUN_ID"),
            .packageCode = ReadField(text, L"CODE"),
            .version = ReadField(text, L"VERSION"),
            .wishes = {.driver = ReadField(text, L"DRIVER"),
                       .infPath = ReadField(text, L"INF"),
                       .classDrivers = ReadFields(ReadField(text, L"CLASS_DRIVERS"), L"NAME"),
                       .location = ReadField(text, L"LOCATION"),
                       .comment = ReadField(text, L"COMMENT"),
                       .protocol = ReadField(text, L"PROTOCOL"),
                       .portNumber = ReadField(text, L"PORT_NUMBER"),
                       .lprQueue = ReadField(text, L"LPR_QUEUE")},
            .printerInfo = ReadField(text, L"PRINTER_INFO")};
}

}  // namespace printerqueue
