# What goes onto a machine, in the shape that a build folder has.
install(TARGETS tesserae-studio RUNTIME DESTINATION bin)
install(TARGETS nrvcore nrvui qpbasic vxui LIBRARY DESTINATION ${tesserae_libraries})
# One folder that a host can take: the module with its own resources.
install(TARGETS TesseraeUI LIBRARY DESTINATION ${tesserae_plugin})
install(DIRECTORY resources/layouts resources/strings DESTINATION ${tesserae_plugin})
install(DIRECTORY resources/host DESTINATION ${tesserae_share})
install(DIRECTORY ${CMAKE_BINARY_DIR}/${tesserae_share}/translations DESTINATION ${tesserae_share})
