# The tests, one label a kind:
#   unit      tests/unit/*.cpp             GoogleTest, the core
#   scenario  tests/scenarios/**.scenario  text files, run by tests/runner/
#   qt        tests/qt/*.cpp               GoogleTest, the widget on an offscreen platform
#   window    tests/window/*.sh            the demo in a real X window on a private display
#   package   tests/package/               the installed package, used from outside
#   designer  tests/designer/              the Qt Designer plug-in; see TablioDesignerTests.cmake
# The player of the scenarios is a library of its own, testing/.

find_package(GTest REQUIRED)
include(GoogleTest)

set(tests_dir "${CMAKE_CURRENT_SOURCE_DIR}/tests")
set(test_environment
    "ASAN_OPTIONS=detect_stack_use_after_return=1"
    "UBSAN_OPTIONS=print_stacktrace=1"
    "LSAN_OPTIONS=suppressions=${CMAKE_CURRENT_SOURCE_DIR}/cmake/lsan.supp:print_suppressions=0")

# ---- shared ------------------------------------------------------------------

add_library(tablio_test_support INTERFACE)
target_include_directories(tablio_test_support INTERFACE
    "${CMAKE_CURRENT_SOURCE_DIR}/src" "${tests_dir}")
target_link_libraries(tablio_test_support INTERFACE Tablio::Core)

# ---- the scenario player -------------------------------------------------------

