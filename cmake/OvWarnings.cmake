# SPDX-License-Identifier: Apache-2.0
# One interface target carries the whole warnings policy.
add_library(ov_warnings INTERFACE)
target_compile_options(ov_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wundef -Wvla -Wcast-qual -Wformat=2 -Wconversion
  $<$<COMPILE_LANGUAGE:CXX>:-Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual -Wsuggest-override -Wextra-semi>
  $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Wduplicated-cond -Wduplicated-branches -Wlogical-op>
  $<$<COMPILE_LANG_AND_ID:CXX,Clang>:-Wthread-safety>
  $<$<BOOL:${OV_DEVELOPER}>:-Werror>)

# Fuzzing wants every library instrumented, and a sanitizer that sees the damage.
set(sanitize "${OV_SANITIZE}")
if(OV_BUILD_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "OV_BUILD_FUZZ needs clang")
  endif()
  if(NOT sanitize)
    set(sanitize address,undefined)
  endif()
  string(APPEND sanitize ",fuzzer-no-link")
endif()
if(sanitize)
  target_compile_options(ov_warnings INTERFACE
    -fsanitize=${sanitize} -fno-sanitize-recover=all -fno-omit-frame-pointer
    $<$<CXX_COMPILER_ID:Clang>:-fsanitize-ignorelist=${PROJECT_SOURCE_DIR}/cmake/sanitizers.ignore>)
  target_link_options(ov_warnings INTERFACE -fsanitize=${sanitize})
endif()

# The libraries alone promise that loading them does no work; tests register themselves.
add_library(ov_library_warnings INTERFACE)
target_link_libraries(ov_library_warnings INTERFACE ov_warnings)
target_compile_options(ov_library_warnings INTERFACE
  $<$<COMPILE_LANG_AND_ID:CXX,Clang>:-Wglobal-constructors -Wexit-time-destructors>)

# What is loaded stays loaded (thread exit runs its code), and nothing is left undefined.
# Under a sanitizer of clang the executable alone holds the sanitizer's functions.
add_library(ov_shared INTERFACE)
target_link_options(ov_shared INTERFACE -Wl,-z,nodelete)
if(NOT sanitize)
  target_link_options(ov_shared INTERFACE -Wl,-z,defs)
endif()
