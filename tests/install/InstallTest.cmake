# Run with cmake -P. Installs BUILD_DIR into WORK_DIR/prefix, checks the
# installed layout, then builds and runs the host project against it.

set(prefix ${WORK_DIR}/prefix)
set(expected_output
"facts 110
actions 54
defines 66
params 547
396 wood-amount AI_CFunction
caught missing.per: the file was not found.
after delete 0
")

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT status EQUAL 0)
    string(REPLACE ";" " " command "${ARGN}")
    message(FATAL_ERROR "failed (${status}): ${command}\n${out}\n${err}")
  endif()
  set(run_output "${out}" PARENT_SCOPE)
endfunction()

function(expect_host_output program)
  run(${program})
  if(NOT run_output STREQUAL expected_output)
    message(FATAL_ERROR "${program} printed:\n${run_output}\nexpected:\n${expected_output}")
  endif()
endfunction()

file(REMOVE_RECURSE ${WORK_DIR})
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})

# ---- layout -------------------------------------------------------------------
foreach(path
    include/stratagem.h
    include/stratagem/platform/afx.h
    include/stratagem/vocabulary/AI_Vocabulary.h
    ${LIBDIR}/libstratagem.so
    ${LIBDIR}/cmake/stratagem/stratagemConfig.cmake
    ${LIBDIR}/cmake/stratagem/stratagemConfigVersion.cmake
    ${LIBDIR}/pkgconfig/stratagem.pc
    bin/stratagem)
  if(NOT EXISTS ${prefix}/${path})
    message(FATAL_ERROR "not installed: ${path}")
  endif()
endforeach()
# Headers that only the library's sources use stay out of the installed tree.
foreach(internal AI_Registry.h AI_ActiveSet.h AI_LoadFile.h AI_TokenCount.h)
  file(GLOB_RECURSE leaked ${prefix}/include/${internal})
  if(leaked)
    message(FATAL_ERROR "internal header installed: ${leaked}")
  endif()
endforeach()
run(${prefix}/bin/stratagem --version)

# ---- find_package ---------------------------------------------------------------
run(${CMAKE_COMMAND} -S ${HOST_SOURCE_DIR} -B ${WORK_DIR}/host-build -G ${GENERATOR}
    -DCMAKE_CXX_COMPILER=${CXX_COMPILER}
    -DCMAKE_CXX_FLAGS=${HOST_COMPILE_FLAGS}
    -DCMAKE_EXE_LINKER_FLAGS=${HOST_LINK_FLAGS}
    -DCMAKE_PREFIX_PATH=${prefix}
    -DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF
    -DCMAKE_FIND_USE_SYSTEM_PACKAGE_REGISTRY=OFF)
string(FIND "${run_output}" "stratagem package: ${prefix}/" found_at)
if(found_at EQUAL -1)
  message(FATAL_ERROR "the host found a package outside ${prefix}:\n${run_output}")
endif()
run(${CMAKE_COMMAND} --build ${WORK_DIR}/host-build)
expect_host_output(${WORK_DIR}/host-build/host)

# ---- pkg-config -----------------------------------------------------------------
if(NOT PKG_CONFIG)
  message(STATUS "pkg-config not found: skipping the pkg-config build")
  return()
endif()
set(ENV{PKG_CONFIG_PATH} ${prefix}/${LIBDIR}/pkgconfig)
run(${PKG_CONFIG} --cflags stratagem)
separate_arguments(cflags UNIX_COMMAND "${run_output}")
run(${PKG_CONFIG} --libs stratagem)
separate_arguments(libs UNIX_COMMAND "${run_output}")
separate_arguments(compile_flags UNIX_COMMAND "${HOST_COMPILE_FLAGS}")
separate_arguments(link_flags UNIX_COMMAND "${HOST_LINK_FLAGS}")
run(${CXX_COMPILER} -std=c++17 ${compile_flags} ${cflags} ${HOST_SOURCE_DIR}/main.cpp
    -o ${WORK_DIR}/host-pkgconfig ${link_flags} ${libs} -Wl,-rpath,${prefix}/${LIBDIR})
expect_host_output(${WORK_DIR}/host-pkgconfig)
