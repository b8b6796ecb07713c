// The configuration of a driver: the tool that makes it, and the dialog in which the user chooses one.
#pragma once

#include <memory>
#include <string>

class CWnd;
class DriverConfigDlg;

// A driver text is an identifier or a name of a driver. All this belongs to the thread of the pages.

// Whether the package brings the configuration tool of the driver's generation, or of any for an empty text.
bool IsConfigToolAvailable(const std::wstring& driver);

// Whether the driver takes a configuration and there is a tool for it.
bool CanConfigureDriver(const std::wstring& driverId);

// Forgets the configuration that was chosen: it belongs to the driver for which it was chosen.
void DropConfiguration();

// The machine-wide folder of configuration files, with its closing backslash.
std::wstring GetConfigurationFolder();

// The path of the unpacked tool, empty while there is none.
std::wstring FindConfigTool(const std::wstring& driver);

// The folder of the unpacked tool of that vendor, with its closing backslash.
std::wstring GetToolFolder(const std::wstring& driver, const std::wstring& vendor);

// The command line that has the tool make a configuration file with a free name.
std::wstring MakeConfigCommand(const std::wstring& driver);

// The path of a configuration file that does not exist yet; its folder does afterwards.
std::wstring MakeConfigFileName(const std::wstring& driver);

// What a click on a page's Configure driver does: has the tool unpacked where this process has not done so
// yet, and shows the dialog over the page until the user is done with it. The page owns the dialog and keeps
// the last one; its class must see DriverConfigDlg.h where its destructor stands.
void OpenDriverConfiguration(CWnd& page, const std::wstring& driverId,
                             std::unique_ptr<DriverConfigDlg>& dialog);
