# Generates a source from text files: add_embedded_texts(OUTPUT NAMESPACE HEADER NAME=FILE...) defines each NAME,
# which HEADER declares as a string_view, as the content of FILE.
if(CMAKE_SCRIPT_MODE_FILE)
    set(source "#include \"${HEADER}\"\n\nnamespace ${NAMESPACE} {\n\n")
    foreach(text IN LISTS TEXTS)
        string(REGEX MATCH "^([a-z_]+)=(.*)$" found "${text}")
        set(name "${CMAKE_MATCH_1}")
        file(READ "${CMAKE_MATCH_2}" content)
        string(APPEND source "const std::string_view ${name} = R\"~~~~(${content})~~~~\";\n\n")
    endforeach()
    file(WRITE "${OUTPUT}" "${source}} // namespace ${NAMESPACE}\n")
    return()
endif()

set(embedded_texts_script ${CMAKE_CURRENT_LIST_FILE})
function(add_embedded_texts output namespace header)
    foreach(text IN LISTS ARGN)
        string(REGEX REPLACE "^[a-z_]+=" "" file "${text}")
        list(APPEND files ${file})
    endforeach()
    add_custom_command(OUTPUT ${output}
        COMMAND ${CMAKE_COMMAND} -D "OUTPUT=${output}" -D "NAMESPACE=${namespace}" -D "HEADER=${header}"
            -D "TEXTS=${ARGN}" -P ${embedded_texts_script}
        DEPENDS ${files} ${embedded_texts_script}
        COMMENT "Texts of ${header}" VERBATIM)
endfunction()
