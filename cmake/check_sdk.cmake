# Run by CTest: installs the kit into a folder of the build and compiles each of its headers alone. tools/package_test
# builds the sample bundle with the kit of the packages.
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
    run(${COMPILER} -std=c++20 -fsyntax-only -Wall -Wextra -Werror -I${prefix}/include/project_resave -include ${header}
        -x c++ /dev/null)
endforeach()
