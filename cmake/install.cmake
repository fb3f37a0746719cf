include(CMakePackageConfigHelpers)

# What goes onto a machine, in the shape that a build folder has.
install(TARGETS tesserae-studio tesserae-check RUNTIME DESTINATION bin COMPONENT studio)
install(TARGETS tesserae-svg-reader RUNTIME DESTINATION ${tesserae_libraries} COMPONENT studio)
install(TARGETS nrvcore nrvui qpbasic vxui
  LIBRARY DESTINATION ${tesserae_libraries} COMPONENT studio)
# One folder that a host can take: the module with its own resources.
install(TARGETS TesseraeUI LIBRARY DESTINATION ${tesserae_plugin} COMPONENT studio)
install(DIRECTORY resources/layouts resources/strings
  DESTINATION ${tesserae_plugin} COMPONENT studio)
install(DIRECTORY resources/host ${CMAKE_BINARY_DIR}/${tesserae_share}/translations
  DESTINATION ${tesserae_share} COMPONENT studio)

# For whoever writes a caller or a host: find_package(TesseraeUI) and TesseraeUI::interface, the public
# headers alone. They are included as in this tree.
set(headers mosaic/mosaic_suite.h platform/qpbasic/qpbasic.h platform/suites/host_suites.h
            platform/suites/message_names.h platform/suites/plugin_message.h
            platform/suites/result_code.h)
set(package share/cmake/TesseraeUI)
add_library(interface INTERFACE)
target_compile_features(interface INTERFACE cxx_std_14)
target_sources(interface INTERFACE FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR} FILES ${headers})
install(TARGETS interface EXPORT TesseraeUI
  FILE_SET HEADERS DESTINATION include/tesserae COMPONENT dev)
install(EXPORT TesseraeUI DESTINATION ${package} COMPONENT dev
  NAMESPACE TesseraeUI:: FILE TesseraeUIConfig.cmake)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/TesseraeUIConfigVersion.cmake
  COMPATIBILITY SameMajorVersion ARCH_INDEPENDENT)
install(FILES ${CMAKE_BINARY_DIR}/TesseraeUIConfigVersion.cmake
  DESTINATION ${package} COMPONENT dev)
