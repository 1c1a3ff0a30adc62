# What every target of the project is built with.

find_package(Threads REQUIRED)

add_library(kavr6_options INTERFACE)
target_include_directories(kavr6_options INTERFACE ${CMAKE_SOURCE_DIR})
target_compile_options(kavr6_options INTERFACE -Wall -Wextra -Wconversion -Wshadow -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # This version sees overlapping copies in every concatenation of a literal and a std::string.
  target_compile_options(kavr6_options INTERFACE -Wno-restrict)
endif()
if(KAVR6_SANITIZE)
  target_compile_options(kavr6_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                 -fno-omit-frame-pointer)
  target_link_options(kavr6_options INTERFACE -fsanitize=address,undefined)
endif()
if(KAVR6_FUZZ)
  target_compile_options(kavr6_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# kavr6_library(NAME SOURCES ... USES ...): the library of one folder and what it may include.
function(kavr6_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_library(kavr6_${name} STATIC ${ARG_SOURCES})
  target_link_libraries(kavr6_${name} PUBLIC kavr6_options)
  foreach(used IN LISTS ARG_USES)
    target_link_libraries(kavr6_${name} PUBLIC kavr6_${used})
  endforeach()
endfunction()
