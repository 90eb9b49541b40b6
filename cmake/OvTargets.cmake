# SPDX-License-Identifier: Apache-2.0
# The words that the CMake lists of this project are written in.
include(GoogleTest)

set(OV_GENERATED_DIR "${PROJECT_BINARY_DIR}/generated")

# ov_clang_tidy(<target>): checks it while compiling when OV_CLANG_TIDY is on.
function(ov_clang_tidy target)
  if(OV_CLANG_TIDY)
    set_target_properties(${target} PROPERTIES CXX_CLANG_TIDY "${OV_CLANG_TIDY_PROGRAM};--quiet")
  endif()
endfunction()

# ov_library(<target> EXPORT <name> MACROS <prefix> [PUBLIC <targets>] [PRIVATE <targets>]): a shared library.
# Its public headers are include/<target>/** and a Version.h whose macros begin with the prefix; what it
# may export is in cmake/<target>.map.
function(ov_library target)
  cmake_parse_arguments(arg "" "EXPORT;MACROS" "PUBLIC;PRIVATE" ${ARGN})
  set(version_header "${PROJECT_BINARY_DIR}/include/${target}/Version.h")
  set(OV_VERSION_PREFIX ${arg_MACROS})
  configure_file("${PROJECT_SOURCE_DIR}/cmake/Version.h.in" "${version_header}" @ONLY)
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS
    "${PROJECT_SOURCE_DIR}/include/${target}/*.h" "${PROJECT_SOURCE_DIR}/include/${target}/*.hpp")

  add_library(${target} SHARED)
  add_library(OvSylvarProducers::${arg_EXPORT} ALIAS ${target})
  target_sources(${target} PUBLIC FILE_SET HEADERS
    BASE_DIRS "${PROJECT_SOURCE_DIR}/include" "${PROJECT_BINARY_DIR}/include"
    FILES ${headers} "${version_header}")
  target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}/src")
  target_include_directories(${target} SYSTEM PRIVATE "${OV_GENERATED_DIR}")
  target_compile_features(${target} PUBLIC cxx_std_17)
  target_link_libraries(${target} PUBLIC ${arg_PUBLIC} PRIVATE ${arg_PRIVATE} ov_library_warnings ov_shared)

  set(map "${PROJECT_SOURCE_DIR}/cmake/${target}.map")
  target_link_options(${target} PRIVATE "-Wl,--version-script=${map}")
  set_target_properties(${target} PROPERTIES
    EXPORT_NAME ${arg_EXPORT}
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}
    LINK_DEPENDS "${map}"
    INSTALL_RPATH "$ORIGIN"
    VERIFY_INTERFACE_HEADER_SETS ON)
  ov_clang_tidy(${target})
endfunction()

# ov_layer(<library> <files...>): the sources of one layer, relative to its folder.
function(ov_layer library)
  list(TRANSFORM ARGN PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/")
  target_sources(${library} PRIVATE ${ARGN})
endfunction()

# ov_schema(<library> <file.fbs>): compiles a FlatBuffers schema beside the generated sources;
# it is included by the schema's own place, "Platform/.../<file>_generated.h".
function(ov_schema library schema)
  set(source "${CMAKE_CURRENT_SOURCE_DIR}/${schema}")
  cmake_path(RELATIVE_PATH source BASE_DIRECTORY "${PROJECT_SOURCE_DIR}/src" OUTPUT_VARIABLE place)
  cmake_path(GET place PARENT_PATH folder)
  cmake_path(GET place STEM name)
  set(header "${OV_GENERATED_DIR}/${folder}/${name}_generated.h")
  add_custom_command(OUTPUT "${header}"
    COMMAND "${OV_FLATC}" --cpp --scoped-enums --cpp-std c++17 -o "${OV_GENERATED_DIR}/${folder}" "${source}"
    DEPENDS "${source}" VERBATIM)
  add_custom_target(schema_${name} DEPENDS "${header}")
  add_dependencies(${library} schema_${name})
endfunction()

# ov_plugin(<name> SOURCES <files> [LINK <targets>]): sees our plain C headers, links none of our libraries.
function(ov_plugin name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} MODULE ${arg_SOURCES})
  target_include_directories(${name} PRIVATE
    "${PROJECT_SOURCE_DIR}/include" "${CMAKE_CURRENT_SOURCE_DIR}")
  target_link_libraries(${name} PRIVATE ${arg_LINK} ov_library_warnings ov_shared)
  set_target_properties(${name} PROPERTIES PREFIX ""
    LIBRARY_OUTPUT_DIRECTORY "${OV_PLUGIN_OUTPUT_DIRECTORY}")
  install(TARGETS ${name} DESTINATION "${CMAKE_INSTALL_LIBDIR}/${OV_PLUGIN_SUBDIR}")
  ov_clang_tidy(${name})
endfunction()

# ov_tool(<name> SOURCES <files> [LINK <targets>]): a command over the public headers.
function(ov_tool name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}")
  target_link_libraries(${name} PRIVATE OvSylvarProducers SylvarPlatform ${arg_LINK} ov_warnings)
  file(RELATIVE_PATH libraries "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_LIBDIR}")
  set_target_properties(${name} PROPERTIES INSTALL_RPATH "$ORIGIN/${libraries}")
  install(TARGETS ${name} DESTINATION "${CMAKE_INSTALL_BINDIR}")
  ov_clang_tidy(${name})
endfunction()

