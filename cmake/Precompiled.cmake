# Headers that are compiled once and not six hundred times. They are a matter
# of the build alone: a preset without them compiles every unit by itself, so
# that no include is forgotten.

option(TERVA_PRECOMPILED "Compile the toolkit's headers once for many units, and several units at once" OFF)

# The three holders differ in what they see and in how they are compiled: a
# precompiled header serves only units of the same options, whose definitions
# include its own. So a holder links no more than all of its users do and takes
# the other headers by their folders alone.
function(terva_precompiled_holder kind) # and what else all its users link
  set(empty ${CMAKE_BINARY_DIR}/precompiled_${kind}.cpp)
  if(NOT EXISTS ${empty})
    file(WRITE ${empty} "")
  endif()
  add_library(precompiled_${kind} OBJECT ${empty})
  target_link_libraries(precompiled_${kind} PRIVATE terva_options Qt5::Core ${ARGN})
  foreach(seen Gui Xml Widgets)
    target_include_directories(precompiled_${kind} SYSTEM PRIVATE
      $<TARGET_PROPERTY:Qt5::${seen},INTERFACE_INCLUDE_DIRECTORIES>)
  endforeach()
  target_precompile_headers(precompiled_${kind} PRIVATE ${CMAKE_SOURCE_DIR}/cmake/precompiled/${kind}.h)
endfunction()

if(TERVA_PRECOMPILED)
  terva_precompiled_holder(core)
  terva_precompiled_holder(widgets)
  terva_precompiled_holder(tests GTest::gtest)
  target_compile_options(precompiled_tests PRIVATE ${TERVA_TEST_OPTIONS})
endif()

# terva_precompile(<target> core|widgets|tests)
function(terva_precompile target kind)
  if(TERVA_PRECOMPILED)
    target_precompile_headers(${target} REUSE_FROM precompiled_${kind})
  endif()
endfunction()
