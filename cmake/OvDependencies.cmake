# SPDX-License-Identifier: Apache-2.0
# Third-party libraries, each behind one target.  scripts/packages.txt lists their packages.
find_package(Threads REQUIRED)
find_package(Boost 1.74 CONFIG REQUIRED COMPONENTS headers thread filesystem regex)
find_package(Imath CONFIG REQUIRED)
find_package(PkgConfig REQUIRED)
find_package(pugixml CONFIG REQUIRED)
find_package(spdlog CONFIG REQUIRED)
pkg_check_modules(xxhash REQUIRED IMPORTED_TARGET libxxhash)

find_path(OV_RAPIDJSON_INCLUDE_DIR rapidjson/reader.h REQUIRED)
find_path(OV_FLATBUFFERS_INCLUDE_DIR flatbuffers/flatbuffers.h REQUIRED)
find_path(OV_PYSTRING_INCLUDE_DIR pystring/pystring.h REQUIRED)
find_library(OV_PYSTRING_LIBRARY pystring REQUIRED)
find_program(OV_FLATC flatc REQUIRED)

add_library(ov_boost INTERFACE)
target_link_libraries(ov_boost INTERFACE Boost::headers Boost::thread Boost::filesystem Boost::regex)
target_compile_definitions(ov_boost INTERFACE BOOST_FILESYSTEM_VERSION=3)

add_library(ov_rapidjson INTERFACE)
target_include_directories(ov_rapidjson SYSTEM INTERFACE "${OV_RAPIDJSON_INCLUDE_DIR}")
target_compile_definitions(ov_rapidjson INTERFACE RAPIDJSON_HAS_STDSTRING=1)

add_library(ov_flatbuffers INTERFACE)
target_include_directories(ov_flatbuffers SYSTEM INTERFACE "${OV_FLATBUFFERS_INCLUDE_DIR}")

add_library(ov_pystring INTERFACE)
target_include_directories(ov_pystring SYSTEM INTERFACE "${OV_PYSTRING_INCLUDE_DIR}")
target_link_libraries(ov_pystring INTERFACE "${OV_PYSTRING_LIBRARY}")

if(OV_BUILD_PLUGINS)
  find_package(assimp CONFIG REQUIRED)
endif()
find_package(CLI11 CONFIG REQUIRED)
if(OV_BUILD_TESTS)
  find_package(GTest CONFIG REQUIRED)
endif()
if(OV_BUILD_BENCH)
  find_package(benchmark CONFIG REQUIRED)
endif()
