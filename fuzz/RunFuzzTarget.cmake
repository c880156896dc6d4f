# Runs one libFuzzer target for a bounded time: copies the committed seeds into
# a working corpus, fuzzes, and fails when the target found a crash, a leak or
# a timeout. Called by CTest with TARGET, WORK, SEEDS and ARGS.
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
if(EXISTS ${SEEDS})
  file(GLOB seeds ${SEEDS}/*)
  if(seeds)
    file(COPY ${seeds} DESTINATION ${WORK})
  endif()
endif()
get_filename_component(artifacts ${WORK}/../artifacts ABSOLUTE)
file(MAKE_DIRECTORY ${artifacts})
execute_process(COMMAND ${TARGET} ${ARGS} -artifact_prefix=${artifacts}/ ${WORK}
                RESULT_VARIABLE rc)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "${TARGET} failed (${rc}); the input is under ${artifacts}")
endif()
