# The tests of the property pages and of the Qt Designer plug-in, label designer:
#   tests/designer/run_time/   the pages of a widget that runs; needs nothing of Designer
#   tests/designer/*.cpp       Designer's own form editor in process, on an offscreen platform
#   tests/designer/uic_form/   a form made by Designer, as uic makes a program of it
#   tests/designer/window/     the Designer program in a real window on a private display
# Where what they need is not installed, a test stands for them that says so and is skipped.

function(tablio_skipped_test name reason)
    message(STATUS "Tablio: ${reason}, no ${name} tests")
    add_test(NAME ${name} COMMAND "${CMAKE_COMMAND}" -E echo "SKIPPED: ${reason}")
    set_tests_properties(${name} PROPERTIES LABELS designer SKIP_REGULAR_EXPRESSION "SKIPPED:")
endfunction()

find_package(Qt6 6.2 REQUIRED COMPONENTS Test)
add_executable(tablio_property_pages_tests
    tests/designer/run_time/property_pages_test.cpp tests/qt/main.cpp)
target_link_libraries(tablio_property_pages_tests
    PRIVATE tablio_test_support Tablio::Qt GTest::gtest Qt6::Test)
tablio_compile_settings(tablio_property_pages_tests)
set_target_properties(tablio_property_pages_tests PROPERTIES
    CROSSCOMPILING_EMULATOR
    "${CMAKE_COMMAND};-E;env;QT_QPA_PLATFORM=offscreen;${test_environment}")
gtest_discover_tests(tablio_property_pages_tests
    TEST_PREFIX property_pages.
    DISCOVERY_TIMEOUT 60
    PROPERTIES LABELS designer TIMEOUT 120)

if(NOT TARGET tablio_designer)
    tablio_skipped_test(designer "no Qt Designer library here (Debian: qt6-tools-dev, libqt6opengl6-dev)")
    return()
endif()
find_package(Qt6 6.2 QUIET OPTIONAL_COMPONENTS Designer UiTools)
# Qt's own package for this library wants headers that no distribution installs.
find_library(TABLIO_DESIGNER_COMPONENTS Qt6DesignerComponents)
mark_as_advanced(TABLIO_DESIGNER_COMPONENTS)

if(TABLIO_DESIGNER_COMPONENTS AND TARGET Qt6::UiTools)
    add_executable(tablio_uic_form tests/designer/uic_form/main.cpp tests/designer/uic_form/order.ui)
    set_target_properties(tablio_uic_form PROPERTIES AUTOUIC ON)
    target_link_libraries(tablio_uic_form PRIVATE Tablio::Qt)
    tablio_compile_settings(tablio_uic_form)

    file(GLOB designer_test_sources CONFIGURE_DEPENDS tests/designer/*.cpp tests/designer/*.h)
    add_executable(tablio_designer_tests ${designer_test_sources})
    add_dependencies(tablio_designer_tests tablio_designer tablio_uic_form)
    target_compile_definitions(tablio_designer_tests PRIVATE
        "TABLIO_PLUGINS=\"${CMAKE_CURRENT_BINARY_DIR}/plugins\""
        "TABLIO_FORM=\"${CMAKE_CURRENT_SOURCE_DIR}/tests/designer/uic_form/order.ui\""
        "TABLIO_DEMO_FORM=\"${CMAKE_CURRENT_SOURCE_DIR}/examples/order_entry/order_window.ui\""
        "TABLIO_UIC_FORM=\"$<TARGET_FILE:tablio_uic_form>\"")
    target_link_libraries(tablio_designer_tests PRIVATE
        GTest::gtest Qt6::Designer ${TABLIO_DESIGNER_COMPONENTS} Qt6::UiTools Qt6::Test)
    tablio_compile_settings(tablio_designer_tests)
    set_target_properties(tablio_designer_tests PROPERTIES
        CROSSCOMPILING_EMULATOR
        "${CMAKE_COMMAND};-E;env;QT_QPA_PLATFORM=offscreen;${test_environment}")
    gtest_discover_tests(tablio_designer_tests
        TEST_PREFIX designer.
        DISCOVERY_TIMEOUT 60
        PROPERTIES LABELS designer TIMEOUT 120)
else()
    tablio_skipped_test(designer "no Qt Designer components or form loader here (Debian: qt6-tools-dev)")
endif()

# An instrumented plug-in does not load into a program that is none.
find_program(TABLIO_QT_DESIGNER NAMES designer6 designer-qt6 designer
    HINTS /usr/lib/qt6/bin NO_CMAKE_SYSTEM_PATH)
mark_as_advanced(TABLIO_QT_DESIGNER)
if(NOT TABLIO_QT_DESIGNER OR NOT TABLIO_XVFB OR NOT TABLIO_XDOTOOL OR TABLIO_SANITIZE)
    tablio_skipped_test(designer_window
        "no Designer program (Debian: designer-qt6), Xvfb or xdotool here, or a build with sanitizers")
else()
    add_test(NAME designer_window.pages
        COMMAND "${CMAKE_CURRENT_SOURCE_DIR}/scripts/with-display" bash
            "${tests_dir}/designer/window/pages.sh")
    set_tests_properties(designer_window.pages PROPERTIES
        LABELS designer TIMEOUT 180 RUN_SERIAL ON
        ENVIRONMENT "TABLIO_DESIGNER=${TABLIO_QT_DESIGNER};QT_PLUGIN_PATH=${CMAKE_CURRENT_BINARY_DIR}/plugins")
endif()
