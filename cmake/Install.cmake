# Installation under the FHS paths and the Debian package.
#
#   <prefix>/bin/nadavik, <prefix>/bin/tonvex-render
#   <prefix>/share/nadavik/       the library store, tabla kits, pictures,
#                                 screen definitions, the notation font
#   <prefix>/share/doc/nadavik/   the user guide and the README
#   <prefix>/share/applications/, share/icons/hicolor/, share/metainfo/
#
# The program finds share/nadavik from its own folder (../share/nadavik from
# bin/, src/control/program_folders.h); nothing under the prefix is written
# at run time. The notation font is Debian's: Shusha.ttf is a link to the
# font file the build found, and the package depends on that font's package.
include(GNUInstallDirs)
set(NADAVIK_DOC_DIR ${CMAKE_INSTALL_DATADIR}/doc/nadavik)

install(TARGETS nadavik tonvex-render RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

set(_data_files ${NADAVIK_DATA_DIR}/mrA.nvy ${NADAVIK_DATA_DIR}/clb.nvy ${NADAVIK_DATA_DIR}/vlb.nvy
                ${NADAVIK_DATA_DIR}/tonvex-seeds.bank)
foreach(number RANGE 1 8)
  list(APPEND _data_files ${NADAVIK_DATA_DIR}/nv${number}.jpg)
endforeach()
install(FILES ${_data_files} DESTINATION ${CMAKE_INSTALL_DATADIR}/nadavik)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/screens/ DESTINATION ${CMAKE_INSTALL_DATADIR}/nadavik/screens)

if(NADAVIK_DEVANAGARI_FONT)
  install(CODE "
    set(_font \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_DATADIR}/nadavik/Shusha.ttf\")
    file(REMOVE \"\${_font}\")
    file(CREATE_LINK \"${NADAVIK_DEVANAGARI_FONT}\" \"\${_font}\" SYMBOLIC)")
endif()

install(FILES ${PROJECT_SOURCE_DIR}/README.md DESTINATION ${NADAVIK_DOC_DIR})
# The user guide keeps its place beside the screenshots it shows.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/user-guide DESTINATION ${NADAVIK_DOC_DIR})
foreach(shot ${NADAVIK_GUIDE_SCREENSHOTS})
  install(FILES ${PROJECT_SOURCE_DIR}/docs/screenshots/${shot}.png DESTINATION ${NADAVIK_DOC_DIR}/screenshots)
endforeach()

set(_desktop ${PROJECT_SOURCE_DIR}/desktop)
install(FILES ${_desktop}/org.nadavik.Nadavik.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${_desktop}/org.nadavik.Nadavik.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${_desktop}/icons/nadavik.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
foreach(size 48 64 128 256)
  install(FILES ${_desktop}/icons/nadavik-${size}.png
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps RENAME nadavik.png)
endforeach()

# The Debian package: `cpack -G DEB` in the build folder (scripts/package.sh).
# The libraries' packages come from dpkg-shlibdeps; the font package is
# named by the font the build found.
set(CPACK_PACKAGE_NAME nadavik)
set(CPACK_PACKAGE_VENDOR "Nadavik")
set(CPACK_PACKAGE_CONTACT "Nadavik <support@nadavik.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "learn the ragas of North Indian classical music")
set(CPACK_PACKAGE_DESCRIPTION
    "Choose a raga and hear its scale, pakad, alap and taans played on a synthesised harmonium over a tanpura drone, while the notes light up on an on-screen harmonium and in the notation.")
set(CPACK_PACKAGE_INSTALL_DIRECTORY nadavik)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The debugging symbols of the release build stay out of the package.
set(CPACK_STRIP_FILES ON)
if(NADAVIK_DEVANAGARI_FONT MATCHES "lohit")
  set(_font_package fonts-lohit-deva)
else()
  set(_font_package fonts-noto-core)
endif()
# The offscreen and other platform plugins beyond xcb come with qt6-qpa-plugins.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "${_font_package}")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-qpa-plugins, pulseaudio | pipewire-pulse")
include(CPack)
