include(CMakePackageConfigHelpers)

# The module with its resources in one folder, and the libraries to which it binds.
install(TARGETS nrvcore nrvui qpbasic vxui
  LIBRARY DESTINATION ${tesserae_libraries} COMPONENT module)
install(TARGETS TesseraeUI LIBRARY DESTINATION ${tesserae_plugin} COMPONENT module)
install(DIRECTORY resources/layouts resources/strings
  DESTINATION ${tesserae_plugin} COMPONENT module)

# The programs, and the resources of their stand-in host.
install(TARGETS tesserae-check RUNTIME DESTINATION bin COMPONENT studio)
install(DIRECTORY resources/host ${PROJECT_BINARY_DIR}/${tesserae_share}/translations
  DESTINATION ${tesserae_share} COMPONENT studio)
if(TESSERAE_STUDIO)
  install(TARGETS tesserae-studio RUNTIME DESTINATION bin COMPONENT studio)
  install(TARGETS tesserae-picture-reader RUNTIME DESTINATION ${tesserae_libraries} COMPONENT studio)
endif()

# TesseraeUI::interface, the public headers for callers and hosts: after find_package(TesseraeUI), or with
# this project as a subproject. Their include paths are those of this tree.
set(headers mosaic/mosaic_suite.h platform/qpbasic/qpbasic.h platform/suites/host_suites.h
            platform/suites/message_names.h platform/suites/plugin_message.h
            platform/suites/result_code.h)
set(include ${CMAKE_INSTALL_INCLUDEDIR}/tesserae)
set(package share/cmake/TesseraeUI)
add_library(tesserae_interface INTERFACE)
add_library(TesseraeUI::interface ALIAS tesserae_interface)
set_target_properties(tesserae_interface PROPERTIES EXPORT_NAME interface)
target_compile_features(tesserae_interface INTERFACE cxx_std_14)
target_include_directories(tesserae_interface INTERFACE
  $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}> $<INSTALL_INTERFACE:${include}>)
foreach(header ${headers})
  cmake_path(GET header PARENT_PATH folder)
  install(FILES ${header} DESTINATION ${include}/${folder} COMPONENT dev)
endforeach()
install(TARGETS tesserae_interface EXPORT TesseraeUI)
install(EXPORT TesseraeUI DESTINATION ${package} COMPONENT dev
  NAMESPACE TesseraeUI:: FILE TesseraeUITargets.cmake)
configure_package_config_file(cmake/TesseraeUIConfig.cmake.in
  ${PROJECT_BINARY_DIR}/TesseraeUIConfig.cmake
  INSTALL_DESTINATION ${package} PATH_VARS tesserae_plugin
  NO_CHECK_REQUIRED_COMPONENTS_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/TesseraeUIConfigVersion.cmake
  COMPATIBILITY SameMajorVersion ARCH_INDEPENDENT)
install(FILES ${PROJECT_BINARY_DIR}/TesseraeUIConfig.cmake
              ${PROJECT_BINARY_DIR}/TesseraeUIConfigVersion.cmake
  DESTINATION ${package} COMPONENT dev)
