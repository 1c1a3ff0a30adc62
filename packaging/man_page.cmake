# Writes the man page of kavr6: PAGE is TEMPLATE with the sections of what PROGRAM prints for --help.
execute_process(COMMAND "${PROGRAM}" --help OUTPUT_VARIABLE help COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE "\\" "\\\\" help "${help}")
string(REPLACE "-" "\\-" help "${help}")

# section(NAME OUT): the lines below the heading NAME, as entries where a line has two columns.
function(section name out)
  if(NOT help MATCHES "\n${name}\n(([^\n]+\n)+)")
    message(FATAL_ERROR "--help has no section ${name}")
  endif()
  string(REGEX REPLACE "  ([^\n]*[^ \n])  +([^\n]+)\n" ".TP\n.B \\1\n\\2\n" entries "${CMAKE_MATCH_1}")
  set(${out} "${entries}" PARENT_SCOPE)
endfunction()
section(Commands COMMANDS)
section(Options OPTIONS)
section("Exit codes" EXIT_CODES)
section(Examples EXAMPLES)
configure_file("${TEMPLATE}" "${PAGE}" @ONLY)
