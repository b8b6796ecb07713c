// The properties that the program reads from packages.
#pragma once

namespace Property {

// Windows Installer's own.
inline constexpr wchar_t ProductName[] = L"ProductName";
inline constexpr wchar_t ProductVersion[] = L"ProductVersion";
inline constexpr wchar_t SecureCustomProperties[] = L"SecureCustomProperties";

// Of every package.
inline constexpr wchar_t DEVICETYPE[] = L"DEVICETYPE";
inline constexpr wchar_t STARTAPP[] = L"STARTAPP";
inline constexpr wchar_t INSTALLSIZE[] = L"INSTALLSIZE";
inline constexpr wchar_t STREAMDISPLAYNAME[] = L"STREAMDISPLAYNAME";
inline constexpr wchar_t DRIVERID[] = L"DRIVERID";
inline constexpr wchar_t DRIVERNAME[] = L"DRIVERNAME";

// Of applications.
inline constexpr wchar_t MSIDESCRIPTION[] = L"MSIDESCRIPTION";
inline constexpr wchar_t APPTYPE[] = L"APPTYPE";
inline constexpr wchar_t SUPPORTEDOS[] = L"SUPPORTEDOS";
inline constexpr wchar_t DISCOVERY[] = L"DISCOVERY";
inline constexpr wchar_t DEPENDENTAPPS[] = L"DEPENDENTAPPS";
inline constexpr wchar_t FORCEREINSTALL[] = L"FORCEREINSTALL";

// Of printer drivers.
inline constexpr wchar_t ISOMBRELSUPPORTED[] = L"ISOMBRELSUPPORTED";

}  // namespace Property
