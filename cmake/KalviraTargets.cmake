# The layers as libraries. Sources are globbed with CONFIGURE_DEPENDS: a layer is all files of its
# folder, and a file that is forgotten in a list cannot exist.

option(KALVIRA_PCH "Precompile the headers of the libraries that we use" OFF)
set(pch_std <algorithm> <array> <chrono> <cmath> <filesystem> <functional> <map> <memory> <optional>
    <set> <span> <sstream> <string> <string_view> <variant> <vector> <tl/expected.hpp>)
set(pch_pure ${pch_std})
set(pch_ui ${pch_std} <QtWidgets>)
set(pch_test ${pch_std} <gmock/gmock.h>)
set(pch_ui_test ${pch_ui} <QtTest> <gmock/gmock.h>)

# kalvira_precompile(TARGET KIND): gives TARGET the precompiled headers of KIND, which are none of ours:
# what a file of ours forgets to include of those, builds without them and tools/lint tell. A compiler
# cache does better without: it would find nothing again after the next precompilation.
function(kalvira_precompile target kind)
  if(NOT KALVIRA_PCH OR CMAKE_CXX_COMPILER_LAUNCHER)
    return()
  endif()
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # It forgets that precompiled templates stand in a system's header, and warns of their insides.
    target_compile_options(${target} PRIVATE -Wno-array-bounds -Wno-dangling-pointer
      -Wno-free-nonheap-object -Wno-nonnull -Wno-use-after-free)
  endif()
  get_property(first GLOBAL PROPERTY KALVIRA_PCH_${kind})
  if(first)
    target_precompile_headers(${target} REUSE_FROM ${first})
  else()
    target_precompile_headers(${target} PRIVATE ${pch_${kind}})
    set_property(GLOBAL PROPERTY KALVIRA_PCH_${kind} ${target})
  endif()
endfunction()

# kalvira_headers(TARGET header...): lets whoever links TARGET include these headers, spelled from
# src/ on ("base/Money.h"). The whole of src/ is on nobody's path: TARGET has a folder of its own in the
# build folder, with a header that includes the real one for each of these and no other. So an include
# of a layer that is not linked does not compile, and messages and tools name the real files.
function(kalvira_headers target)
  set(root ${CMAKE_BINARY_DIR}/include/${target})
  file(GLOB_RECURSE outdated ${root}/*.h)
  foreach(header ${ARGN})
    file(RELATIVE_PATH spelled ${CMAKE_CURRENT_SOURCE_DIR} ${header})
    # Relative, so that a compiler's cache finds the same text in every working copy.
    get_filename_component(place ${root}/${spelled} DIRECTORY)
    file(RELATIVE_PATH target_header ${place} ${header})
    file(CONFIGURE OUTPUT ${root}/${spelled} CONTENT "#include \"@target_header@\"\n" @ONLY)
    list(REMOVE_ITEM outdated ${root}/${spelled})
  endforeach()
  if(outdated)
    file(REMOVE ${outdated})
  endif()
  get_target_property(type ${target} TYPE)
  set(scope PUBLIC)
  if(type STREQUAL INTERFACE_LIBRARY)
    set(scope INTERFACE)
  endif()
  target_include_directories(${target} ${scope} $<BUILD_INTERFACE:${root}>)
endfunction()

# kalvira_library(NAME DEPENDS lib...): pure C++, never links Qt, so a Qt include does not compile.
# Headers in the folder itself are for everyone who links NAME; those in its subfolders are its own:
# only NAME_internals, for its tests and tools, lets others include them.
function(kalvira_library name)
  cmake_parse_arguments(ARG "" "" "DEPENDS" ${ARGN})
  set(folder ${CMAKE_CURRENT_SOURCE_DIR}/${name})
  file(GLOB headers CONFIGURE_DEPENDS ${folder}/*.h)
  file(GLOB_RECURSE own_headers CONFIGURE_DEPENDS ${folder}/*.h)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${folder}/*.cpp)
  list(REMOVE_ITEM own_headers ${headers})
  list(FILTER own_headers EXCLUDE REGEX "/${name}/ui/")
  list(FILTER sources EXCLUDE REGEX "/${name}/ui/")
  add_library(${name} STATIC ${sources} ${headers} ${own_headers})
  set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
  kalvira_headers(${name} ${headers})
  target_link_libraries(${name} PUBLIC $<BUILD_INTERFACE:project_options> ${ARG_DEPENDS})
  kalvira_precompile(${name} pure)
  if(own_headers)
    add_library(${name}_internals INTERFACE)
    kalvira_headers(${name}_internals ${own_headers})
    target_link_libraries(${name} PRIVATE $<BUILD_INTERFACE:${name}_internals>)
  endif()
endfunction()

# kalvira_ui_library(NAME FOLDER folder DEPENDS lib...): windows, Qt Widgets.
function(kalvira_ui_library name)
  cmake_parse_arguments(ARG "" "FOLDER" "DEPENDS" ${ARGN})
  file(GLOB headers CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${ARG_FOLDER}/*.h)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${ARG_FOLDER}/*.cpp)
  add_library(${name} STATIC ${sources} ${headers})
  set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX AUTOMOC ON)
  target_compile_definitions(${name} PUBLIC QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII
                             QT_NO_KEYWORDS)
  kalvira_headers(${name} ${headers})
  target_link_libraries(${name} PUBLIC project_options ${ARG_DEPENDS} Qt6::Widgets
                        Qt6::PrintSupport)
  kalvira_precompile(${name} ui)
endfunction()

# kalvira_test(NAME FOLDER folder DEPENDS lib... [UI]): one program per layer, one ctest entry.
function(kalvira_test name)
  cmake_parse_arguments(ARG "UI" "FOLDER;TIMEOUT" "DEPENDS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${ARG_FOLDER}/*.cpp)
  if(NOT sources)
    return()
  endif()
  add_executable(${name} ${sources})
  target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE ${ARG_DEPENDS} GTest::gmock)
  target_compile_definitions(${name} PRIVATE
    KALVIRA_TEST_DATA="${CMAKE_SOURCE_DIR}/tests/data" KALVIRA_GOLDEN="${CMAKE_SOURCE_DIR}/tests/golden"
    KALVIRA_JET_FILES="${KALVIRA_JET_FILES}" KALVIRA_BIN="${CMAKE_BINARY_DIR}/bin"
    KALVIRA_TEST_SOURCES="${CMAKE_SOURCE_DIR}/tests"
    KALVIRA_NODE_MODULES="${CMAKE_SOURCE_DIR}/build/node")
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 300)
  endif()
  if(KALVIRA_SANITIZERS)
    math(EXPR ARG_TIMEOUT "3 * ${ARG_TIMEOUT}")
  endif()
  if(ARG_UI)
    kalvira_precompile(${name} ui_test)
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_link_libraries(${name} PRIVATE ui_test_support Qt6::Test)
    if(TARGET Qt6::QOffscreenIntegrationPlugin)
      qt_import_plugins(${name} INCLUDE Qt6::QOffscreenIntegrationPlugin)  # a static Qt
    endif()
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8")
  else()
    kalvira_precompile(${name} test)
    target_link_libraries(${name} PRIVATE test_support GTest::gmock_main)
    add_test(NAME ${name} COMMAND ${name})
    # The independent readers take umlauts in their arguments only where the locale has them.
    set_tests_properties(${name} PROPERTIES ENVIRONMENT "LC_ALL=C.UTF-8")
  endif()
  set_tests_properties(${name} PROPERTIES TIMEOUT ${ARG_TIMEOUT})
endfunction()
