# The kit that other bundles are built with, as the target project_resave::sdk: the published headers and, for Windows,
# the import libraries of the host.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(platform_headers export.h wide_string.h)
file(GLOB sdk_headers CONFIGURE_DEPENDS ${bundle_root}/host/*.h ${bundle_root}/host/interfaces/*.h)
foreach(header
        framework/bundle_entry.h framework/factories.h framework/border/caught.h framework/border/host_owned.h
        framework/border/interface.h framework/border/polymorphic.h framework/border/ref.h framework/border/referent.h
        framework/border/string_adapter.h framework/border/visitors.h
        services/resave_entity_service.h services/resave_service.h)
    list(APPEND sdk_headers ${bundle_root}/${header})
endforeach()

add_library(project_resave_sdk INTERFACE)
add_library(project_resave::sdk ALIAS project_resave_sdk)
set_target_properties(project_resave_sdk PROPERTIES EXPORT_NAME sdk)
list(TRANSFORM platform_headers PREPEND ${PROJECT_SOURCE_DIR}/platform/)
target_sources(project_resave_sdk INTERFACE
    FILE_SET HEADERS BASE_DIRS ${bundle_root} FILES ${sdk_headers}
    FILE_SET platform_headers TYPE HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR} FILES ${platform_headers})
target_include_directories(project_resave_sdk INTERFACE $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/project_resave>)
target_compile_features(project_resave_sdk INTERFACE cxx_std_20)
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/project_resave)

# A bundle exports one function. Everything else is hidden, so that it shares no table with another library and is
# removed from memory when the host unloads it.
set(exports $<BUILD_INTERFACE:${CMAKE_CURRENT_LIST_DIR}/bundle_exports.map>)
string(APPEND exports $<INSTALL_INTERFACE:$<INSTALL_PREFIX>/${package_folder}/bundle_exports.map>)
target_compile_options(project_resave_sdk INTERFACE $<$<CXX_COMPILER_ID:GNU,Clang>:-fvisibility=hidden>)
target_link_options(project_resave_sdk INTERFACE $<$<PLATFORM_ID:Linux>:LINKER:--version-script=${exports}>)

if(WIN32)
    # On Linux a bundle finds the host's functions in the program that loads it; on Windows it is linked with the host's
    # libraries. It contains the compiler's own libraries, because the host does not provide them.
    foreach(library IN LISTS host_libraries)
        target_link_libraries(project_resave_sdk INTERFACE $<BUILD_INTERFACE:${library}>
            $<INSTALL_INTERFACE:$<INSTALL_PREFIX>/${CMAKE_INSTALL_LIBDIR}/${CMAKE_IMPORT_LIBRARY_PREFIX}${library}${CMAKE_IMPORT_LIBRARY_SUFFIX}>)
        install(FILES $<TARGET_LINKER_FILE:${library}> DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT sdk)
    endforeach()
    target_link_options(project_resave_sdk INTERFACE $<$<CXX_COMPILER_ID:GNU,Clang>:-static>)
endif()

install(TARGETS project_resave_sdk EXPORT project_resave_targets COMPONENT sdk
    FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/project_resave
    FILE_SET platform_headers DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/project_resave)
install(EXPORT project_resave_targets NAMESPACE project_resave:: FILE project_resaveConfig.cmake
    DESTINATION ${package_folder} COMPONENT sdk)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/project_resaveConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
# find_package does not accept the kit of another operating system, and names this version as the reason.
file(APPEND ${PROJECT_BINARY_DIR}/project_resaveConfigVersion.cmake "
if(NOT CMAKE_SYSTEM_NAME STREQUAL \"${CMAKE_SYSTEM_NAME}\")
    set(PACKAGE_VERSION \"\${PACKAGE_VERSION}, the kit for ${CMAKE_SYSTEM_NAME}\")
    set(PACKAGE_VERSION_UNSUITABLE TRUE)
endif()
")
install(FILES ${PROJECT_BINARY_DIR}/project_resaveConfigVersion.cmake ${CMAKE_CURRENT_LIST_DIR}/bundle_exports.map
    DESTINATION ${package_folder} COMPONENT sdk)

add_subdirectory(samples/bundle)
set_target_properties(sample_bundle PROPERTIES LIBRARY_OUTPUT_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})

if(NOT WIN32)
    enable_testing()
    add_test(NAME published_headers COMMAND ${CMAKE_COMMAND} -D BUILD=${PROJECT_BINARY_DIR}
        -D SOURCE=${PROJECT_SOURCE_DIR} -D COMPILER=${CMAKE_CXX_COMPILER} -P ${PROJECT_SOURCE_DIR}/cmake/check_sdk.cmake)
endif()
