# The upper half of core/: the main screen at work and the composition of the program. It stands above the
# folders that the lower half stands below.
kavr6_library(program
  SOURCES core/configurator.cpp core/main_form.cpp core/start_form.cpp
  USES config_file image motor_dialogs reports)
