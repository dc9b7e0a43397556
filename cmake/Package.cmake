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
set(CPACK_GENERATOR DEB)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION games)
# The libraries the programs link, with the versions they need, as dpkg-shlibdeps finds them.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
include(CPack)
