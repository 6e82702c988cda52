# What `make install` and the packages put where, as the component `application`. The programs find the bundle from their
# own place, so an installed tree may be moved; see installed_library in platform/library.h.
function(install_documents folder)
    install(FILES README.md CHANGELOG.md DESTINATION ${folder} COMPONENT application)
    install(DIRECTORY docs DESTINATION ${folder} COMPONENT application)
    install(DIRECTORY samples/area samples/bundle DESTINATION ${folder}/samples COMPONENT application)
endfunction()

# Where the terms of each library are that is linked into the programs: a name, and the file.
set(licences
    CLI11 /usr/share/doc/libcli11-dev/copyright
    nlohmann_json /usr/share/doc/nlohmann-json3-dev/copyright)

if(WIN32)
    list(APPEND licences
        pugixml ${VS_PUGIXML_SOURCE}/LICENSE.md
        gcc_runtime /usr/share/doc/gcc-mingw-w64-base/copyright
        mingw_w64_runtime /usr/share/doc/mingw-w64-common/copyright)
    # Windows looks for the libraries of a program next to it.
    install(TARGETS vestra-resave vsk_project_resave_bdl reference_host_library ${host_libraries}
        RUNTIME DESTINATION . COMPONENT application)
    install_documents(.)
    while(licences)
        list(POP_FRONT licences name file)
        install(FILES ${file} DESTINATION licences RENAME ${name}.txt COMPONENT application)
    endwhile()
    return()
endif()

list(APPEND licences stb /usr/share/doc/libstb-dev/copyright)
set(programs vestra-resave)
set(documents ${CMAKE_INSTALL_DATADIR}/doc/vestra-resave)
install(TARGETS vsk_project_resave_bdl DESTINATION ${installed_bundles} COMPONENT application)
install_documents(${documents})
install(DIRECTORY samples/many DESTINATION ${documents}/samples USE_SOURCE_PERMISSIONS COMPONENT application)

file(READ packaging/copyright copyright)
while(licences)
    list(POP_FRONT licences name file)
    file(READ ${file} terms)
    string(APPEND copyright "\n---- ${name} ----\n\n${terms}")
endwhile()
file(WRITE ${PROJECT_BINARY_DIR}/copyright "${copyright}")
install(FILES ${PROJECT_BINARY_DIR}/copyright DESTINATION ${documents} COMPONENT application)

if(WITH_WINDOW)
    list(APPEND programs vestra-resave-window)
    set(share ${CMAKE_INSTALL_DATADIR})
    set(icons ${share}/icons/hicolor/scalable/apps)
    install(FILES packaging/vestra-resave-window.desktop DESTINATION ${share}/applications COMPONENT application)
    install(FILES packaging/vestra-resave-window.svg DESTINATION ${icons} COMPONENT application)
    install(FILES packaging/vestra-resave.xml DESTINATION ${share}/mime/packages COMPONENT application)
endif()
install(TARGETS ${programs} RUNTIME COMPONENT application)

# The programs write these themselves.
foreach(program IN LISTS programs)
    set(pages ${PROJECT_BINARY_DIR}/pages/${program})
    file(MAKE_DIRECTORY ${pages})
    add_custom_command(OUTPUT ${pages}/${program}.1.gz ${pages}/${program}
        COMMAND ${program} --man-page | gzip -9n > ${pages}/${program}.1.gz
        COMMAND ${program} --bash-completion > ${pages}/${program}
        DEPENDS ${program} COMMENT "Manual page and completion of ${program}" VERBATIM)
    list(APPEND all_pages ${pages}/${program}.1.gz)
    install(FILES ${pages}/${program}.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT application)
    install(FILES ${pages}/${program} DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
        COMPONENT application)
endforeach()
add_custom_target(pages ALL DEPENDS ${all_pages})
