// A system with the print system of the tests, on which packages make printers.
#pragma once

#include <string>
#include <vector>

#include "standins/PrinterQueue/Spooler.h"
#include "tests/windows/standins/LibraryFixture.h"

// Has the drivers "Testwerk Driver A" and "Testwerk Driver B" and one printer, "Earlier", which is the
// default.
class PrinterWorldTest : public LibraryTest {
protected:
    void SetUp() override;
    void TearDown() override;

    // The elements of a device at a local port that is to be made.
    static std::wstring LocalDevice(const std::wstring& name, const std::wstring& port);
    static std::wstring NetworkDevice(const std::wstring& name, const std::wstring& port,
                                      const std::wstring& host);
    // The document of a package's installation with these devices.
    static std::wstring Document(const std::vector<std::wstring>& devices);

    // What the system tells.
    static std::vector<std::wstring> QueueNames();
    static printerqueue::PrintQueue Queue(const std::wstring& name);
    static bool HasPort(const std::wstring& name);
    static std::wstring DefaultPrinter();
    // Makes a printer without a package.
    static void MakeQueue(const std::wstring& name, const std::wstring& port);
    // Sends a raw job; returns the bytes that then lie in the file.
    static std::string Printed(const std::wstring& name, const std::string& bytes, const std::wstring& file);
    // What Windows Installer has written down since the test began.
    static std::wstring InstallerLog();
    // Says whether any package has left a record of printers.
    static bool HasRecords();

    static constexpr wchar_t printerPackage[] = L"printer-1.0.msi";
    // A local port of the test's own, and its file.
    static constexpr wchar_t port[] = L"C:\\PrinterWorld.prn";
    static constexpr wchar_t otherPort[] = L"C:\\PrinterWorld 2.prn";
};
