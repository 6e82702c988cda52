# Dependencies for Windows that the Linux build finds as installed packages: built from sources, or headers that work
# on any operating system. tools/install_windows_packages provides them. GDAL is not among them.
set(VS_PUGIXML_SOURCE "${PROJECT_BINARY_DIR}/packages/pugixml" CACHE PATH "Source of pugixml")
set(VS_GOOGLETEST_SOURCE "/usr/src/googletest" CACHE PATH "Source of GoogleTest")

function(add_package name)
    cmake_parse_arguments(package "" "" "SOURCES;INCLUDES" ${ARGN})
    add_library(${name} STATIC ${package_SOURCES})
    target_include_directories(${name} SYSTEM PUBLIC ${package_INCLUDES})
    target_compile_options(${name} PRIVATE -w)
endfunction()

add_package(pugixml SOURCES ${VS_PUGIXML_SOURCE}/src/pugixml.cpp INCLUDES ${VS_PUGIXML_SOURCE}/src)
add_library(pugixml::pugixml ALIAS pugixml)

add_package(gtest_main
    SOURCES ${VS_GOOGLETEST_SOURCE}/googletest/src/gtest-all.cc ${VS_GOOGLETEST_SOURCE}/googletest/src/gtest_main.cc
    INCLUDES ${VS_GOOGLETEST_SOURCE}/googletest/include)
target_include_directories(gtest_main PRIVATE ${VS_GOOGLETEST_SOURCE}/googletest)
add_library(GTest::gtest_main ALIAS gtest_main)

# The folder with the headers of the build machine must not be visible, so these two get a separate folder.
set(header_packages ${PROJECT_BINARY_DIR}/packages/include)
file(MAKE_DIRECTORY ${header_packages})
foreach(package CLI nlohmann)
    file(CREATE_LINK /usr/include/${package} ${header_packages}/${package} SYMBOLIC)
endforeach()
foreach(package CLI11::CLI11 nlohmann_json::nlohmann_json)
    add_library(${package} INTERFACE IMPORTED)
    set_target_properties(${package} PROPERTIES INTERFACE_INCLUDE_DIRECTORIES ${header_packages})
endforeach()