file(GLOB testing_sources CONFIGURE_DEPENDS testing/src/*.cpp)
add_library(tablio_testing STATIC ${testing_sources})
add_library(Tablio::Testing ALIAS tablio_testing)
target_include_directories(tablio_testing
    PUBLIC "${CMAKE_CURRENT_SOURCE_DIR}/testing/include"
    PRIVATE testing/src src)
target_link_libraries(tablio_testing PUBLIC Tablio::Core)
tablio_compile_settings(tablio_testing)

# ---- unit --------------------------------------------------------------------

file(GLOB_RECURSE unit_sources CONFIGURE_DEPENDS tests/unit/*.cpp)
if(unit_sources)
    add_executable(tablio_unit_tests ${unit_sources})
    set_source_files_properties(tests/unit/dispatch_test.cpp PROPERTIES COMPILE_DEFINITIONS
        "TABLIO_MEMBERS_DOCUMENT=\"${CMAKE_CURRENT_SOURCE_DIR}/docs/members.md\"")
    target_link_libraries(tablio_unit_tests
        PRIVATE tablio_test_support Tablio::Testing GTest::gtest GTest::gtest_main)
    tablio_compile_settings(tablio_unit_tests)
    # An "emulator" is the one way to give the discovery run, too, an environment.
    set_target_properties(tablio_unit_tests PROPERTIES
        CROSSCOMPILING_EMULATOR "${CMAKE_COMMAND};-E;env;${test_environment}")
    gtest_discover_tests(tablio_unit_tests
        TEST_PREFIX unit.
        DISCOVERY_TIMEOUT 60
        PROPERTIES LABELS unit TIMEOUT 60)
else()
    message(STATUS "Tablio: no sources in tests/unit/, no unit tests")
endif()

# ---- scenario ----------------------------------------------------------------

file(GLOB_RECURSE runner_sources CONFIGURE_DEPENDS tests/runner/*.cpp)
file(GLOB_RECURSE scenarios RELATIVE "${tests_dir}/scenarios" CONFIGURE_DEPENDS
    tests/scenarios/*.scenario)
if(runner_sources)
    add_executable(tablio_scenarios ${runner_sources})
    target_link_libraries(tablio_scenarios PRIVATE Tablio::Testing)
    tablio_compile_settings(tablio_scenarios)
    foreach(scenario IN LISTS scenarios)
        string(REGEX REPLACE "\\.scenario$" "" subject "${scenario}")
        string(REPLACE "/" "." subject "${subject}")
        add_test(NAME scenario.${subject}
            COMMAND tablio_scenarios "${tests_dir}/scenarios/${scenario}")
        set_tests_properties(scenario.${subject} PROPERTIES
            LABELS scenario TIMEOUT 60 ENVIRONMENT "${test_environment}")
    endforeach()
else()
    message(STATUS "Tablio: no sources in tests/runner/, no scenario tests")
endif()

# ---- qt ----------------------------------------------------------------------

if(TARGET tablio_qt)
    file(GLOB_RECURSE qt_test_sources CONFIGURE_DEPENDS tests/qt/*.cpp tests/qt/*.h)
    if(qt_test_sources MATCHES "\\.cpp")
        find_package(Qt6 6.2 REQUIRED COMPONENTS Test)
        add_executable(tablio_qt_tests ${qt_test_sources})
        set_target_properties(tablio_qt_tests PROPERTIES AUTOMOC ON)
        target_include_directories(tablio_qt_tests PRIVATE frontends/qt)
        # Without gtest_main: tests/qt/ has a main() that makes the QApplication.
        target_link_libraries(tablio_qt_tests
            PRIVATE tablio_test_support Tablio::Qt GTest::gtest Qt6::Test)
        tablio_compile_settings(tablio_qt_tests)
        set_target_properties(tablio_qt_tests PROPERTIES
            CROSSCOMPILING_EMULATOR
            "${CMAKE_COMMAND};-E;env;QT_QPA_PLATFORM=offscreen;${test_environment}")
        gtest_discover_tests(tablio_qt_tests
            TEST_PREFIX qt.
            DISCOVERY_TIMEOUT 60
            PROPERTIES LABELS qt TIMEOUT 120)
    else()
        message(STATUS "Tablio: no sources in tests/qt/, no Qt tests")
    endif()
endif()

# ---- scenario, through the widget --------------------------------------------

# The same files as above; keys and clicks are native events.
file(GLOB qt_runner_sources CONFIGURE_DEPENDS tests/qt_runner/*.cpp)
if(TARGET tablio_qt AND qt_runner_sources)
    find_package(Qt6 6.2 REQUIRED COMPONENTS Test)
    add_executable(tablio_qt_scenarios ${qt_runner_sources})
    target_link_libraries(tablio_qt_scenarios
        PRIVATE tablio_test_support Tablio::Testing Tablio::Qt Qt6::Test)
    tablio_compile_settings(tablio_qt_scenarios)
    foreach(scenario IN LISTS scenarios)
        string(REGEX REPLACE "\\.scenario$" "" subject "${scenario}")
        string(REPLACE "/" "." subject "${subject}")
        add_test(NAME qt_scenario.${subject}
            COMMAND tablio_qt_scenarios "${tests_dir}/scenarios/${scenario}")
        set_tests_properties(qt_scenario.${subject} PROPERTIES
            LABELS qt TIMEOUT 180
            ENVIRONMENT "QT_QPA_PLATFORM=offscreen;${test_environment}")
    endforeach()
endif()

# ---- window ------------------------------------------------------------------

# Helper scripts of the window tests stand in a directory below and are no tests.
file(GLOB window_tests CONFIGURE_DEPENDS tests/window/*.sh)
find_program(TABLIO_XVFB Xvfb)
find_program(TABLIO_XDOTOOL xdotool)
mark_as_advanced(TABLIO_XVFB TABLIO_XDOTOOL)
if(NOT TARGET tablio_demo OR NOT window_tests)
    message(STATUS "Tablio: no demo or nothing in tests/window/, no window tests")
elseif(NOT TABLIO_XVFB OR NOT TABLIO_XDOTOOL)
    message(STATUS "Tablio: no Xvfb or no xdotool here, no window tests")
else()
    # Once more through a real window: focus and keys can differ from the offscreen platform.
    if(TARGET tablio_qt_scenarios)
        list(TRANSFORM scenarios PREPEND "${tests_dir}/scenarios/" OUTPUT_VARIABLE scenario_files)
        add_test(NAME window.scenarios
            COMMAND "${CMAKE_CURRENT_SOURCE_DIR}/scripts/with-display"
                $<TARGET_FILE:tablio_qt_scenarios> ${scenario_files})
        set_tests_properties(window.scenarios PROPERTIES
            LABELS window TIMEOUT 300 RUN_SERIAL ON
            ENVIRONMENT "QT_QPA_PLATFORM=xcb;${test_environment}")
    endif()
    # What a scroll moves are device pixels, which the offscreen platform has one of a pixel.
    if(TARGET tablio_qt_tests)
        add_test(NAME window.scrolled_screen
            COMMAND "${CMAKE_CURRENT_SOURCE_DIR}/scripts/with-display"
                $<TARGET_FILE:tablio_qt_tests> --gtest_filter=Painting.TheScreen*)
        set_tests_properties(window.scrolled_screen PROPERTIES
            LABELS window TIMEOUT 60
            ENVIRONMENT "QT_QPA_PLATFORM=xcb;QT_SCALE_FACTOR=2;${test_environment}")
    endif()
    foreach(script IN LISTS window_tests)
        get_filename_component(subject "${script}" NAME_WE)
        add_test(NAME window.${subject}
            COMMAND "${CMAKE_CURRENT_SOURCE_DIR}/scripts/with-display" bash "${script}")
        # Serial: they time what a user would see, on machines with two cores.
        set_tests_properties(window.${subject} PROPERTIES
            LABELS window TIMEOUT 180 RUN_SERIAL ON
            ENVIRONMENT "TABLIO_DEMO=$<TARGET_FILE:tablio_demo>;${test_environment}")
    endforeach()
endif()

# ---- designer ----------------------------------------------------------------

if(TARGET tablio_qt)
    include(cmake/TablioDesignerTests.cmake)
endif()

# ---- package -----------------------------------------------------------------

# An instrumented library would force its sanitizers on the outside project.
if(TABLIO_INSTALL AND NOT TABLIO_SANITIZE)
    add_test(NAME package.installed_and_used_from_outside
        COMMAND "${CMAKE_COMMAND}"
            "-DBUILD_DIR=${CMAKE_CURRENT_BINARY_DIR}"
            "-DWORK_DIR=${CMAKE_CURRENT_BINARY_DIR}/package_test"
            "-DOUTSIDE_DIR=${tests_dir}/package/outside"
            "-DCONFIG=$<CONFIG>"
            "-DGENERATOR=${CMAKE_GENERATOR}"
            "-DCXX=${CMAKE_CXX_COMPILER}"
            "-DLAUNCHER=$<$<BOOL:${TABLIO_CCACHE}>:${TABLIO_CCACHE}>"
            "-DVERSION=${PROJECT_VERSION}"
            "-DWITH_QT=$<TARGET_EXISTS:tablio_qt>"
            -P "${tests_dir}/package/run.cmake")
    set_tests_properties(package.installed_and_used_from_outside PROPERTIES
        LABELS package TIMEOUT 300)
endif()
