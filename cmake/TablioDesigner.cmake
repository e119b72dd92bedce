# The plug-in that puts the widget into Qt Designer, and into programs that load
# forms at run time. It needs Qt's Designer library; without one it is left out.
#
# It is built in a directory plugins/designer, so that QT_PLUGIN_PATH can name
# the directory plugins.

option(TABLIO_BUILD_DESIGNER "Build the Qt Designer plug-in where Qt Designer's library is found"
    ${PROJECT_IS_TOP_LEVEL})
set(TABLIO_QT_PLUGIN_DIR "${CMAKE_INSTALL_LIBDIR}/qt6/plugins" CACHE STRING
    "Where the Designer plug-in is installed: Qt's plug-in directory, or one that QT_PLUGIN_PATH names")
mark_as_advanced(TABLIO_QT_PLUGIN_DIR)

if(NOT TABLIO_BUILD_DESIGNER OR NOT TARGET tablio_qt)
    return()
endif()
find_package(Qt6 6.2 QUIET OPTIONAL_COMPONENTS Designer UiPlugin)
if(NOT TARGET Qt6::Designer OR NOT TARGET Qt6::UiPlugin)
    message(STATUS "Tablio: no Qt Designer library here, the Designer plug-in is not built")
    return()
endif()

file(GLOB designer_sources CONFIGURE_DEPENDS frontends/qt/designer/*.cpp frontends/qt/designer/*.h)
add_library(tablio_designer MODULE ${designer_sources})
set_target_properties(tablio_designer PROPERTIES
    AUTOMOC ON
    LIBRARY_OUTPUT_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}/plugins/designer")
target_include_directories(tablio_designer PRIVATE frontends/qt src)
target_link_libraries(tablio_designer PRIVATE Tablio::Qt Qt6::Designer Qt6::UiPlugin)
tablio_compile_settings(tablio_designer)
# A program that has the widget linked in and loads this has two of them, which must not meet.
if(NOT MSVC AND NOT APPLE)
    target_link_options(tablio_designer PRIVATE "LINKER:--exclude-libs,ALL")
endif()

if(TABLIO_INSTALL)
    install(TARGETS tablio_designer LIBRARY DESTINATION "${TABLIO_QT_PLUGIN_DIR}/designer")
endif()
