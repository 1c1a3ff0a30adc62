# The program's own widgets and its artwork, relative to the folder above.
set(WIDGET_SOURCES
    widgets/artwork.cpp
    widgets/connector_line.cpp
    widgets/drive_panel.cpp
    widgets/drive_picture.cpp
    widgets/drive_stage.cpp
    widgets/elided_label.cpp
    widgets/hot_spot.cpp
    widgets/image_button.cpp
    widgets/lamp.cpp
    widgets/page_area.cpp
    widgets/page_browser.cpp
    widgets/percent_panel.cpp
    widgets/picture.cpp
    widgets/picture_button.cpp
    widgets/summary_grid.cpp
    ../../../resources/artwork.qrc)
