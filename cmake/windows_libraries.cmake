# The libraries for Windows: the bundle, and the host's libraries that it uses.
#
# The host's libraries have the names in docs/host_contract.md and export the functions that it lists under each. They
# contain no code, but forward to reference_host.dll.
include(cmake/string_table.cmake)
set(contract ${PROJECT_SOURCE_DIR}/docs/host_contract.md)
set(definitions ${PROJECT_BINARY_DIR}/definitions)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${contract})

# Generates a definition file for each library in docs/host_contract.md; host_libraries gets their names.
file(STRINGS ${contract} lines REGEX "^(## |\\| `)" ENCODING UTF-8)
set(host_libraries "")
foreach(line IN LISTS lines)
    if(line MATCHES "^## ([a-z0-9_]+)$")
        set(library ${CMAKE_MATCH_1})
        list(APPEND host_libraries ${library})
        set(exports_${library} "LIBRARY ${library}.dll\nEXPORTS\n")
    elseif(line MATCHES "^\\| `([a-z0-9_]+)`")
        string(APPEND exports_${library} "    ${CMAKE_MATCH_1} = reference_host.${CMAKE_MATCH_1}\n")
    endif()
endforeach()

foreach(library IN LISTS host_libraries)
    file(CONFIGURE OUTPUT ${definitions}/${library}.def CONTENT "${exports_${library}}" @ONLY)
    add_library(${library} SHARED ${definitions}/${library}.def)
    set_target_properties(${library} PROPERTIES PREFIX "" LINKER_LANGUAGE CXX)
    target_link_options(${library} PRIVATE -nostdlib -Wl,--entry=0)
endforeach()
set(host_texts ${PROJECT_BINARY_DIR}/generated/host_texts.rc)
add_string_table(host ${host_texts})
target_sources(vsk_basic PRIVATE ${host_texts})

set(bundle_objects $<TARGET_OBJECTS:project_resave_bdl>)
set(platform_objects $<TARGET_OBJECTS:platform>)
set(system_libraries Threads::Threads gdi32)

# Adds the version and a description, as the properties of the file show them, to a program or library.
function(add_version_resource target description)
    string(REPLACE . , numbers "${PROJECT_VERSION}.0.0.0")
    string(REGEX MATCH "^[0-9]+,[0-9]+,[0-9]+,[0-9]+" numbers ${numbers})
    file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/generated/${target}_version.rc @ONLY CONTENT
"1 VERSIONINFO
FILEVERSION @numbers@
PRODUCTVERSION @numbers@
BEGIN
    BLOCK \"StringFileInfo\"
    BEGIN
        BLOCK \"040904B0\"
        BEGIN
            VALUE \"FileDescription\", \"@description@\"
            VALUE \"FileVersion\", \"@PROJECT_VERSION@\"
            VALUE \"InternalName\", \"@target@\"
            VALUE \"ProductName\", \"Resave Project\"
            VALUE \"ProductVersion\", \"@PROJECT_VERSION@\"
        END
    END
    BLOCK \"VarFileInfo\"
    BEGIN
        VALUE \"Translation\", 0x409, 1200
    END
END
")
    target_sources(${target} PRIVATE ${PROJECT_BINARY_DIR}/generated/${target}_version.rc)
endfunction()

file(CONFIGURE OUTPUT ${definitions}/bundle.def
    CONTENT "EXPORTS\n    vs_bundle_interface_to_custom_pointer\n" @ONLY)
add_library(vsk_project_resave_bdl SHARED ${bundle_objects} ${platform_objects} ${definitions}/bundle.def)
set_target_properties(vsk_project_resave_bdl PROPERTIES PREFIX "" LINKER_LANGUAGE CXX)
target_link_libraries(vsk_project_resave_bdl PRIVATE ${host_libraries} ${system_libraries})
add_version_resource(vsk_project_resave_bdl "Resave Project")

# The host contains the platform layer and the objects of the bundle that it needs. It exports its own symbols, but
# not those of libraries.
add_library(bundle_support STATIC ${bundle_objects})
add_library(reference_host_library SHARED
    $<TARGET_OBJECTS:reference_host> ${platform_objects})
set_target_properties(reference_host_library PROPERTIES PREFIX "" OUTPUT_NAME reference_host LINKER_LANGUAGE CXX)
target_link_options(reference_host_library PRIVATE -Wl,--export-all-symbols -Wl,--exclude-libs,ALL)
target_link_libraries(reference_host_library PRIVATE bundle_support pugixml::pugixml ${system_libraries})

# Links the bundle's code into a program, and the host as libraries with the names in docs/host_contract.md. The platform layer
# is that of the host, so that a replacement of the system object is visible on both sides; resources are those of the
# program.
function(link_bundle_and_host program)
    target_sources(${program} PRIVATE
        ${bundle_objects} $<FILTER:${platform_objects},INCLUDE,/windows/resources>)
    target_include_directories(${program} PRIVATE ${PROJECT_SOURCE_DIR} ${bundle_root})
    target_link_libraries(${program} PRIVATE
        ${host_libraries} reference_host_library pugixml::pugixml ${system_libraries})
endfunction()
