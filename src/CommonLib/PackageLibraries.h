// What the three libraries of a package export: the program looks these functions up by their names, and who
// brings a library of his own defines them. Paths, documents and names are UTF-16 and zero-terminated; a
// length given with one counts code units without the terminator and decides where the text ends. Codes are
// those of the system: 0 is success, 122 a buffer that is too small. Nothing throws.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

// Receives the messages of a run: a tag document with PERCENT, or with FILE_IN_USE or RM_FILE_IN_USE and
// APPLICATION_NAME. Its result answers the message: 1 (IDOK) to go on, 2 (IDCANCEL) to end the run, and for
// files in use also 4 (IDRETRY) or 5 (IDIGNORE). It is called one message at a time, on any thread, only
// while the operation that was given it runs, and may block as long as it likes.
using InstallProgressCallback = std::int32_t (*)(const wchar_t* message);

extern "C" {

// Brevanto.dll installs packages and reads them.

// Called once after the load and once before the unload. Both may be left out.
void MsiInitialize();
void MsiUninitialize();

// Sets the vendor in whose log folder the next runs write "Packages.log". May be called from any thread.
void MsiEnableInstallLog(const wchar_t* logName, std::uint64_t logNameLength);

// Installs a package with the elements of the command document as public properties, and blocks until it is
// done. Returns 0, 1641 and 3010 for success, 1602 after a cancel, 1618 while another run of this library is
// on, 87 for a missing path, or what else Windows Installer says.
std::uint32_t MsiInstallApp(const wchar_t* packagePath, std::uint32_t packagePathLength,
                            InstallProgressCallback callback, const wchar_t* commandDocument,
                            std::uint32_t commandDocumentLength);

// Removes the installed product that the package belongs to. Returns as MsiInstallApp does, and 1605 if
// there is none.
std::uint32_t MsiUninstallApp(const wchar_t* packagePath, std::uint32_t packagePathLength,
                              InstallProgressCallback callback);

// Asks the run that is on to end with 1602. Any thread may call it, also from inside the callback; without a
// run it does nothing.
void MsiCancel();

// Writes the package's properties as a tag document into a buffer of the given capacity, terminator
// included, and its length without the terminator into neededLength. Returns 0; 122 with the length and an
// untouched buffer if the capacity is too small; the installer's code and the length 0 for a file that is no
// package.
std::uint32_t MsiGetProperties(const wchar_t* packagePath, const wchar_t* language, wchar_t* buffer,
                               std::uint32_t capacity, std::uint32_t* neededLength);

// Compares the package with what is installed. Returns 1 if its product is installed in any version; then
// exactly one holds: upToDate, upgradable (with minorUpgrade for one that a reinstall applies), or neither,
// which means that something newer is installed. The language has no influence: a package is one product in
// all its languages.
std::uint8_t MsiIsAppInstalledByLang(const wchar_t* packagePath, std::uint32_t packagePathLength,
                                     std::uint8_t* upToDate, std::uint8_t* upgradable,
                                     std::uint8_t* minorUpgrade, const wchar_t* language);

// Sondrix.dll finds devices.

void Initialize();
// Ends a search that runs on another thread.
void Uninitialize();
// Looks for devices; returns when the search is over.
std::uint32_t DiscoverW(const wchar_t* searchDocument);
// The devices of the last search. Capacities and the required length count the NUL.
std::uint32_t EnumerateW(wchar_t* buffer, std::uint32_t capacity, std::uint32_t* required,
                         const wchar_t* enumerationDocument);

// Quelmar.dll asks devices.

void BidiInitialize();
void BidiUninitialize();
// Asks all devices of the request by the packet. The reply is made by the allocator, which gets the number of
// characters, and belongs to the caller; its length counts characters, without a NUL.
std::uint32_t BidiExchangeNpaAll(const wchar_t* request, const std::uint8_t* packet,
                                 std::uint32_t packetLength, wchar_t** reply, std::uint32_t* replyLength,
                                 wchar_t* (*allocate)(std::uint32_t count, wchar_t** memory));
// Asks one device. The reply is a packet; sizes and lengths count bytes.
std::uint32_t BidiExchangeNpaW(const wchar_t* request, const std::uint8_t* packet, std::uint32_t packetLength,
                               std::uint8_t* reply, std::uint32_t replySize, std::uint32_t* replyLength);
}

// The names of all that a library must export.
namespace LibraryExports {

inline constexpr auto Brevanto = std::to_array<std::string_view>(
    {"MsiInitialize", "MsiUninitialize", "MsiEnableInstallLog", "MsiInstallApp", "MsiUninstallApp",
     "MsiCancel", "MsiGetProperties", "MsiIsAppInstalledByLang"});
inline constexpr auto Sondrix =
    std::to_array<std::string_view>({"Initialize", "Uninitialize", "DiscoverW", "EnumerateW"});
inline constexpr auto Quelmar = std::to_array<std::string_view>(
    {"BidiInitialize", "BidiUninitialize", "BidiExchangeNpaAll", "BidiExchangeNpaW"});

}  // namespace LibraryExports
