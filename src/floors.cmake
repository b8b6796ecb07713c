# The folders of the program, from the lowest floor up: each may use those that stand before it, and none after.
# What only computes (LOGIC) has no Windows header in it and is built for Windows and for this machine alike, as one
# library; the rest of each floor (SYSTEM) is a library of its own, so that the linker keeps the order too.

set(KESTRUNE_FLOOR_BELOW kestrune_framework)

function(floor name)
  cmake_parse_arguments(FLOOR "" "" "LOGIC;SYSTEM" ${ARGN})
  list(TRANSFORM FLOOR_LOGIC PREPEND src/${name}/)
  list(TRANSFORM FLOOR_LOGIC APPEND .cpp)
  set(KESTRUNE_LOGIC_SOURCES ${KESTRUNE_LOGIC_SOURCES} ${FLOOR_LOGIC} PARENT_SCOPE)
  if(WIN32)
    list(TRANSFORM FLOOR_SYSTEM PREPEND src/${name}/)
    list(TRANSFORM FLOOR_SYSTEM APPEND .cpp)
    add_library(kestrune_${name} STATIC ${FLOOR_SYSTEM})
    target_link_libraries(kestrune_${name} PUBLIC ${KESTRUNE_FLOOR_BELOW} kestrune_logic kestrune_options)
    set(KESTRUNE_FLOOR_BELOW kestrune_${name} PARENT_SCOPE)
  endif()
endfunction()

floor(CommonLib
  LOGIC AddressText Exception LogRecord TextUtilities Utf8
  SYSTEM Application DotNetSetup Files InterProcessLock IpAddress Logger Mutex ProcessStart ProcessWait Security
    SecurityEveryone SystemText SystemVersion TextFile UserRights Win32Exception XmlAttributeReader)

floor(settings
  LOGIC DeviceDocument ElementNames FilterDocument IndexedDocument InstallSettings KeyedValues LanguageTable
    Localizer SettingsMerge StartMarker TagDocument TagSearch TextExpansion VendorName
  SYSTEM SettingsFiles SystemLocalizer)

floor(wizard
  LOGIC ButtonFace
  SYSTEM CQorFlatButton CQorLinkButton CmdLineHelper Controller CountedWorker DriverList FolderCleanUp
    Help InstallDialogEx KestruneDlg LocalizedMessage PaintedWait PictureIcon RegisteredMessages)

floor(catalogue
  LOGIC AppCatalogue ApplicationScan DriverInfo MSI_APP PackageProperties PackageReader
  SYSTEM MsiInfoService MsiInterface)

floor(printer
  LOGIC ApplyChoice ConfigTool DerivedNames DetectedNames InfoCenterLinks PrinterChoice PrinterDescription
  SYSTEM DefaultDriver DriverConfigPaths DriverConfiguration MSIExtractService SystemPorts)

floor(install
  LOGIC CommandDocument FinishTexts InstallDecision InstallSelection OutcomeList ProgressPosition StatusDocument
  SYSTEM CDisplayAppsListDlg DotNetPrerequisite FileInUseDlg FinishDlg FinishService InstallMessages
    InstallService ProgressDialog RMFileInUseDlg RebootDlg RebootService StatusListView)

floor(pages
  LOGIC BypassOffer ManufacturerList
  SYSTEM ConnectivityDlg EULADlg ManufacturerDlg OptionalSoftwareBypassDlg StartDlg)

floor(ports
  LOGIC AddPortState PortText
  SYSTEM AddPortDlg AddPortService DriverConfigDlg SharedPrinter)

floor(discovery
  LOGIC DeviceChoice DeviceDocuments DiscoveredDevices DiscoveryState DriverMatch NpaReply RowOrder SearchCheck
  SYSTEM DeviceExchanges DiscoveryDlg DiscoveryListCtrl DiscoveryService FirewallRules ModifySearchDlg
    ReplyMemory)

floor(app
  LOGIC PageRules Preparation
  SYSTEM CKestruneApp StartUp WizardChain)

add_library(kestrune_logic STATIC ${KESTRUNE_LOGIC_SOURCES})
target_link_libraries(kestrune_logic PUBLIC kestrune_options)
# The records of the logic go to the logs of the program, and nowhere in a program that has none.
add_library(kestrune_quiet_log STATIC tools/QuietLog.cpp)
target_link_libraries(kestrune_quiet_log PUBLIC kestrune_options)
if(NOT WIN32)
  target_link_libraries(kestrune_logic PUBLIC kestrune_quiet_log)
endif()
if(KESTRUNE_FUZZ)
  target_compile_options(kestrune_logic PRIVATE -fsanitize=fuzzer-no-link)
endif()
if(WIN32)
  target_link_libraries(kestrune_CommonLib PUBLIC advapi32 oleaut32 shlwapi)
  target_link_libraries(kestrune_wizard PUBLIC ntdll)
endif()
