# The packages that the host program and the tests use.
if(NOT WIN32)
  find_package(nlohmann_json 3.11 REQUIRED)
  find_package(CLI11 2.1 REQUIRED)
  find_package(GTest REQUIRED)
  return()
endif()

# The machine's packages are for the machine, but these two consist of headers alone. Links to their folders keep the
# cross compiler from seeing what else stands beside them.
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/headers)
foreach(package nlohmann CLI)
  find_path(${package}_PARENT ${package} PATHS /usr/include /usr/local/include
    NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  file(CREATE_LINK ${${package}_PARENT}/${package} ${CMAKE_BINARY_DIR}/headers/${package} SYMBOLIC)
endforeach()
foreach(target nlohmann_json::nlohmann_json CLI11::CLI11)
  add_library(${target} INTERFACE IMPORTED GLOBAL)
  target_include_directories(${target} SYSTEM INTERFACE ${CMAKE_BINARY_DIR}/headers)
endforeach()

# The test framework comes as source.
set(INSTALL_GTEST OFF)
add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
