# What Windows shows of a program and how it treats it: icon, version, manifest.
include(${CMAKE_SOURCE_DIR}/packaging/rights.cmake)
set(windows_folder "${CMAKE_CURRENT_LIST_DIR}")

# The program's picture in the sizes of lists, task bar and desktop; the largest stays packed.
find_program(RSVG_CONVERT rsvg-convert REQUIRED)
find_program(ICOTOOL icotool REQUIRED)
set(picture "${CMAKE_SOURCE_DIR}/resources/artwork/kavr6.svg")
set(windows_icon "${CMAKE_CURRENT_BINARY_DIR}/kavr6.ico")
set(draw_all "")
set(sizes "")
foreach(size IN ITEMS 16 20 24 32 40 48 64 256)
  list(APPEND draw_all COMMAND ${RSVG_CONVERT} -w ${size} -h ${size} "${picture}" -o icon${size}.png)
  list(APPEND sizes icon${size}.png)
endforeach()
list(TRANSFORM sizes REPLACE "^icon256" "--raw=icon256")
add_custom_command(
  OUTPUT "${windows_icon}"
  ${draw_all}
  COMMAND ${ICOTOOL} --create --output=${windows_icon} ${sizes}
  DEPENDS "${picture}"
  WORKING_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}"
  VERBATIM)
add_custom_target(windows_icon DEPENDS "${windows_icon}")

# kavr6_describe(TARGET NAME TITLE): the program goes by NAME there.
function(kavr6_describe target name title)
  set_target_properties(${target} PROPERTIES OUTPUT_NAME ${name})
  set(script "${CMAKE_CURRENT_BINARY_DIR}/${target}.rc")
  set(manifest "${windows_folder}/program.manifest")
  configure_file("${windows_folder}/program.rc.in" "${script}" @ONLY)
  set_source_files_properties("${script}" PROPERTIES OBJECT_DEPENDS "${windows_icon};${manifest}")
  # Apart from the program, whose compiler's options are none of the resource compiler's.
  add_library(${target}_resources OBJECT "${script}")
  add_dependencies(${target}_resources windows_icon)
  target_sources(${target} PRIVATE $<TARGET_OBJECTS:${target}_resources>)
endfunction()
