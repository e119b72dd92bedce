# How everything of ours is compiled: the language level, the warnings, the
# sanitizers. Whether a warning is an error is the builder's choice
# (CMAKE_COMPILE_WARNING_AS_ERROR, set by our presets), so that a foreign
# compiler's new warning never breaks a user's build.

# Sanitizers go on the whole directory: a mix of instrumented and plain objects
# reports container overflows that are none.
if(TABLIO_SANITIZE)
    add_compile_options(
        -fsanitize=${TABLIO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${TABLIO_SANITIZE})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # The instrumentation itself makes GCC see uninitialised reads.
        add_compile_options(-Wno-maybe-uninitialized)
    endif()
endif()

function(tablio_compile_settings target)
    target_compile_features(${target} PUBLIC cxx_std_20)
    set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
    if(NOT EMSCRIPTEN)
        # A host may put the static libraries into a plug-in.
        set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE ON)
    endif()
    if(MSVC)
        target_compile_options(${target} PRIVATE /W4 /utf-8)
    else()
        target_compile_options(${target} PRIVATE
            -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual)
    endif()
    if(CMAKE_CXX_CLANG_TIDY)
        # What passed under other checks is looked at again.
        get_target_property(sources ${target} SOURCES)
        set_property(SOURCE ${sources}
            APPEND PROPERTY OBJECT_DEPENDS "${PROJECT_SOURCE_DIR}/.clang-tidy")
        # What moc writes is not ours to change. A list of checks must name one.
        get_target_property(moc ${target} AUTOMOC)
        if(moc)
            file(WRITE "${CMAKE_CURRENT_BINARY_DIR}/${target}_autogen/.clang-tidy"
                "Checks: '-*,misc-unused-alias-decls'\n")
        endif()
    endif()
endfunction()
