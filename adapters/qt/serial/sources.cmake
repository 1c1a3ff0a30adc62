# Needs Qt6::SerialPort.
set(SERIAL_SOURCES
    serial/line_settings.cpp
    serial/open_failure.cpp
    serial/port_names.cpp
    serial/serial_comm.cpp)
