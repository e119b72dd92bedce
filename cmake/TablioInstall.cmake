# Install rules and the package that find_package(Tablio) reads. Each component
# has its own export file: a host that asks for Core alone needs no Qt.

include(CMakePackageConfigHelpers)

set(tablio_package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/Tablio")
set(TABLIO_COMPONENTS Core)

install(TARGETS tablio_core EXPORT TablioCoreTargets
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}")
install(DIRECTORY include/tablio
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" FILES_MATCHING PATTERN "*.h")

if(TARGET tablio_qt)
    list(APPEND TABLIO_COMPONENTS Qt)
    install(TARGETS tablio_qt EXPORT TablioQtTargets
        ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}")
    install(DIRECTORY frontends/qt/include/tablio
        DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" FILES_MATCHING PATTERN "*.h")
endif()

foreach(component IN LISTS TABLIO_COMPONENTS)
    install(EXPORT Tablio${component}Targets
        NAMESPACE Tablio:: DESTINATION "${tablio_package_dir}")
endforeach()

configure_package_config_file(
    "${CMAKE_CURRENT_LIST_DIR}/TablioConfig.cmake.in"
    "${CMAKE_CURRENT_BINARY_DIR}/TablioConfig.cmake"
    INSTALL_DESTINATION "${tablio_package_dir}"
    NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(
    "${CMAKE_CURRENT_BINARY_DIR}/TablioConfigVersion.cmake"
    COMPATIBILITY SameMinorVersion)
install(FILES
    "${CMAKE_CURRENT_BINARY_DIR}/TablioConfig.cmake"
    "${CMAKE_CURRENT_BINARY_DIR}/TablioConfigVersion.cmake"
    DESTINATION "${tablio_package_dir}")
install(FILES LICENSE DESTINATION "${CMAKE_INSTALL_DOCDIR}")
