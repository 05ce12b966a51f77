# How everything here is compiled: language, warnings, sanitizers, where products land.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 99)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_C_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "" FORCE)
endif()

set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/archive")

find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_C_COMPILER_LAUNCHER "${CCACHE}")
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CCACHE}")
endif()

add_library(build_settings INTERFACE)
target_include_directories(build_settings INTERFACE "${CMAKE_SOURCE_DIR}")
target_compile_options(build_settings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
if(MFILTER_SANITIZE)
  target_compile_options(build_settings INTERFACE -fsanitize=${MFILTER_SANITIZE} -fno-omit-frame-pointer)
  target_link_options(build_settings INTERFACE -fsanitize=${MFILTER_SANITIZE})
  if(MFILTER_SANITIZE MATCHES "undefined")
    target_compile_options(build_settings INTERFACE -fno-sanitize-recover=undefined)
  endif()
  if(MFILTER_SANITIZE MATCHES "thread" AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(build_settings INTERFACE -Wno-error=tsan)
  endif()
endif()
if(MFILTER_FUZZ)
  target_compile_options(build_settings INTERFACE -fsanitize=fuzzer-no-link)
endif()

# mfilter_storey(NAME [FOLDERS ...] [USES ...]): the static library made of every source in this folder and in the named
# folders below it, and the storeys it stands on.
function(mfilter_storey name)
  cmake_parse_arguments(ARG "" "" "FOLDERS;USES" ${ARGN})
  set(patterns "*.cpp")
  foreach(folder IN LISTS ARG_FOLDERS)
    list(APPEND patterns "${folder}/*.cpp")
  endforeach()
  file(GLOB sources CONFIGURE_DEPENDS ${patterns})
  add_library(${name} STATIC ${sources})
  target_link_libraries(${name} PUBLIC build_settings ${ARG_USES})
endfunction()

# mfilter_tests(NAME [USES ...]): one test program of every source in this folder, its tests known to CTest one by one.
# Tests run without a display and with the fonts of tests/fonts.conf alone.
function(mfilter_tests name)
  cmake_parse_arguments(ARG "" "" "USES" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS "*.cpp")
  add_executable(${name} ${sources})
  target_link_libraries(${name} PRIVATE build_settings ${ARG_USES} GTest::gmock GTest::gtest GTest::gtest_main)
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST
    PROPERTIES TIMEOUT 120 ENVIRONMENT_MODIFICATION "${MFILTER_TEST_ENVIRONMENT}")
endfunction()
