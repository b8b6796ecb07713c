# The program.

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
          ${NOTO}/NotoSansThai-Regular.ttf
  DEPENDS scripts/make-font.py VERBATIM)

add_executable(Kestrune WIN32 src/app/Kestrune.cpp framework/LoadConfiguration.cpp resources/Kestrune.rc)
target_link_libraries(Kestrune PRIVATE kestrune_app)
target_link_options(Kestrune PRIVATE -municode -s)
set_source_files_properties(resources/Kestrune.rc PROPERTIES
  INCLUDE_DIRECTORIES ${CMAKE_BINARY_DIR}/resources
  OBJECT_DEPENDS "${ICON};${FONT};${CMAKE_SOURCE_DIR}/resources/Kestrune.manifest;${CMAKE_SOURCE_DIR}/resources/resource.h")
