add_library(kestrune_wizard STATIC
  src/CommonLib/Application.cpp
  src/CommonLib/DotNetSetup.cpp
  src/CommonLib/Files.cpp
  src/CommonLib/InterProcessLock.cpp
  src/CommonLib/IpAddress.cpp
  src/CommonLib/Logger.cpp
  src/CommonLib/Mutex.cpp
  src/CommonLib/ProcessWait.cpp
  src/CommonLib/Security.cpp
  src/CommonLib/SecurityEveryone.cpp
  src/CommonLib/SystemLibrary.cpp
  src/CommonLib/SystemText.cpp
  src/CommonLib/SystemVersion.cpp
  src/CommonLib/TextFile.cpp
  src/CommonLib/Win32Exception.cpp
  src/CommonLib/XmlAttributeReader.cpp
  src/settings/DetectedNames.cpp
  src/settings/DriverConfigPaths.cpp
  src/settings/InfoCenterLinks.cpp
  src/settings/Localizer.cpp
  src/settings/PrinterInfo.cpp
  src/settings/SettingsFiles.cpp
  src/catalogue/AppCatalogue.cpp
  src/catalogue/DriverInfo.cpp
  src/catalogue/MsiInfoService.cpp
  src/catalogue/MsiInterface.cpp
  src/catalogue/PackageReader.cpp
  src/discovery/DeviceChoice.cpp
  src/discovery/DeviceExchanges.cpp
  src/discovery/DiscoveryDlg.cpp
  src/discovery/DiscoveryListCtrl.cpp
  src/discovery/DiscoveryService.cpp
  src/discovery/FirewallRules.cpp
  src/discovery/ModifySearchDlg.cpp
  src/discovery/ReplyMemory.cpp
  src/install/CDisplayAppsListDlg.cpp
  src/install/DotNetPrerequisite.cpp
  src/install/EndOfRun.cpp
  src/install/FileInUseDlg.cpp
  src/install/FinishDlg.cpp
  src/install/FinishService.cpp
  src/install/InstallMessages.cpp
  src/install/InstallService.cpp
  src/install/ProgressDialog.cpp
  src/install/RMFileInUseDlg.cpp
  src/install/RebootDlg.cpp
  src/install/RebootService.cpp
  src/install/StatusListView.cpp
  src/pages/ConnectivityDlg.cpp
  src/pages/EULADlg.cpp
  src/pages/ManufacturerDlg.cpp
  src/pages/OptionalSoftwareBypassDlg.cpp
  src/pages/StartDlg.cpp
  src/ports/AddPortDlg.cpp
  src/ports/AddPortService.cpp
  src/ports/DriverConfigDlg.cpp
  src/ports/DriverConfiguration.cpp
  src/ports/DriverList.cpp
  src/ports/MSIExtractService.cpp
  src/ports/SharedPrinter.cpp
  src/wizard/CKestruneApp.cpp
  src/wizard/CQorFlatButton.cpp
  src/wizard/CQorLinkButton.cpp
  src/wizard/CmdLineHelper.cpp
  src/wizard/Controller.cpp
  src/wizard/FolderCleanUp.cpp
  src/wizard/Help.cpp
  src/wizard/HighContrast.cpp
  src/wizard/InstallDialogEx.cpp
  src/wizard/KestruneDlg.cpp
  src/wizard/LocalizedMessage.cpp
  src/wizard/RegisteredMessages.cpp)
target_link_libraries(kestrune_wizard PUBLIC kestrune_framework kestrune_logic kestrune_options
  advapi32 winspool shlwapi oleaut32)

# The icon is drawn as a vector picture and rendered in the sizes that the system asks for.
set(ICON ${CMAKE_BINARY_DIR}/resources/Kestrune.ico)
add_custom_command(OUTPUT ${ICON}
  COMMAND ${CMAKE_SOURCE_DIR}/scripts/make-icon.sh ${CMAKE_SOURCE_DIR}/resources/images/icon.svg ${ICON}
  DEPENDS resources/images/icon.svg scripts/make-icon.sh VERBATIM)

# The font of the pages, of the family "Velmora", is made from openly licensed ones.
set(FONT ${CMAKE_BINARY_DIR}/resources/Velmora.ttf)
set(NOTO /usr/share/fonts/truetype/noto)
add_custom_command(OUTPUT ${FONT}
  COMMAND ${CMAKE_SOURCE_DIR}/scripts/make-font.py ${FONT}
          ${NOTO}/NotoSans-Regular.ttf ${NOTO}/NotoSansArabic-Regular.ttf ${NOTO}/NotoSansHebrew-Regular.ttf
  DEPENDS scripts/make-font.py VERBATIM)

add_executable(Kestrune WIN32 src/Kestrune.cpp resources/Kestrune.rc)
target_link_libraries(Kestrune PRIVATE kestrune_wizard)
target_link_options(Kestrune PRIVATE -municode -s)
set_source_files_properties(resources/Kestrune.rc PROPERTIES
  INCLUDE_DIRECTORIES ${CMAKE_BINARY_DIR}/resources
  OBJECT_DEPENDS "${ICON};${FONT};${CMAKE_SOURCE_DIR}/resources/Kestrune.manifest;${CMAKE_SOURCE_DIR}/resources/resource.h")

# For package builders and the demo: prints what a run would do.
add_executable(PackagePlan tools/PackagePlan.cpp)
target_link_libraries(PackagePlan PRIVATE kestrune_wizard)
target_link_options(PackagePlan PRIVATE -municode -s)

# For the tour: moves the wizard from outside.
add_executable(WizardRemote tools/WizardRemote.cpp)
target_link_libraries(WizardRemote PRIVATE kestrune_options user32)
target_link_options(WizardRemote PRIVATE -municode -s)
