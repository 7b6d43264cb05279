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

# dosmara_test(<name> LABEL unit|forms|system|fuzz SOURCES ... [LINK ...] [PROPERTIES ...])
# A GoogleTest executable; each of its tests becomes a CTest entry with the label. PROPERTIES go to every entry.
function(dosmara_test name)
  cmake_parse_arguments(arg "" "LABEL" "SOURCES;LINK;PROPERTIES" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${arg_LINK} GTest::gtest)
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST
    PROPERTIES LABELS ${arg_LABEL} TIMEOUT 120
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen" ${arg_PROPERTIES})
endfunction()