# ov_internals(): both libraries once more as one archive, for tests of what they hide.
function(ov_internals)
  add_library(ov_internals STATIC $<TARGET_OBJECTS:SylvarPlatform> $<TARGET_OBJECTS:OvSylvarProducers>)
  target_include_directories(ov_internals INTERFACE "${PROJECT_SOURCE_DIR}/src"
    "${PROJECT_SOURCE_DIR}/include" "${PROJECT_BINARY_DIR}/include")
  target_include_directories(ov_internals SYSTEM INTERFACE "${OV_GENERATED_DIR}")
  target_link_libraries(ov_internals INTERFACE ResolutionTableOv ${OV_PLATFORM_PRIVATE} Threads::Threads)
  set_target_properties(ov_internals PROPERTIES LINKER_LANGUAGE CXX)
endfunction()

# Links an executable to the hidden inside of the libraries or to the libraries as they ship.
function(ov_link_libraries target internals)
  if(internals)
    target_link_libraries(${target} PRIVATE ov_internals ov_warnings)
  else()
    target_link_libraries(${target} PRIVATE OvSylvarProducers SylvarPlatform ov_warnings)
  endif()
endfunction()

# ov_test_headers(): what every test includes is compiled once. For g++ alone: the other compiler shows what a test
# forgets to include, and its precompiled headers cannot be kept in a cache.
function(ov_test_headers)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_executable(ov_test_headers "${PROJECT_SOURCE_DIR}/tests/support/PrecompiledHeaders.cpp")
    target_link_libraries(ov_test_headers PRIVATE ov_warnings GTest::gmock GTest::gtest Threads::Threads)
    target_precompile_headers(ov_test_headers PRIVATE "$<$<COMPILE_LANGUAGE:CXX>:<gmock/gmock.h$<ANGLE-R>>")
  endif()
endfunction()

# ov_test(<name> [INTERNALS] [AS_ONE] [LINK <targets>] <sources...>): one test program; its label is the folder
# of tests/ that it stands in.  What stands in tests/unit, or says INTERNALS, sees the private headers.  Each
# test of it is one for ctest, or with AS_ONE, when they share long work, all of them together.
function(ov_test name)
  cmake_parse_arguments(arg "INTERNALS;AS_ONE" "" "LINK" ${ARGN})
  file(RELATIVE_PATH place "${PROJECT_SOURCE_DIR}/tests" "${CMAKE_CURRENT_SOURCE_DIR}")
  string(REGEX REPLACE "/.*" "" label "${place}")
  if(label STREQUAL "unit")
    set(arg_INTERNALS ON)
  endif()
  set(target test_${name})
  add_executable(${target} ${arg_UNPARSED_ARGUMENTS})
  target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
  target_compile_definitions(${target} PRIVATE
    OV_TEST_SOURCE_DIR="${PROJECT_SOURCE_DIR}" OV_TEST_PLUGIN_DIR="${OV_PLUGIN_OUTPUT_DIRECTORY}"
    OV_TEST_OUTPUT_DIR="${CMAKE_CURRENT_BINARY_DIR}")
  ov_link_libraries(${target} "${arg_INTERNALS}")
  target_link_libraries(${target} PRIVATE ${arg_LINK} GTest::gmock GTest::gtest_main Threads::Threads)
  if(TARGET ov_test_headers)
    target_precompile_headers(${target} REUSE_FROM ov_test_headers)
  endif()
  if(TARGET AssimpImport)
    add_dependencies(${target} AssimpImport)
  endif()
  if(arg_AS_ONE)
    add_test(NAME ${name} COMMAND ${target})
    set_tests_properties(${name} PROPERTIES LABELS ${label} TIMEOUT 300)
  else()
    gtest_discover_tests(${target} TEST_PREFIX ${name}. NO_PRETTY_VALUES DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
      PROPERTIES LABELS ${label} TIMEOUT 120)
  endif()
endfunction()

# ov_bench(<name> [INTERNALS] [LINK <targets>] <sources...>): one benchmark program, tried shortly by
# ctest, without what has a million in its name.
function(ov_bench name)
  cmake_parse_arguments(arg "INTERNALS" "" "LINK" ${ARGN})
  set(target bench_${name})
  add_executable(${target} ${arg_UNPARSED_ARGUMENTS})
  add_dependencies(benchmarks ${target})
  target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
  ov_link_libraries(${target} "${arg_INTERNALS}")
  target_link_libraries(${target} PRIVATE ${arg_LINK} benchmark::benchmark_main Threads::Threads)
  if(OV_BUILD_TESTS)
    add_test(NAME bench.${name} COMMAND ${target} --benchmark_min_time=0.01 --benchmark_filter=-/1000000)
    set_tests_properties(bench.${name} PROPERTIES LABELS bench TIMEOUT 300 RUN_SERIAL ON)
  endif()
endfunction()

# ov_fuzz(<sources...>): the fuzzer of this folder, fuzz/<target>/, with its corpus/.  ctest runs the corpus once.
function(ov_fuzz)
  cmake_path(GET CMAKE_CURRENT_SOURCE_DIR FILENAME name)
  set(target fuzz_${name})
  add_executable(${target} ${ARGN})
  ov_link_libraries(${target} ON)
  target_link_options(${target} PRIVATE -fsanitize=fuzzer)
  if(OV_BUILD_TESTS)
    add_test(NAME fuzz.${name} COMMAND ${target} -runs=0 "${CMAKE_CURRENT_SOURCE_DIR}/corpus")
    set_tests_properties(fuzz.${name} PROPERTIES LABELS fuzz TIMEOUT 120)
  endif()
endfunction()
