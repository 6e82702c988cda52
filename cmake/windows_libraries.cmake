# The libraries of Windows: the bundle, and its host as it finds it there.
#
# The host's libraries bear the names of docs/host_contract.md and offer what it lists under each. They hold no code:
# all of it stands in reference_host.dll, to which they forward.
include(cmake/string_table.cmake)
set(contract ${PROJECT_SOURCE_DIR}/docs/host_contract.md)
set(definitions ${PROJECT_BINARY_DIR}/definitions)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${contract})

# One definition file for each library of the contract; their names go into host_libraries.
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

file(CONFIGURE OUTPUT ${definitions}/bundle.def
    CONTENT "EXPORTS\n    vs_bundle_interface_to_custom_pointer\n" @ONLY)
add_library(vsk_project_resave_bdl SHARED ${bundle_objects} ${platform_objects} ${definitions}/bundle.def)
set_target_properties(vsk_project_resave_bdl PROPERTIES PREFIX "" LINKER_LANGUAGE CXX)
target_link_libraries(vsk_project_resave_bdl PRIVATE ${host_libraries} ${system_libraries})

# The host brings the platform layer along, and what else it needs of the bundle's objects. It exports all that is its
# own, but nothing that it takes from libraries.
add_library(bundle_support STATIC ${bundle_objects})
add_library(reference_host_library SHARED
    $<TARGET_OBJECTS:reference_host> ${platform_objects})
set_target_properties(reference_host_library PROPERTIES PREFIX "" OUTPUT_NAME reference_host LINKER_LANGUAGE CXX)
target_link_options(reference_host_library PRIVATE -Wl,--export-all-symbols -Wl,--exclude-libs,ALL)
target_link_libraries(reference_host_library PRIVATE bundle_support pugixml::pugixml ${system_libraries})

# Gives a program the bundle's code and, as libraries, the host: its functions from the libraries of their names.
# What stands for the operating system is the host's, so that a replacement of it is seen on both sides; resources
# are the program's own.
function(link_bundle_and_host program)
    target_sources(${program} PRIVATE
        ${bundle_objects} $<FILTER:${platform_objects},INCLUDE,/windows/resources>)
    target_include_directories(${program} PRIVATE ${PROJECT_SOURCE_DIR} ${bundle_root})
    target_link_libraries(${program} PRIVATE
        ${host_libraries} reference_host_library pugixml::pugixml ${system_libraries})
endfunction()
