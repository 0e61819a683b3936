# How a room of src/, a test and a program become targets. Every own target is compiled with all
# warnings as errors; packages that we only use are not.
find_package(Threads REQUIRED)

# GCC 12 sees an overlap in std::string's own operator+ where there is none (bug 105651).
set(ZELORGAS_FALSE_WARNINGS
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>)

function(zelorgas_own_target target)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor -Wold-style-cast
    ${ZELORGAS_FALSE_WARNINGS})
  # A sanitizer's own code makes GCC see overflows where there are none; the other presets judge.
  if(NOT ZELORGAS_SANITIZE)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  if(ZELORGAS_SANITIZE)
    target_compile_options(${target} PRIVATE
      -fsanitize=${ZELORGAS_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    target_link_options(${target} PUBLIC -fsanitize=${ZELORGAS_SANITIZE})
  endif()
  if(ZELORGAS_COVERAGE)
    # Several threads count.
    target_compile_options(${target} PRIVATE --coverage -fprofile-update=atomic)
    target_link_options(${target} PUBLIC --coverage)
  endif()
  if(WIN32)
    target_compile_definitions(${target} PRIVATE UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN)
    target_link_options(${target} PUBLIC -static)
  endif()
endfunction()

# zelorgas_room(link SOURCES a.cpp b.cpp LIBS zelorgas_platform): the library zelorgas_link.
# LIBS are the rooms that this one may include; a wrong arrow fails at link time.
function(zelorgas_room room)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
  add_library(zelorgas_${room} STATIC ${ARG_SOURCES})
  zelorgas_own_target(zelorgas_${room})
  target_link_libraries(zelorgas_${room} PUBLIC ${ARG_LIBS} Threads::Threads)
endfunction()

function(zelorgas_program program)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${program} ${ARG_SOURCES})
  zelorgas_own_target(${program})
  target_link_libraries(${program} PRIVATE ${ARG_LIBS})
endfunction()

# add_zelorgas_test(link_frames SOURCES a_test.cpp LIBS zelorgas_link): one GoogleTest program, one
# line in ctest's summary. THREADS: it starts some; ThreadSanitizer is for those (label and target
# "threads").
add_custom_target(threads)
function(add_zelorgas_test name)
  cmake_parse_arguments(ARG "THREADS" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name}_test ${ARG_SOURCES})
  zelorgas_own_target(${name}_test)
  target_include_directories(${name}_test PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${name}_test PRIVATE ${ARG_LIBS} GTest::gtest_main GTest::gmock)
  add_test(NAME ${name} COMMAND ${name}_test)
  set_tests_properties(${name} PROPERTIES TIMEOUT 300)
  if(ARG_THREADS)
    set_tests_properties(${name} PROPERTIES LABELS threads)
    add_dependencies(threads ${name}_test)
  endif()
endfunction()
