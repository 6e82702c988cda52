# The packages that `make package` creates from the component `application`: for Debian, and with the component `sdk` as a
# tarball or as a zip for Windows. Programs are stripped.
set(CPACK_PACKAGE_NAME vestra-resave)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "Resave Project")
set(PACKAGE_CONTACT "Resave Project maintainers <maintainers@resave-project.example>" CACHE STRING
    "Whom packages name as their maintainer")
set(CPACK_PACKAGE_CONTACT ${PACKAGE_CONTACT})
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/dist)
set(CPACK_COMPONENTS_ALL application)
set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_ARCHIVE_COMPONENT_INSTALL ON) # otherwise the list of components is ignored
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_LIST_DIR}/package_format.cmake)

if(WIN32)
    set(CPACK_GENERATOR ZIP)
    set(CPACK_PACKAGE_FILE_NAME vestra-resave-${PROJECT_VERSION}-windows-x64)
    set(CPACK_ARCHIVE_APPLICATION_FILE_NAME ${CPACK_PACKAGE_FILE_NAME})
    include(CPack)
    return()
endif()

set(CPACK_GENERATOR DEB TGZ)
string(TOLOWER ${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR} system)
set(CPACK_PACKAGE_FILE_NAME vestra-resave-${PROJECT_VERSION}-${system})
set(CPACK_ARCHIVE_APPLICATION_FILE_NAME ${CPACK_PACKAGE_FILE_NAME})

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_APPLICATION_PACKAGE_NAME vestra-resave)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS bash-completion)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "copies mapping projects with all their files to a new place")
set(CPACK_PACKAGE_DESCRIPTION
"A VESTRA project file refers by path to data files all over the disks, so it
cannot simply be moved. These programs copy a project with all its files
under one of five folder structures and rewrite the references, so that the
copy is self-contained. The source is only read.
.
The package has the command vestra-resave, the window vestra-resave-window
and the bundle of the tool.")

# The changelog of the Debian package. The changes of the program are in CHANGELOG.md, whose first heading has the
# date.
file(STRINGS CHANGELOG.md heading LIMIT_COUNT 1 REGEX "^## ")
if(NOT heading MATCHES "^## ${PROJECT_VERSION} \\(([0-9-]+)\\)$")
    message(FATAL_ERROR "CHANGELOG.md begins with \"${heading}\", and the version is ${PROJECT_VERSION}")
endif()
execute_process(COMMAND date -u -R -d ${CMAKE_MATCH_1} OUTPUT_VARIABLE date OUTPUT_STRIP_TRAILING_WHITESPACE
    COMMAND_ERROR_IS_FATAL ANY)
set(pages ${PROJECT_BINARY_DIR}/pages)
file(CONFIGURE OUTPUT ${pages}/changelog.Debian @ONLY CONTENT
"vestra-resave (${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}) stable; urgency=medium

  * Release ${PROJECT_VERSION}; changelog.gz says what is new.

 -- ${CPACK_PACKAGE_CONTACT}  ${date}
")
configure_file(CHANGELOG.md ${pages}/changelog COPYONLY)
execute_process(COMMAND gzip -9nfk changelog changelog.Debian WORKING_DIRECTORY ${pages} COMMAND_ERROR_IS_FATAL ANY)
install(FILES ${pages}/changelog.gz ${pages}/changelog.Debian.gz DESTINATION ${documents} COMPONENT debian
    EXCLUDE_FROM_ALL)
include(CPack)
