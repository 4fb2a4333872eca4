# What an installed program consists of, and its Debian package.
# `cmake --workflow --preset package` builds the program and makes the package in one go.
include(GNUInstallDirs)

set(application_id org.zelvo.StandUp)
set(doc_dir ${CMAKE_INSTALL_DATADIR}/doc/zelvo-standup)

# Debian wants its documents compressed, and without a time stamp so that a second build gives the same bytes.
find_program(GZIP gzip REQUIRED)
function(compress source result)
    add_custom_command(OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/${result}
        COMMAND ${GZIP} -9nc ${source} > ${CMAKE_CURRENT_BINARY_DIR}/${result}
        DEPENDS ${source} VERBATIM)
endfunction()

configure_file(packaging/zelvo-standup.1.in zelvo-standup.1 @ONLY)
compress(${CMAKE_CURRENT_BINARY_DIR}/zelvo-standup.1 zelvo-standup.1.gz)
compress(${PROJECT_SOURCE_DIR}/CHANGELOG.md changelog.gz)
add_custom_target(zelvo_documents ALL
    DEPENDS ${CMAKE_CURRENT_BINARY_DIR}/zelvo-standup.1.gz ${CMAKE_CURRENT_BINARY_DIR}/changelog.gz)

if(TARGET zelvo-standup)
    install(TARGETS zelvo-standup)
endif()
install(FILES packaging/70-zelvo-standup.rules DESTINATION lib/udev/rules.d)
install(FILES packaging/${application_id}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
# The bus starts a program by its whole path, and a package's prefix is known when it is made.
install(CODE "set(bin_dir \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
    configure_file(${PROJECT_SOURCE_DIR}/packaging/${application_id}.service.in
        ${CMAKE_CURRENT_BINARY_DIR}/${application_id}.service @ONLY)")
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${application_id}.service
    DESTINATION ${CMAKE_INSTALL_DATADIR}/dbus-1/services)
install(FILES packaging/completions/zelvo-standup.bash RENAME zelvo-standup
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES packaging/completions/_zelvo-standup DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
install(FILES packaging/completions/zelvo-standup.fish
    DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
install(FILES packaging/${application_id}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(DIRECTORY packaging/icons/hicolor DESTINATION ${CMAKE_INSTALL_DATADIR}/icons)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/zelvo-standup.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES packaging/copyright ${CMAKE_CURRENT_BINARY_DIR}/changelog.gz DESTINATION ${doc_dir})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zelvo-standup)
set(CPACK_PACKAGE_CONTACT "The Zelvo StandUp developers <standup@zelvo.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "sit/stand desk control with reminders for the tray")
set(CPACK_PACKAGE_DESCRIPTION
    "Zelvo StandUp lives in the tray and moves an electrically height-adjustable
desk through its USB adapter. It reminds its user to alternate between
sitting and standing, and keeps a record of both that can be looked at by
day, week, month and year and exported.
.
A simulated desk is built in for those who have no adapter at hand.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE https://standup.zelvo.example/)
# Shared libraries are found in the program itself; typeface, platform and texts are loaded at run time.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS fonts-open-sans)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-translations-l10n, qt6-wayland")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS gnome-shell-extension-appindicator)
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/postinst)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
