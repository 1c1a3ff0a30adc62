# What every target of the project is built with.

find_package(Threads REQUIRED)

add_library(kavr6_options INTERFACE)
target_include_directories(kavr6_options INTERFACE ${CMAKE_SOURCE_DIR})
target_compile_options(kavr6_options INTERFACE -Wall -Wextra -Wconversion -Wshadow -Woverloaded-virtual
                                               $<$<BOOL:${KAVR6_WARNINGS_ARE_ERRORS}>:-Werror>)
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

# The path tells the level: a folder with a CMakeLists.txt is one target, named after its path, and may include
# what it declares and nothing else. The declarations are kept in house.txt, one target a line in the order of the
# house, and a test holds all includes against them.
define_property(GLOBAL PROPERTY KAVR6_HOUSE BRIEF_DOCS "Target folders, each with the folders that it uses")

function(kavr6_declare target)
  file(RELATIVE_PATH folder ${CMAKE_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
  list(JOIN ARGN " " uses)
  set_property(GLOBAL APPEND PROPERTY KAVR6_HOUSE "${folder}: ${uses}")
  target_link_libraries(${target} PUBLIC kavr6_options)
  foreach(used IN LISTS ARGN)
    string(REPLACE "/" "_" library ${used})
    target_link_libraries(${target} PUBLIC kavr6_${library})
  endforeach()
endfunction()

# kavr6_library(SOURCES ... USES folder...): the library of this folder.
function(kavr6_library)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  file(RELATIVE_PATH folder ${CMAKE_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
  string(REPLACE "/" "_" name kavr6_${folder})
  add_library(${name} STATIC ${ARG_SOURCES})
  kavr6_declare(${name} ${ARG_USES})
endfunction()

# kavr6_program(NAME SOURCES ... USES folder...): a program of this folder.
function(kavr6_program name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  kavr6_declare(${name} ${ARG_USES})
endfunction()

function(kavr6_write_house)
  get_property(house GLOBAL PROPERTY KAVR6_HOUSE)
  list(JOIN house "\n" text)
  file(WRITE ${CMAKE_BINARY_DIR}/house.txt "${text}\n")
endfunction()
