# cmake -P script: install the build at BINARY_DIR into WORK_DIR/prefix, then configure,
# build and run the example at EXAMPLE_DIR against that prefix.
function(run step)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "${step} failed (${rc}):\n${out}\n${err}")
  endif()
  set(last_output "${out}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE "${WORK_DIR}")
run("install" ${CMAKE_COMMAND} --install "${BINARY_DIR}" --prefix "${WORK_DIR}/prefix")
run("configure" ${CMAKE_COMMAND} -S "${EXAMPLE_DIR}" -B "${WORK_DIR}/build" -G "${GENERATOR}"
    "-DCMAKE_PREFIX_PATH=${WORK_DIR}/prefix" -DCMAKE_BUILD_TYPE=Release)
run("build" ${CMAKE_COMMAND} --build "${WORK_DIR}/build")
run("run" "${WORK_DIR}/build/${EXAMPLE}" "${WORK_DIR}/company.qbw")
message("${last_output}")
if(NOT last_output MATCHES "${EXPECT}")
  message(FATAL_ERROR "unexpected output of ${EXAMPLE}:\n${last_output}")
endif()
