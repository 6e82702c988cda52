# Read by CPack for each format in turn.
if(CPACK_GENERATOR STREQUAL DEB)
    list(APPEND CPACK_COMPONENTS_ALL debian)
else()
    set(CPACK_COMPONENT_INCLUDE_TOPLEVEL_DIRECTORY ON)
endif()
