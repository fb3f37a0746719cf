# The compiler settings of every target.
add_library(tesserae_settings INTERFACE)
target_include_directories(tesserae_settings INTERFACE ${PROJECT_SOURCE_DIR})
target_include_directories(tesserae_settings SYSTEM INTERFACE ${Boost_INCLUDE_DIRS})
target_compile_options(tesserae_settings INTERFACE -Wall -Wextra -Wpedantic
  -Wnon-virtual-dtor -Woverloaded-virtual)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # dlclose never unmaps an image with unique symbols, but the module must be unmapped. No program
  # replaces functions of our libraries, so their internal calls need no indirection.
  target_compile_options(tesserae_settings INTERFACE -fno-gnu-unique -fno-semantic-interposition)
  if(CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # False positives of GCC 12 in std::string.
    target_compile_options(tesserae_settings INTERFACE -Wno-restrict)
  endif()
endif()
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  # Standard C++; clang 14 has it off by default.
  target_compile_options(tesserae_settings INTERFACE -fsized-deallocation)
endif()
if(TESSERAE_SANITIZE)
  target_compile_options(tesserae_settings INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(tesserae_settings INTERFACE -fsanitize=address,undefined)
  if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    # GCC defines it.
    target_compile_definitions(tesserae_settings INTERFACE __SANITIZE_ADDRESS__)
  endif()
endif()
if(TESSERAE_FUZZ)
  target_compile_options(tesserae_settings INTERFACE -fsanitize=fuzzer-no-link)
endif()

# tesserae_library(NAME SHARED|OBJECT|STATIC SOURCES ... LINKS ...)
function(tesserae_library name kind)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} ${kind} ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC tesserae_settings ${ARG_LINKS})
  set_target_properties(${name} PROPERTIES INSTALL_RPATH ${origin})
endfunction()

# tesserae_test(NAME SOURCES ... LINKS ...): a GoogleTest program as one ctest test.
function(tesserae_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE tesserae_settings ${ARG_LINKS} GTest::gtest_main)
  # Saves compile time. The code under test is in libraries, which keep their optimisation.
  target_compile_options(${name} PRIVATE -O0)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LANGUAGE=en")
endfunction()
