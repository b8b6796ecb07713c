// The two generations of the driver configuration tool: where they lie and how they are called.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Everything here is a function of its arguments and may run on any thread. A driver text is an identifier or
// a name of a driver; it says which generation.

struct ConfigToolKind {
    std::wstring_view fileExtension;       // of a configuration file, with its point
    std::wstring_view appType;             // of its package in the catalogue
    std::wstring_view packageName;         // a part of its package's file name
    std::wstring_view unpackFolder;        // below the temporary folder
    std::wstring_view folderBeforeVendor;  // of the tool, after the temporary folder
    std::wstring_view folderBehindVendor;
    std::wstring_view program;
};

inline constexpr ConfigToolKind olderConfigTool{.fileExtension = L".zdc",
                                                .appType = L"DRIVERCONFIG",
                                                .packageName = L"DriverConfig",
                                                .unpackFolder = L"TolvaneKit",
                                                .folderBeforeVendor = L"TolvaneKit\\",
                                                .folderBehindVendor = L"\\DriverConfig\\",
                                                .program = L"Morvane.exe"};

inline constexpr ConfigToolKind v4ConfigTool{.fileExtension = L".xdc",
                                             .appType = L"V4DRIVERCONFIG",
                                             .packageName = L"Ardentis",
                                             .unpackFolder = L"ArdentisKit",
                                             .folderBeforeVendor = L"ArdentisKit\\",
                                             .folderBehindVendor = L"\\ArdentisKit\\",
                                             .program = L"Ardentis.exe"};

// Returns true for a text that holds "V4" anywhere, in capitals.
bool IsV4Driver(std::wstring_view driver);

// Returns the tool for the driver's generation.
const ConfigToolKind& ConfigToolFor(std::wstring_view driver);

// Returns the last of the paths that holds the part, or the empty text.
std::wstring LastPathWith(const std::vector<std::wstring>& paths, std::wstring_view part);

// Returns the command line by which Windows Installer's program unpacks a package into the folder. None of
// the paths may end in a backslash.
std::wstring UnpackCommand(std::wstring_view installerPath, std::wstring_view packagePath,
                           std::wstring_view folder);

struct ConfigCommandInputs {
    std::wstring toolPath;
    std::wstring vendor;
    std::wstring product;
    std::wstring file;
};

// Returns the command line that has the generation's tool make a configuration file.
std::wstring ConfigCommandFor(std::wstring_view driver, const ConfigCommandInputs& inputs);

// Returns the path of a configuration file, the folder with its closing backslash. A count of 0 stands for
// none.
std::wstring ConfigFilePath(std::wstring_view folder, std::wstring_view vendor, std::wstring_view extension,
                            std::uint32_t count);

// Returns the record of a failure with that code while a configuration was being made.
std::wstring NewConfigurationFailure(std::int32_t code);
