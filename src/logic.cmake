# What only computes: no Windows header in it, so it is built for Windows and for this machine alike.
set(KESTRUNE_LOGIC_SOURCES
  src/CommonLib/AddressText.cpp
  src/CommonLib/Exception.cpp
  src/CommonLib/LogRecord.cpp
  src/CommonLib/TextUtilities.cpp
  src/catalogue/MSI_APP.cpp
  src/catalogue/PackageProperties.cpp
  src/discovery/DeviceDocuments.cpp
  src/discovery/DiscoveredDevices.cpp
  src/discovery/DriverMatch.cpp
  src/discovery/NpaReply.cpp
  src/discovery/RowOrder.cpp
  src/install/CommandDocument.cpp
  src/install/FinishTexts.cpp
  src/install/InstallDecision.cpp
  src/install/ProgressPosition.cpp
  src/install/StatusDocument.cpp
  src/pages/ManufacturerList.cpp
  src/ports/ConfigTool.cpp
  src/ports/PortText.cpp
  src/settings/DerivedNames.cpp
  src/settings/DeviceDocument.cpp
  src/settings/ElementNames.cpp
  src/settings/FilterDocument.cpp
  src/settings/IndexedDocument.cpp
  src/settings/InstallSettings.cpp
  src/settings/KeyedValues.cpp
  src/settings/LanguageTable.cpp
  src/settings/SettingsMerge.cpp
  src/settings/StartMarker.cpp
  src/settings/TagDocument.cpp
  src/settings/TagSearch.cpp
  src/settings/TextExpansion.cpp
  src/wizard/ButtonFace.cpp)

add_library(kestrune_logic STATIC ${KESTRUNE_LOGIC_SOURCES})
target_link_libraries(kestrune_logic PUBLIC kestrune_options)
if(KESTRUNE_FUZZ)
  target_compile_options(kestrune_logic PRIVATE -fsanitize=fuzzer-no-link)
endif()
