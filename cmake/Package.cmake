# The Debian package: `cpack -G DEB` in the build folder writes orrindel_<version>_<arch>.deb.
set(CPACK_PACKAGE_NAME orrindel)
set(CPACK_PACKAGE_VENDOR "Orrindel maintainers")
set(CPACK_PACKAGE_CONTACT "Orrindel maintainers <maintainers@orrindel.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "editor for the faction data of a space game")
set(CPACK_PACKAGE_DESCRIPTION [[
Orrindel edits the faction data of a space game whose factions live in
plain INI files: projects, the original factions imported from a shipped
library, each faction's reputation behaviour, properties and place in the
initial world. A project compiles into emphaty.ini, faction_prop.ini and
initialworld.ini. The package holds the editor and orrindel-cli, which
does the same work from the command line.]])
# Windows: a zip of the portable copy (`cpack -G ZIP`), with the readme and the licence.
if(WIN32)
    set(CPACK_GENERATOR ZIP)
    set(CPACK_PACKAGE_FILE_NAME ${CPACK_PACKAGE_NAME}-${PROJECT_VERSION}-windows-x64)
    set(CPACK_STRIP_FILES ON)
    install(FILES README.md LICENSE DESTINATION .)
    include(CPack)
    return()
endif()
set(CPACK_GENERATOR DEB)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION editors)
# The libraries the programs link, with the versions they need, as dpkg-shlibdeps finds them.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)

# What Debian asks of every package's documentation folder: the copyright in the machine-readable
# format and the changelog, built from CHANGELOG.md and compressed reproducibly. The version has
# no Debian revision, so the package is native and its changelog is changelog.gz.
set(ORRINDEL_DOC_DIR ${CMAKE_INSTALL_DATADIR}/doc/${CPACK_PACKAGE_NAME})
set(ORRINDEL_CHANGELOG ${CMAKE_BINARY_DIR}/changelog.gz)
add_custom_command(OUTPUT ${ORRINDEL_CHANGELOG}
    COMMAND ${CMAKE_COMMAND} -DINPUT=${CMAKE_SOURCE_DIR}/CHANGELOG.md
        -DOUTPUT=${CMAKE_BINARY_DIR}/changelog -DPACKAGE=${CPACK_PACKAGE_NAME}
        -DVERSION=${PROJECT_VERSION} "-DMAINTAINER=${CPACK_PACKAGE_CONTACT}"
        -P ${CMAKE_SOURCE_DIR}/cmake/DebianChangelog.cmake
    COMMAND gzip -9nf ${CMAKE_BINARY_DIR}/changelog
    DEPENDS ${CMAKE_SOURCE_DIR}/CHANGELOG.md ${CMAKE_SOURCE_DIR}/cmake/DebianChangelog.cmake
    COMMENT "Writing the package's changelog from CHANGELOG.md"
    VERBATIM)
add_custom_target(orrindel_changelog ALL DEPENDS ${ORRINDEL_CHANGELOG})
install(FILES ${ORRINDEL_CHANGELOG} cmake/debian/copyright DESTINATION ${ORRINDEL_DOC_DIR})
include(CPack)
