# What every folder of the house has in common.

add_library(terva_options INTERFACE)
# Units of libraries and of programs are compiled alike, so that they can share
# precompiled headers; the toolkit asks for this code model in any case.
target_compile_options(terva_options INTERFACE -Wall -Wextra -fPIC)
if(TERVA_PRECOMPILED)
  # Of joined units the compiler takes each file for a header and warns of what only it can see.
  target_compile_options(terva_options INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-Wno-subobject-linkage>)
endif()
if(TERVA_SANITIZE)
  target_compile_options(terva_options INTERFACE -fsanitize=address,undefined
    -fno-sanitize-recover=undefined -fno-omit-frame-pointer -g1)
  target_link_options(terva_options INTERFACE -fsanitize=address,undefined)
endif()
if(TERVA_FUZZ)
  # The fuzzers see which code an input reaches; the engine itself is linked by the programs alone.
  target_compile_options(terva_options INTERFACE -fsanitize=fuzzer-no-link,address,undefined
    -fno-sanitize-recover=undefined -g1)
  target_link_options(terva_options INTERFACE -fsanitize=address,undefined)
endif()

# Tests spend their time in what they test, not in their own code.
set(TERVA_TEST_OPTIONS "")
if(CMAKE_BUILD_TYPE STREQUAL "Release" OR TERVA_SANITIZE)
  set(TERVA_TEST_OPTIONS -O0)
endif()

# Forms and the window wait for a person and for what they call: compiled with fewer passes their units take a
# quarter less of a build. What computes and draws is below them.
set(TERVA_FORM_OPTIONS "")
if(CMAKE_BUILD_TYPE STREQUAL "Release")
  set(TERVA_FORM_OPTIONS -O1)
endif()

include(${CMAKE_CURRENT_LIST_DIR}/Precompiled.cmake)

# terva_meta_objects(<target> <source>...)
# The toolkit's generator runs for targets whose sources ask for it: two edges and
# a unit less for each of the others. A folder's first Q_OBJECT in a file that was
# there before is seen at the next configuration (cmake --preset ...).
function(terva_meta_objects target)
  foreach(source IN LISTS ARGN)
    file(STRINGS ${source} asking REGEX "Q_(OBJECT|GADGET|NAMESPACE)" LIMIT_COUNT 1)
    if(asking)
      set_target_properties(${target} PROPERTIES AUTOMOC ON)
      return()
    endif()
  endforeach()
endfunction()

