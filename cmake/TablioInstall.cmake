# Install rules and the package that find_package(Tablio) reads. Each component
# has its own export file: a host that asks for Core alone needs no Qt.

include(CMakePackageConfigHelpers)

set(tablio_package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/Tablio")
set(TABLIO_COMPONENTS)
foreach(component IN ITEMS Core Testing Qt QtSql QtTesting)
    if(TARGET Tablio::${component})
        list(APPEND TABLIO_COMPONENTS ${component})
        get_target_property(library Tablio::${component} ALIASED_TARGET)
        install(TARGETS ${library} EXPORT Tablio${component}Targets
            ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}"
            FILE_SET HEADERS DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
        install(EXPORT Tablio${component}Targets
            NAMESPACE Tablio:: DESTINATION "${tablio_package_dir}")
    endif()
endforeach()

if(TARGET Tablio::Testing)
    install(DIRECTORY tests/scenarios/ DESTINATION "${CMAKE_INSTALL_DATADIR}/tablio/scenarios"
        FILES_MATCHING PATTERN "*.scenario")
endif()

configure_package_config_file(
    "${CMAKE_CURRENT_LIST_DIR}/TablioConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/TablioConfig.cmake"
    INSTALL_DESTINATION "${tablio_package_dir}"
    NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(
    "${PROJECT_BINARY_DIR}/TablioConfigVersion.cmake"
    COMPATIBILITY SameMinorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/TablioConfig.cmake"
    "${PROJECT_BINARY_DIR}/TablioConfigVersion.cmake"
    DESTINATION "${tablio_package_dir}")
install(FILES LICENSE DESTINATION "${CMAKE_INSTALL_DOCDIR}")
