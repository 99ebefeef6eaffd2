# What every target of the project shares: the language, the warnings, the sanitizers, ccache,
# and the functions that make the library, the tests and the benchmarks of one floor.

if(PROJECT_IS_TOP_LEVEL)
  set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
  if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
  endif()
endif()

find_program(GRIDWRIGHT_CCACHE ccache)
if(GRIDWRIGHT_CCACHE AND PROJECT_IS_TOP_LEVEL)
  # Precompiled headers defeat ccache unless it is told that their time stamps and macros do not matter.
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
      CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
      # Two checkouts of the same sources share what has been compiled.
      CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} CCACHE_NOHASHDIR=1 ${GRIDWRIGHT_CCACHE})
endif()

add_library(gridwright_options INTERFACE)
target_compile_features(gridwright_options INTERFACE cxx_std_20)
target_include_directories(gridwright_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_options(gridwright_options INTERFACE -Wall -Wextra -Wpedantic -fpch-preprocess)
target_compile_definitions(gridwright_options INTERFACE QT_NO_FOREACH QT_DEPRECATED_WARNINGS)
if(GRIDWRIGHT_WERROR)
  target_compile_options(gridwright_options INTERFACE -Werror)
endif()
if(CMAKE_CXX_COMPILER_ID MATCHES Clang)
  target_compile_options(gridwright_options INTERFACE -Wno-gnu-line-marker)
endif()
if(GRIDWRIGHT_SANITIZE)
  target_compile_options(gridwright_options INTERFACE -fsanitize=${GRIDWRIGHT_SANITIZE}
                         -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  target_link_options(gridwright_options INTERFACE -fsanitize=${GRIDWRIGHT_SANITIZE})
endif()
if(GRIDWRIGHT_FUZZ)
  target_compile_options(gridwright_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# gridwright_floor(NAME [LINKS target...] [PRECOMPILE header...])
# Makes the static library gridwright_NAME from all sources of the calling folder. A floor whose first class has
# not been written yet is an interface library, so that the floors above can name it already.
function(gridwright_floor name)
  cmake_parse_arguments(ARG "" "" "LINKS;PRECOMPILE" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  if(NOT sources)
    add_library(gridwright_${name} INTERFACE)
    target_link_libraries(gridwright_${name} INTERFACE gridwright_options ${ARG_LINKS})
    return()
  endif()
  add_library(gridwright_${name} STATIC ${sources})
  set_target_properties(gridwright_${name} PROPERTIES AUTOMOC ON LINKER_LANGUAGE CXX)
  target_link_libraries(gridwright_${name} PUBLIC gridwright_options ${ARG_LINKS})
  if(ARG_PRECOMPILE)
    target_precompile_headers(gridwright_${name} PRIVATE ${ARG_PRECOMPILE})
  endif()
endfunction()
