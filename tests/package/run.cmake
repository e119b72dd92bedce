# Installs the build into a prefix of its own, moves that prefix elsewhere (the
# package must hold no absolute path) and builds and runs tests/package/outside/
# against it, as a host would.

foreach(name BUILD_DIR WORK_DIR OUTSIDE_DIR GENERATOR CXX VERSION WITH_QT)
    if(NOT DEFINED ${name})
        message(FATAL_ERROR "run.cmake: -D${name}=… is missing")
    endif()
endforeach()

function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE status)
    if(NOT status EQUAL 0)
        string(REPLACE ";" " " line "${ARGN}")
        message(FATAL_ERROR "failed (${status}): ${line}")
    endif()
endfunction()

function(run_and_expect expected)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE out ERROR_VARIABLE err)
    if(NOT status EQUAL 0 OR NOT out STREQUAL "${expected}\n")
        message(FATAL_ERROR "${ARGN}: status ${status}, expected '${expected}', got '${out}'\n${err}")
    endif()
endfunction()

file(REMOVE_RECURSE "${WORK_DIR}")
file(MAKE_DIRECTORY "${WORK_DIR}")
run("${CMAKE_COMMAND}" --install "${BUILD_DIR}" --config "${CONFIG}" --prefix "${WORK_DIR}/installed")
file(RENAME "${WORK_DIR}/installed" "${WORK_DIR}/moved")

set(configure "${CMAKE_COMMAND}" -G "${GENERATOR}" -S "${OUTSIDE_DIR}"
    "-DCMAKE_PREFIX_PATH=${WORK_DIR}/moved"
    "-DCMAKE_CXX_COMPILER=${CXX}" "-DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER}"
    "-DCMAKE_BUILD_TYPE=${CONFIG}" "-DTABLIO_VERSION=${VERSION}")

# A host that asks for the core alone must not need Qt: hide it from this one.
run(${configure} -B "${WORK_DIR}/core" -DCMAKE_DISABLE_FIND_PACKAGE_Qt6=ON)
run("${CMAKE_COMMAND}" --build "${WORK_DIR}/core" --config "${CONFIG}")
run_and_expect("3" "${WORK_DIR}/core/bin/outside_core")

if(WITH_QT)
    run(${configure} -B "${WORK_DIR}/qt" -DOUTSIDE_QT=ON)
    run("${CMAKE_COMMAND}" --build "${WORK_DIR}/qt" --config "${CONFIG}")
    run_and_expect("3" "${CMAKE_COMMAND}" -E env QT_QPA_PLATFORM=offscreen
        "${WORK_DIR}/qt/bin/outside_qt")
else()
    # Asking for what was not built must fail while configuring, not while linking.
    execute_process(COMMAND ${configure} -B "${WORK_DIR}/qt" -DOUTSIDE_QT=ON
        RESULT_VARIABLE status OUTPUT_QUIET ERROR_VARIABLE err)
    if(status EQUAL 0 OR NOT err MATCHES "Tablio")
        message(FATAL_ERROR "find_package(Tablio COMPONENTS Qt) should have failed: ${status}\n${err}")
    endif()
endif()
