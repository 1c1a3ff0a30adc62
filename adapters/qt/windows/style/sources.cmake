# How the program looks, relative to the folder above.
set(STYLE_SOURCES
    style/buttons.cpp
    style/colours.cpp
    style/fields.cpp
    style/program_style.cpp
    style/scroll_bars.cpp
    style/sliders.cpp)
