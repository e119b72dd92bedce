# Installs the build into a prefix of its own, moves that prefix elsewhere (the
# package must hold no absolute path) and builds and runs tests/package/outside/
# against it, as a host would. Then the same host has Tablio as a subdirectory, tests/package/inside/.

foreach(name BUILD_DIR SOURCE_DIR WORK_DIR GENERATOR CXX VERSION WITH_QT)
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

set(toolchain -G "${GENERATOR}" "-DCMAKE_BUILD_TYPE=${CONFIG}"
    "-DCMAKE_CXX_COMPILER=${CXX}" "-DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER}")
set(configure "${CMAKE_COMMAND}" ${toolchain} -S "${CMAKE_CURRENT_LIST_DIR}/outside"
    "-DCMAKE_PREFIX_PATH=${WORK_DIR}/moved" "-DTABLIO_VERSION=${VERSION}")

# A host that asks for the core alone must not need Qt: hide it from this one.
run(${configure} -B "${WORK_DIR}/core" -DCMAKE_DISABLE_FIND_PACKAGE_Qt6=ON)
run("${CMAKE_COMMAND}" --build "${WORK_DIR}/core" --config "${CONFIG}")
run_and_expect("3" "${WORK_DIR}/core/bin/outside_core")
file(GLOB scenarios "${WORK_DIR}/moved/*/tablio/scenarios/*/*.scenario")
run("${WORK_DIR}/core/bin/outside_scenarios" ${scenarios})

# A face that knows the package alone plays all scenarios through itself.
run("${CMAKE_COMMAND}" ${toolchain} -S "${SOURCE_DIR}/examples/text_face"
    -B "${WORK_DIR}/text_face" "-DCMAKE_PREFIX_PATH=${WORK_DIR}/moved"
    -DCMAKE_DISABLE_FIND_PACKAGE_Qt6=ON)
run("${CMAKE_COMMAND}" --build "${WORK_DIR}/text_face" --config "${CONFIG}")
run("${WORK_DIR}/text_face/text_face" ${scenarios})

if(WITH_QT)
    run(${configure} -B "${WORK_DIR}/qt" -DOUTSIDE_QT=ON)
    run("${CMAKE_COMMAND}" --build "${WORK_DIR}/qt" --config "${CONFIG}")
    run_and_expect("3" "${CMAKE_COMMAND}" -E env QT_QPA_PLATFORM=offscreen
        "${WORK_DIR}/qt/bin/outside_qt")
    # A host's own form plays scenarios.
    run("${CMAKE_COMMAND}" -E env QT_QPA_PLATFORM=offscreen "${CMAKE_CTEST_COMMAND}"
        --test-dir "${WORK_DIR}/qt" --no-tests=error --output-on-failure)
else()
    # Asking for what was not built must fail while configuring, not while linking.
    execute_process(COMMAND ${configure} -B "${WORK_DIR}/qt" -DOUTSIDE_QT=ON
        RESULT_VARIABLE status OUTPUT_QUIET ERROR_VARIABLE err)
    if(status EQUAL 0 OR NOT err MATCHES "Tablio")
        message(FATAL_ERROR "find_package(Tablio COMPONENTS Qt) should have failed: ${status}\n${err}")
    endif()
endif()

# As a subdirectory: with Qt, all that is defined fits together. The core is compiled against, and
# neither tested nor installed with its host.
set(inside "${WORK_DIR}/inside")
set(configure "${CMAKE_COMMAND}" ${toolchain} -S "${CMAKE_CURRENT_LIST_DIR}/inside"
    "-DTABLIO_DIR=${SOURCE_DIR}")
if(WITH_QT)
    run(${configure} -B "${inside}_qt")
endif()
run(${configure} -B "${inside}" -DTABLIO_BUILD_QT=OFF)
run("${CMAKE_COMMAND}" --build "${inside}" --config "${CONFIG}" --target inside)
run("${CMAKE_COMMAND}" --install "${inside}" --config "${CONFIG}" --prefix "${WORK_DIR}/host")
if(EXISTS "${WORK_DIR}/host")
    message(FATAL_ERROR "Tablio installed something with its host")
endif()
execute_process(COMMAND "${CMAKE_CTEST_COMMAND}" --test-dir "${inside}" -N OUTPUT_VARIABLE out)
if(NOT out MATCHES "Total Tests: 0")
    message(FATAL_ERROR "Tablio added tests to its host's:\n${out}")
endif()
