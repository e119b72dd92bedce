# The benchmarks: a program a peer, all doing the work that bench/works.h says.
# scripts/bench runs them and compares. The tests run each once, small, so that
# they do not rot.

# All the programs that can be built here.
add_custom_target(bench)

function(tablio_add_bench peer directory)
    set(target bench_${peer})
    add_executable(${target} "bench/${directory}/${peer}.cpp")
    target_include_directories(${target} PRIVATE bench)
    target_link_libraries(${target} PRIVATE ${ARGN})
    tablio_compile_settings(${target})
    add_dependencies(bench ${target})
    if(TABLIO_BUILD_TESTS)
        add_test(NAME bench.${peer} COMMAND ${target} smoke)
        set_tests_properties(bench.${peer} PROPERTIES
            LABELS bench TIMEOUT 60 ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
    endif()
endfunction()

tablio_add_bench(core core Tablio::Core)
if(TARGET tablio_qt)
    find_package(Qt6 6.2 REQUIRED COMPONENTS Widgets)
    tablio_add_bench(tablio qt Tablio::Qt)
    tablio_add_bench(qtablewidget qt Qt6::Widgets)
    tablio_add_bench(qtableview qt Qt6::Widgets)
endif()

# Where it is installed, which scripts/bench sees to. It needs a display.
find_package(wxWidgets 3.2 QUIET COMPONENTS adv core base)
if(wxWidgets_FOUND)
    add_executable(bench_wxgrid bench/wx/wxgrid.cpp)
    target_include_directories(bench_wxgrid PRIVATE bench)
    target_include_directories(bench_wxgrid SYSTEM PRIVATE ${wxWidgets_INCLUDE_DIRS})
    target_compile_definitions(bench_wxgrid PRIVATE ${wxWidgets_DEFINITIONS})
    target_compile_options(bench_wxgrid PRIVATE ${wxWidgets_CXX_FLAGS})
    target_link_libraries(bench_wxgrid PRIVATE ${wxWidgets_LIBRARIES})
    tablio_compile_settings(bench_wxgrid)
    add_dependencies(bench bench_wxgrid)
endif()
if(TABLIO_BUILD_TESTS)
    find_program(TABLIO_XVFB Xvfb)
    mark_as_advanced(TABLIO_XVFB)
    # The toolkit keeps memory until the program ends, which a sanitizer reports.
    if(wxWidgets_FOUND AND TABLIO_XVFB AND NOT TABLIO_SANITIZE)
        add_test(NAME bench.wxgrid
            COMMAND "${CMAKE_CURRENT_SOURCE_DIR}/scripts/with-display"
                $<TARGET_FILE:bench_wxgrid> smoke)
        set_tests_properties(bench.wxgrid PROPERTIES LABELS bench TIMEOUT 60)
    else()
        add_test(NAME bench.wxgrid COMMAND "${CMAKE_COMMAND}" -E echo
            "SKIPPED: no wxWidgets (Debian: libwxgtk3.2-dev) or Xvfb here, or a build with sanitizers")
        set_tests_properties(bench.wxgrid PROPERTIES
            LABELS bench SKIP_REGULAR_EXPRESSION "SKIPPED:")
    endif()
endif()
