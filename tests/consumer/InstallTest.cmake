# SPDX-License-Identifier: Apache-2.0
# One STEP of the test of an installation: manifest, cmake, pkgconfig, plugins, renderers
# or embed.
set(first "${WORK_DIR}/installed")
set(moved "${WORK_DIR}/moved elsewhere")  # a blank in the path belongs to the test

function(run)
  execute_process(COMMAND ${ARGV} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# A scene that is shown without a word on the error stream.
function(show)
  execute_process(COMMAND "${moved}/bin/ovscene" tree ${ARGV}
    ERROR_VARIABLE told COMMAND_ERROR_IS_FATAL ANY)
  if(told)
    message(FATAL_ERROR "${told}")
  endif()
endfunction()

# A program whose output is that of a file beside this one, without a word on the error stream.
function(expect file)
  execute_process(COMMAND ${ARGN} OUTPUT_FILE "${WORK_DIR}/${file}" ERROR_VARIABLE told COMMAND_ERROR_IS_FATAL ANY)
  if(told)
    message(FATAL_ERROR "${told}")
  endif()
  run(diff -u "${CMAKE_CURRENT_LIST_DIR}/${file}" "${WORK_DIR}/${file}")
endfunction()

# A renderer built with nothing linked, and what it prints; all of them print the same.
function(expect_renderer name compiler)
  set(plugins "${WORK_DIR}/renderers/${name}")
  file(MAKE_DIRECTORY "${plugins}")
  run("${compiler}" -pedantic -Wall -Wextra -Werror -shared -fPIC -fvisibility=hidden
    -I "${moved}/include" ${ARGN} -o "${plugins}/${name}.so")
  expect(census.txt "${moved}/bin/ovscene" render "${CMAKE_CURRENT_LIST_DIR}/stage.optree.json"
    --renderer ${name} --plugins "${plugins}")
endfunction()

# Sets import_scene to an op tree that the importer is needed for, with its asset beside it; to nothing when
# there is no importer.
function(write_import_scene)
  set(import_scene "" PARENT_SCOPE)
  if(EXISTS "${moved}/${LIBDIR}/OvSylvarProducers/plugins/AssimpImport.so")
    file(COPY "${CMAKE_CURRENT_LIST_DIR}/../plugins/AssimpImport/data/cube.obj" DESTINATION "${WORK_DIR}")
    file(WRITE "${WORK_DIR}/import.optree.json"
      "{\"format\": \"sylvar\", \"version\": 1, \"content\": \"op tree\", \"root\":"
      "  {\"cube\": {\"opType\": \"import\", \"opArgs\": {\"file\": \"cube.obj\"}}}}")
    set(import_scene "${WORK_DIR}/import.optree.json" PARENT_SCOPE)
  endif()
endfunction()

# What was installed, with the names of this build made general.
function(write_manifest file)
  file(GLOB_RECURSE installed LIST_DIRECTORIES OFF RELATIVE "${moved}" "${moved}/*")
  list(SORT installed)
  string(TOLOWER "${CONFIG}" config)
  string(REGEX REPLACE "^([0-9]+\\.[0-9]+)\\..*" "\\1" soversion "${VERSION}")
  foreach(path IN LISTS installed)
    string(REPLACE "${LIBDIR}/" "<libdir>/" path "${path}")
    string(REPLACE "-${config}.cmake" "-<config>.cmake" path "${path}")
    string(REPLACE ".so.${VERSION}" ".so.<version>" path "${path}")
    string(REPLACE ".so.${soversion}" ".so.<soversion>" path "${path}")
    string(APPEND text "${path}\n")
  endforeach()
  file(WRITE "${file}" "${text}")
endfunction()

if(STEP STREQUAL "manifest")
  file(REMOVE_RECURSE "${WORK_DIR}")
  run("${CMAKE_COMMAND}" --install "${BUILD_DIR}" --config "${CONFIG}" --prefix "${first}")
  file(RENAME "${first}" "${moved}")
  write_manifest("${WORK_DIR}/manifest.txt")
  execute_process(
    COMMAND diff -u "${CMAKE_CURRENT_LIST_DIR}/manifest.txt" "${WORK_DIR}/manifest.txt"
    RESULT_VARIABLE differs)
  if(differs)
    message(FATAL_ERROR "The installed files changed. When that is meant: scripts/approve_install.sh")
  endif()
elseif(STEP STREQUAL "cmake")
  run("${CMAKE_COMMAND}" -S "${CMAKE_CURRENT_LIST_DIR}/project" -B "${WORK_DIR}/cmake" -G "${GENERATOR}"
    "-DCMAKE_PREFIX_PATH=${moved}" "-DCMAKE_CXX_COMPILER=${CXX_COMPILER}" -DCMAKE_BUILD_TYPE=Release)
  run("${CMAKE_COMMAND}" --build "${WORK_DIR}/cmake")
  run("${WORK_DIR}/cmake/consumer")
elseif(STEP STREQUAL "pkgconfig")
  set(ENV{PKG_CONFIG_PATH} "${moved}/${LIBDIR}/pkgconfig")
  execute_process(COMMAND pkg-config --cflags --libs OvSylvarProducers
    OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  separate_arguments(flags UNIX_COMMAND "${flags}")
  run("${CXX_COMPILER}" -std=c++17 "${CMAKE_CURRENT_LIST_DIR}/project/main.cpp" -o "${WORK_DIR}/consumer"
    ${flags} "-Wl,-rpath,${moved}/${LIBDIR}")
  run("${WORK_DIR}/consumer")
elseif(STEP STREQUAL "plugins")
  set(examples "${moved}/share/OvSylvarProducers/examples")
  set(example "${examples}/op_type")
  set(plugins "${WORK_DIR}/plugins")
  file(MAKE_DIRECTORY "${plugins}")
  run("${C_COMPILER}" -std=c99 -fexceptions -pedantic -Wall -Wextra -Werror -shared -fPIC -fvisibility=hidden
    -I "${moved}/include" "${examples}/location_delegate/ProceduralDelegate.c" -o "${plugins}/ProceduralDelegate.so")
  run("${C_COMPILER}" -std=c99 -pedantic -Wall -Wextra -Werror -shared -fPIC -fvisibility=hidden
    -I "${moved}/include" "${example}/WaveOp.c" -o "${plugins}/WaveOp.so" -lm)
  show("${example}/wave.optree.json" --plugins "${plugins}")
  write_import_scene()
  if(import_scene)
    show("${import_scene}" --set "SYLVAR_ASSET_PATH=${WORK_DIR}")
  endif()
elseif(STEP STREQUAL "renderers")
  set(examples "${moved}/share/OvSylvarProducers/examples")
  expect_renderer(CensusC "${C_COMPILER}" -std=c99 -fexceptions "${examples}/renderer_c/CensusRenderer.c")
  expect_renderer(CensusCpp "${CXX_COMPILER}" -std=c++17 "${examples}/renderer_cpp/CensusPlugin.cpp")
elseif(STEP STREQUAL "embed")
  run("${CMAKE_COMMAND}" -S "${moved}/share/OvSylvarProducers/examples/embed" -B "${WORK_DIR}/embed"
    -G "${GENERATOR}" "-DCMAKE_PREFIX_PATH=${moved}" "-DCMAKE_CXX_COMPILER=${CXX_COMPILER}"
    "-DCMAKE_CXX_FLAGS=-Wall -Wextra -Wconversion -Wshadow -Werror")
  run("${CMAKE_COMMAND}" --build "${WORK_DIR}/embed")
  expect(survey.txt "${WORK_DIR}/embed/survey" "${CMAKE_CURRENT_LIST_DIR}/stage.optree.json" 3)
  write_import_scene()
  if(import_scene)  # it finds the plug-ins that were installed
    expect(survey_cube.txt "${WORK_DIR}/embed/survey" "${import_scene}")
  endif()
endif()
