# SPDX-License-Identifier: GPL-3.0-or-later
# Helpers for the folders' own CMakeLists: one static library per source folder, one test executable per
# test folder.

# dosmara_library(<name> SOURCES ... [LINK ...])
# A static library whose headers are included from the root of src/, as "store/parameter_table.h".
function(dosmara_library name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${arg_LINK})
endfunction()

# dosmara_precompile(<name> header ...)
# Precompiles headers that most sources of a target include. They are included by name all the same: without
# this the sources compile as well, only more slowly.
function(dosmara_precompile name)
  target_precompile_headers(${name} PRIVATE ${ARGN})
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(${name} PRIVATE -fpch-preprocess)  # for ccache
  endif()
endfunction()

# dosmara_test(<name> LABEL unit|forms|system|fuzz SOURCES ... [LINK ...] [PROPERTIES ...] [WIDGETS])
# A GoogleTest executable; each of its tests becomes a CTest entry with the label. PROPERTIES go to every entry.
# WIDGETS says that most of its sources include the toolkit's widgets.
function(dosmara_test name)
  cmake_parse_arguments(arg "WIDGETS" "LABEL" "SOURCES;LINK;PROPERTIES" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  if(arg_WIDGETS)
    dosmara_precompile(${name} <gtest/gtest.h> <QApplication> <QGridLayout> <QLabel> <QLineEdit>
      <QMainWindow> <QMdiArea> <QTest> <QTimer> <memory> <string> <vector>
      ${PROJECT_SOURCE_DIR}/tests/support/print_qt.h)
  endif()
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${arg_LINK} GTest::gtest)
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST
    PROPERTIES LABELS ${arg_LABEL} TIMEOUT 120
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen" ${arg_PROPERTIES})
endfunction()

# dosmara_fuzz(<name> SOURCES ... [LINK ...] [RUNS n])
# A fuzz target, a function LLVMFuzzerTestOneInput. With DOSMARA_FUZZ it becomes a libFuzzer program, otherwise
# one with a small driver of its own that replays the same mutations each time. Either way a short run of
# RUNS inputs is a CTest entry. Files in tests/fuzz/corpus/<name>/ are the seeds, if there are any.
function(dosmara_fuzz name)
  cmake_parse_arguments(arg "" "RUNS" "SOURCES;LINK" ${ARGN})
  if(NOT arg_RUNS)
    set(arg_RUNS 20000)
  endif()
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${arg_LINK})
  set(seeds ${PROJECT_SOURCE_DIR}/tests/fuzz/corpus/${name})
  if(NOT IS_DIRECTORY ${seeds})
    set(seeds "")
  endif()
  if(DOSMARA_FUZZ)
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
    file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/corpus/${name})
    # The first folder takes the inputs that libFuzzer finds.
    add_test(NAME fuzz.${name}
      COMMAND ${name} -runs=${arg_RUNS} -max_total_time=10 -seed=1 ${CMAKE_BINARY_DIR}/corpus/${name} ${seeds})
  else()
    target_sources(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests/fuzz/driver.cpp)
    add_test(NAME fuzz.${name} COMMAND ${name} ${arg_RUNS} ${seeds})
  endif()
  set_tests_properties(fuzz.${name} PROPERTIES LABELS fuzz TIMEOUT 120
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()