# terva_join(<target> [ALONE <file>...])
# Sixteen units of the target are compiled as one, so that their headers are read and the templates of the toolkit
# made once for all of them: half of the time of a build. Units whose own names stand in another unit of the folder
# too are compiled alone. The daily and the sanitizer preset compile every unit by itself.
function(terva_join target)
  cmake_parse_arguments(ARG "" "" "ALONE" ${ARGN})
  if(TERVA_PRECOMPILED)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 16)
    set_source_files_properties(${ARG_ALONE} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
  endif()
endfunction()

# terva_library(<target> LEVEL <n> [PLAIN] [LINKS <target>...] [ALONE <file>...])
# One static library from the sources that stand directly in this folder.
# LEVEL is the folder's place in the house: a folder links only lower levels,
# or its own level along an arrow that LINKS names. A folder without sources
# yet is an interface library of the same name. PLAIN says that the folder is
# standard C++ and shares no precompiled header.
function(terva_library target)
  cmake_parse_arguments(ARG "PLAIN" "LEVEL" "LINKS;ALONE" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS *.cpp)
  file(GLOB headers CONFIGURE_DEPENDS *.h)
  if(sources)
    add_library(${target} STATIC ${sources} ${headers})
    terva_meta_objects(${target} ${sources} ${headers})
    if(ARG_LEVEL GREATER_EQUAL 6)
      target_compile_options(${target} PRIVATE ${TERVA_FORM_OPTIONS})
      terva_precompile(${target} widgets)
    elseif(NOT ARG_PLAIN)
      terva_precompile(${target} core)
    endif()
    terva_join(${target} ALONE ${ARG_ALONE})
    set(scope PUBLIC)
  else()
    add_library(${target} INTERFACE)
    set(scope INTERFACE)
  endif()
  target_include_directories(${target} ${scope} ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(${target} ${scope} terva_options ${ARG_LINKS})
  set_property(GLOBAL APPEND PROPERTY TERVA_LEVELS "${target}=${ARG_LEVEL}")
endfunction()

# terva_test_in_zones(<program> <filter>)
# The program's tests that match the filter once more in zones whose clocks skip
# hours, and in one that is far away.
function(terva_test_in_zones program filter)
  foreach(zone Europe/Moscow Europe/Paris Asia/Yakutsk)
    string(REPLACE "/" "_" name ${program}_${zone})
    add_test(NAME ${name} COMMAND ${program} --gtest_filter=${filter})
    get_test_property(${program} ENVIRONMENT environment)
    string(REPLACE "TZ=UTC" "TZ=${zone}" environment "${environment}")
    set_tests_properties(${name} PROPERTIES TIMEOUT 300 ENVIRONMENT "${environment}")
  endforeach()
endfunction()

# The tests of a program that look at a form (takePicture) or say that they look,
# once more on screens of a larger scale, each in a process of its own. Whether all
# fits and nothing is cut off, takePicture tests (tests/support/looks.h).
function(terva_test_at_scales program sources)
  set(looking)
  foreach(source IN LISTS sources)
    file(STRINGS ${source} lines REGEX "^TEST|takePicture\\(|AtEveryScale")
    set(current)
    set(helper OFF) # that looks, before the tests that call it
    foreach(line IN LISTS lines)
      if(line MATCHES "^TEST(_F|_P)?\\(([A-Za-z0-9_]+), ([A-Za-z0-9_]+)\\)")
        set(current "*${CMAKE_MATCH_2}.${CMAKE_MATCH_3}*")
      endif()
      if(line MATCHES "takePicture\\(" AND NOT current)
        set(helper ON)
      endif()
      if(current AND (helper OR line MATCHES "takePicture\\(|AtEveryScale"))
        list(APPEND looking ${current})
      endif()
    endforeach()
  endforeach()
  list(REMOVE_DUPLICATES looking)
  if(NOT looking)
    return()
  endif()
  string(REPLACE ";" ":" filter "${looking}")
  foreach(scale 1.5 2)
    add_test(NAME ${program}_at_${scale} COMMAND ${program} --gtest_filter=${filter})
    get_test_property(${program} ENVIRONMENT environment)
    set_tests_properties(${program}_at_${scale} PROPERTIES TIMEOUT 300 ENVIRONMENT "${environment};QT_SCALE_FACTOR=${scale}")
  endforeach()
endfunction()

# terva_test(<program> [LINKS <target>...] [ALONE <file>...])
# One GoogleTest program from the sources of this folder, known to ctest under
# its name. Tests run without a window, in UTC.
function(terva_test program)
  cmake_parse_arguments(ARG "" "" "LINKS;ALONE" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
  if(NOT sources)
    return()
  endif()
  add_executable(${program} ${sources})
  terva_meta_objects(${program} ${sources})
  target_include_directories(${program} PRIVATE ${CMAKE_SOURCE_DIR}/tests ${CMAKE_CURRENT_SOURCE_DIR})
  # Only programs that ask for the sources' place are told it: all others compile
  # to the same in every clone, and a compiler cache serves them.
  foreach(source IN LISTS sources)
    file(STRINGS ${source} asking REGEX TERVA_SOURCE_DIR LIMIT_COUNT 1)
    if(asking)
      target_compile_definitions(${program} PRIVATE TERVA_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
      break()
    endif()
  endforeach()
  target_compile_options(${program} PRIVATE ${TERVA_TEST_OPTIONS})
  target_link_libraries(${program} PRIVATE ${ARG_LINKS} test_support GTest::gtest)
  terva_precompile(${program} tests)
  terva_join(${program} ALONE ${ARG_ALONE})
  add_test(NAME ${program} COMMAND ${program})
  set(environment "QT_QPA_PLATFORM=offscreen;TZ=UTC;LC_ALL=C.UTF-8")
  if(TERVA_SANITIZE)
    list(APPEND environment "LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/support/lsan.supp:print_suppressions=0")
  endif()
  set_tests_properties(${program} PROPERTIES TIMEOUT 900 ENVIRONMENT "${environment}")
  terva_test_at_scales(${program} "${sources}")
endfunction()
