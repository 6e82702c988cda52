# Read by CPack once for each format.
if(CPACK_GENERATOR STREQUAL DEB)
    list(APPEND CPACK_COMPONENTS_ALL debian)
else()
    set(CPACK_COMPONENT_INCLUDE_TOPLEVEL_DIRECTORY ON)
endif()
