# The resources of the bundle's library: its texts, its pictures by the numbers in their names, and a manifest.
include(${PROJECT_SOURCE_DIR}/cmake/string_table.cmake)
add_string_table(bundle ${generated}/bundle_texts.rc)

set(content "#include \"bundle_texts.rc\"\n\n")
foreach(image IN LISTS images)
    get_filename_component(id ${image} NAME_WE)
    string(APPEND content "${id} BITMAP \"${image}\"\n")
endforeach()
string(APPEND content "\n2 24 \"${CMAKE_CURRENT_LIST_DIR}/bundle.manifest\"\n") # type 24: manifest; id 2: of a library
file(CONFIGURE OUTPUT ${generated}/bundle.rc CONTENT "${content}" @ONLY)
set_source_files_properties(${generated}/bundle.rc PROPERTIES
    OBJECT_DEPENDS "${generated}/bundle_texts.rc;${images};${CMAKE_CURRENT_LIST_DIR}/bundle.manifest"
    INCLUDE_DIRECTORIES ${generated})
target_sources(project_resave_bdl PRIVATE ${generated}/bundle.rc)
