// The codes of Windows Installer and of its library that this program tells apart.
#pragma once

#include <cstdint>

namespace MsiCode {

inline constexpr std::uint32_t Success = 0;
inline constexpr std::uint32_t NotSupported = 50;
inline constexpr std::uint32_t DiskFull = 112;
inline constexpr std::uint32_t BufferTooSmall = 122;
inline constexpr std::uint32_t PropertyNotFound = 1168;
inline constexpr std::uint32_t AlreadyInitialized = 1247;
inline constexpr std::uint32_t UserCancelled = 1602;
inline constexpr std::uint32_t InstallFailure = 1603;
inline constexpr std::uint32_t InstallAlreadyRunning = 1618;
inline constexpr std::uint32_t LogFailure = 1622;
inline constexpr std::uint32_t LanguageUnsupported = 1623;
inline constexpr std::uint32_t PackageRejected = 1625;
inline constexpr std::uint32_t RemoteDisallowed = 1640;
inline constexpr std::uint32_t RebootInitiated = 1641;
inline constexpr std::uint32_t RebootRequired = 3010;

}  // namespace MsiCode
