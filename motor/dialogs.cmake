# The windows of motor/. They stand above the rules of number entry, which stand above the motor table.
kavr6_library(motor_dialogs
  SOURCES motor/edit_motor.cpp motor/motor_dialog.cpp motor/motor_dialog_values.cpp
  USES dialogs)
