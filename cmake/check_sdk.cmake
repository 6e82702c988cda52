# Run by CTest: installs the kit into a folder of the build, compiles each of its headers alone, and checks that the headers
# that they name are in the kit. tools/package_test builds the sample bundle with the kit of the packages.
#
#     cmake -D BUILD=... -D SOURCE=... -D COMPILER=... -P check_sdk.cmake
set(prefix ${BUILD}/sdk_check/installed)
file(REMOVE_RECURSE ${BUILD}/sdk_check)

function(run)
    execute_process(COMMAND ${ARGV} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${prefix} --component sdk)

file(GLOB_RECURSE headers ${prefix}/include/*.h)
if(NOT headers)
    message(FATAL_ERROR "No header was installed")
endif()
foreach(header IN LISTS headers)
    run(${COMPILER} -std=c++20 -fsyntax-only -Wall -Wextra -Wpedantic -Werror -I${prefix}/include/project_resave
        -include ${header} -x c++ /dev/null)
    file(READ ${header} text)
    string(REGEX MATCHALL "(framework|host|platform|services)/[a-z0-9_/]+\\.h" names "${text}")
    foreach(name IN LISTS names)
        if(NOT EXISTS ${prefix}/include/project_resave/${name})
            message(FATAL_ERROR "${header} names ${name}, which is not in the kit")
        endif()
    endforeach()
endforeach()
