# The layers as libraries. Sources are globbed with CONFIGURE_DEPENDS: a layer is all files of its
# folder, and a file that is forgotten in a list cannot exist.

# kalvira_library(NAME DEPENDS lib...): pure C++, never links Qt, so a Qt include does not compile.
function(kalvira_library name)
  cmake_parse_arguments(ARG "" "" "DEPENDS" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.cpp
       ${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.h)
  list(FILTER sources EXCLUDE REGEX "/${name}/ui/")
  add_library(${name} STATIC ${sources})
  set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
  target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC project_options ${ARG_DEPENDS})
endfunction()

# kalvira_ui_library(NAME FOLDER folder DEPENDS lib...): windows, Qt Widgets.
function(kalvira_ui_library name)
  cmake_parse_arguments(ARG "" "FOLDER" "DEPENDS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${ARG_FOLDER}/*.cpp
       ${CMAKE_CURRENT_SOURCE_DIR}/${ARG_FOLDER}/*.h)
  add_library(${name} STATIC ${sources})
  set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX AUTOMOC ON)
  target_compile_definitions(${name} PUBLIC QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII
                             QT_NO_KEYWORDS)
  target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC project_options ${ARG_DEPENDS} Qt6::Widgets
                        Qt6::PrintSupport)
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
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_link_libraries(${name} PRIVATE ui_test_support Qt6::Test)
    if(TARGET Qt6::QOffscreenIntegrationPlugin)
      qt_import_plugins(${name} INCLUDE Qt6::QOffscreenIntegrationPlugin)  # a static Qt
    endif()
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8")
  else()
    target_link_libraries(${name} PRIVATE test_support GTest::gmock_main)
    add_test(NAME ${name} COMMAND ${name})
    # The independent readers take umlauts in their arguments only where the locale has them.
    set_tests_properties(${name} PROPERTIES ENVIRONMENT "LC_ALL=C.UTF-8")
  endif()
  set_tests_properties(${name} PROPERTIES TIMEOUT ${ARG_TIMEOUT})
endfunction()
