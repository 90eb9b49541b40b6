# SPDX-License-Identifier: Apache-2.0
# What holds for every target: language, build type, output folders, compiler cache.
set(CMAKE_C_STANDARD 99)
set(CMAKE_CXX_STANDARD 17)
foreach(language C CXX)
  set(CMAKE_${language}_STANDARD_REQUIRED ON)
  set(CMAKE_${language}_EXTENSIONS OFF)
  set(CMAKE_${language}_VISIBILITY_PRESET hidden)
endforeach()
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(THREADS_PREFER_PTHREAD_FLAG ON)

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "Build type" FORCE)
endif()

# The build tree has the shape of the installed one.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/${CMAKE_INSTALL_LIBDIR}")
set(OV_PLUGIN_SUBDIR OvSylvarProducers/plugins)  # below the folder of the libraries
set(OV_PLUGIN_OUTPUT_DIRECTORY "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}/${OV_PLUGIN_SUBDIR}")

# Log places read src/..., wherever the checkout stands.
add_compile_options("-fmacro-prefix-map=${PROJECT_SOURCE_DIR}/=")

find_program(OV_CCACHE ccache)
if(OV_CCACHE)
  foreach(language C CXX)
    if(NOT CMAKE_${language}_COMPILER_LAUNCHER)
      # Precompiled headers take these to be found in the cache.
      set(CMAKE_${language}_COMPILER_LAUNCHER
        "${CMAKE_COMMAND}" -E env CCACHE_SLOPPINESS=pch_defines,time_macros "${OV_CCACHE}")
    endif()
  endforeach()
endif()

if(OV_CLANG_TIDY)
  find_program(OV_CLANG_TIDY_PROGRAM NAMES clang-tidy-14 clang-tidy REQUIRED)
endif()
