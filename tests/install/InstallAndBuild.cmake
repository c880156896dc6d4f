# Installs the build into a temporary prefix, configures the consumer project
# against it with find_package(zent_dl), builds examples/engine/effective_settings
# there and runs it. Fails on the first step that fails.
file(REMOVE_RECURSE ${ZDL_WORK_DIR})
set(prefix ${ZDL_WORK_DIR}/prefix)

function(step)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "step failed (${rc}): ${ARGN}\n${out}\n${err}")
  endif()
  set(step_output "${out}" PARENT_SCOPE)
endfunction()

step(${CMAKE_COMMAND} --install ${ZDL_BUILD_DIR} --prefix ${prefix})
foreach(f include/zent_dl/core/TInfoStorage.h lib/libzent_dl_core.a lib/cmake/zent_dl/zent_dlConfig.cmake
          lib/cmake/zent_dl/zent_dlTargets.cmake)
  if(NOT EXISTS ${prefix}/${f})
    message(FATAL_ERROR "not installed: ${f}")
  endif()
endforeach()
step(${CMAKE_COMMAND} -S ${ZDL_SOURCE_DIR}/tests/install/consumer -B ${ZDL_WORK_DIR}/consumer -G ${ZDL_GENERATOR}
     -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_BUILD_TYPE=Release -DZDL_SOURCE_DIR=${ZDL_SOURCE_DIR})
step(${CMAKE_COMMAND} --build ${ZDL_WORK_DIR}/consumer)
step(${ZDL_WORK_DIR}/consumer/effective_settings)
if(NOT step_output MATCHES "margin template +PRO")
  message(FATAL_ERROR "the example built against the package printed:\n${step_output}")
endif()
file(REMOVE_RECURSE ${ZDL_WORK_DIR})
