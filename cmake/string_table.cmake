# Writes the rows of one list of texts as a string table for the resource compiler: `list` is "bundle" or "host". The
# generator runs on the build machine.
find_program(VS_BUILD_CXX NAMES g++ c++ REQUIRED CMAKE_FIND_ROOT_PATH_BOTH)
set(string_table_writer ${PROJECT_BINARY_DIR}/string_table_writer)

function(add_string_table list output)
    set(bundle ${PROJECT_SOURCE_DIR}/plugin/app/project_resave_bdl)
    set(source ${PROJECT_SOURCE_DIR}/tools/string_table_writer.cpp)
    file(GLOB rows CONFIGURE_DEPENDS ${bundle}/framework/resources/texts/*.inc)
    list(APPEND rows ${PROJECT_SOURCE_DIR}/reference_host/shell/host_texts.inc)
    add_custom_command(OUTPUT ${output}
        COMMAND ${VS_BUILD_CXX} -std=c++20 -I${bundle} -I${PROJECT_SOURCE_DIR} ${source}
            -o ${string_table_writer}_${list}
        COMMAND ${string_table_writer}_${list} ${list} ${output}
        DEPENDS ${source} ${rows}
        COMMENT "String table of the ${list}" VERBATIM)
endfunction()
