# What every folder of the house has in common.

add_library(terva_options INTERFACE)
target_compile_options(terva_options INTERFACE -Wall -Wextra)
if(TERVA_SANITIZE)
  target_compile_options(terva_options INTERFACE -fsanitize=address,undefined
    -fno-sanitize-recover=undefined -fno-omit-frame-pointer -g1)
  target_link_options(terva_options INTERFACE -fsanitize=address,undefined)
endif()

# terva_library(<target> LEVEL <n> [LINKS <target>...])
# One static library from the sources that stand directly in this folder.
# LEVEL is the folder's place in the house: a folder links only lower levels,
# or its own level along an arrow that LINKS names. A folder without sources
# yet is an interface library of the same name.
function(terva_library target)
  cmake_parse_arguments(ARG "" "LEVEL" "LINKS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS *.cpp)
  file(GLOB headers CONFIGURE_DEPENDS *.h)
  if(sources)
    add_library(${target} STATIC ${sources} ${headers})
    set_target_properties(${target} PROPERTIES AUTOMOC ON)
    set(scope PUBLIC)
  else()
    add_library(${target} INTERFACE)
    set(scope INTERFACE)
  endif()
  target_include_directories(${target} ${scope} ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(${target} ${scope} terva_options ${ARG_LINKS})
  set_property(GLOBAL APPEND PROPERTY TERVA_LEVELS "${target}=${ARG_LEVEL}")
endfunction()

# terva_test(<program> [LINKS <target>...])
# One GoogleTest program from the sources of this folder, known to ctest under
# its name. Tests run without a window, in UTC.
function(terva_test program)
  cmake_parse_arguments(ARG "" "" "LINKS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
  if(NOT sources)
    return()
  endif()
  add_executable(${program} ${sources})
  set_target_properties(${program} PROPERTIES AUTOMOC ON)
  target_include_directories(${program} PRIVATE ${CMAKE_SOURCE_DIR}/tests ${CMAKE_CURRENT_SOURCE_DIR})
  target_compile_definitions(${program} PRIVATE TERVA_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
  target_link_libraries(${program} PRIVATE ${ARG_LINKS} test_support GTest::gtest)
  add_test(NAME ${program} COMMAND ${program})
  set(environment "QT_QPA_PLATFORM=offscreen;TZ=UTC;LC_ALL=C.UTF-8")
  if(TERVA_SANITIZE)
    list(APPEND environment "LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/support/lsan.supp:print_suppressions=0")
  endif()
  set_tests_properties(${program} PROPERTIES TIMEOUT 900 ENVIRONMENT "${environment}")
endfunction()
