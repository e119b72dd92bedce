# Target tablio_header_check: each public header is compiled alone, and twice in
# the same file, so that a missing include or guard is our error and not a
# host's. Not part of the default build; scripts/check-headers builds it.

function(_tablio_header_check part base)
    file(GLOB_RECURSE headers RELATIVE "${base}" CONFIGURE_DEPENDS "${base}/*.h")
    set(sources)
    foreach(header IN LISTS headers)
        set(source "${CMAKE_CURRENT_BINARY_DIR}/header_check/${header}.cpp")
        file(CONFIGURE OUTPUT "${source}" CONTENT "#include <@header@>\n#include <@header@>\n" @ONLY)
        list(APPEND sources "${source}")
    endforeach()
    if(NOT sources)
        return()
    endif()
    add_library(tablio_header_check_${part} OBJECT EXCLUDE_FROM_ALL ${sources})
    target_link_libraries(tablio_header_check_${part} PRIVATE tablio_${part})
    tablio_compile_settings(tablio_header_check_${part})
    add_dependencies(tablio_header_check tablio_header_check_${part})
endfunction()

add_custom_target(tablio_header_check)
if(TARGET tablio_core)
    _tablio_header_check(core "${CMAKE_CURRENT_SOURCE_DIR}/include")
endif()
if(TARGET tablio_qt)
    _tablio_header_check(qt "${CMAKE_CURRENT_SOURCE_DIR}/frontends/qt/include")
endif()
