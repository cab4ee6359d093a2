# SPDX-License-Identifier: MIT
# The pages: the grid's arithmetic without a window, then each page in the Lite window.
foreach(subject grid grid_neighbours setting_values)
  halvern_test(test_${subject} SOURCES test_${subject}.cpp LINK halvern_pages_core)
endforeach()

foreach(subject layout_page layout_inactive layout_submit layout_report)
  halvern_test(test_${subject}
    SOURCES test_${subject}.cpp test_layout_table.cpp test_layout_table.h
    LINK halvern_lite_fixture)
endforeach()
target_link_libraries(test_layout_report PRIVATE halvern_log_folder)

halvern_test_library(halvern_layout_drag MOC
  SOURCES
    test_layout_drag_display.cpp test_layout_drag_display.h
    test_layout_drag_pointer.cpp test_layout_drag_pointer.h
    test_layout_table.cpp test_layout_table.h
  LINK halvern_lite_fixture)
halvern_test(test_layout_drag
  SOURCES test_layout_drag.cpp
  LINK halvern_layout_drag
  TIMEOUT 300)

foreach(subject mouse_speed_page mouse_speed_custom)
  halvern_test(test_${subject} SOURCES test_${subject}.cpp LINK halvern_lite_fixture TIMEOUT 240)
endforeach()
