# What `cmake --install` puts where, and the Debian package that `cpack -G DEB` makes of it.

include(GNUInstallDirs)
set(linuxFiles "${CMAKE_SOURCE_DIR}/packaging/linux")
set(packaged "${CMAKE_BINARY_DIR}/packaging")

# The desktop's icons are drawn by the routine that draws the window's.
add_executable(brindlemoor_icon_writer "${CMAKE_SOURCE_DIR}/packaging/icon_writer.cpp")
target_link_libraries(brindlemoor_icon_writer PRIVATE brindlemoor_qt)
brindlemoor_options(brindlemoor_icon_writer)
set(iconSizes 16 24 32 48 64 128 256)
set(iconFiles)
foreach(size IN LISTS iconSizes)
    list(APPEND iconFiles "${packaged}/brindlemoor-${size}.png")
    install(FILES "${packaged}/brindlemoor-${size}.png" RENAME brindlemoor.png
        DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps")
endforeach()
file(MAKE_DIRECTORY "${packaged}")
add_custom_command(OUTPUT ${iconFiles}
    COMMAND "${CMAKE_COMMAND}" -E env QT_QPA_PLATFORM=offscreen
        $<TARGET_FILE:brindlemoor_icon_writer> "${packaged}/brindlemoor-" ${iconSizes}
    DEPENDS brindlemoor_icon_writer VERBATIM)

# Debian keeps manual pages and changelogs compressed, without the time of day in them.
find_program(GZIP_PROGRAM gzip REQUIRED)
add_custom_command(OUTPUT "${packaged}/brindlemoor.1.gz" "${packaged}/changelog.gz"
    COMMAND "${GZIP_PROGRAM}" -9nc "${linuxFiles}/brindlemoor.1" > "${packaged}/brindlemoor.1.gz"
    COMMAND "${GZIP_PROGRAM}" -9nc "${linuxFiles}/changelog" > "${packaged}/changelog.gz"
    DEPENDS "${linuxFiles}/brindlemoor.1" "${linuxFiles}/changelog" VERBATIM)
add_custom_target(brindlemoor_package_files ALL
    DEPENDS ${iconFiles} "${packaged}/brindlemoor.1.gz" "${packaged}/changelog.gz")

install(TARGETS brindlemoor RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
install(FILES "${linuxFiles}/brindlemoor.desktop"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/applications")
install(FILES "${linuxFiles}/example.brindlemoor.brindlemoor.metainfo.xml"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo")
install(FILES "${linuxFiles}/brindlemoor.xml" DESTINATION "${CMAKE_INSTALL_DATADIR}/mime/packages")
install(FILES "${packaged}/brindlemoor.1.gz" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
install(FILES "${packaged}/changelog.gz" "${linuxFiles}/copyright"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/brindlemoor")
install(DIRECTORY "${CMAKE_SOURCE_DIR}/help" "${CMAKE_SOURCE_DIR}/samples"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/brindlemoor" PATTERN "*.py" EXCLUDE)

set(CPACK_PACKAGE_NAME brindlemoor)
set(CPACK_PACKAGE_CONTACT "The Brindlemoor team <hello@brindlemoor.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "manage disk and tape images of the CoCo and the Dragon")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Brindlemoor shows, checks and changes disk images of the Tandy Color
Computer and the Dragon 32/64: Disk BASIC, Dragon DOS, OS-9 and FLEX, in
one window, with a map of the disk's sectors and a viewer. It copies files
both ways and converts BASIC programs, cassette tapes, sound and cartridges.")
set(CPACK_PACKAGE_HOMEPAGE_URL "https://brindlemoor.example/")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_GENERATOR DEB)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_DEBIAN_PACKAGE_SECTION otherosfs)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-dejavu-core")
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
include(CPack)
