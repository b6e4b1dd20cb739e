# SPDX-License-Identifier: MIT
# Installations into a scratch prefix. Both write the build's install manifest, and put it back.
add_test(NAME corredo.sola-lettura
  COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/corredo/sola-lettura ${CMAKE_COMMAND} ${PROJECT_BINARY_DIR}
          ${PROJECT_SOURCE_DIR}/examples/Magazzino)
set_tests_properties(corredo.sola-lettura PROPERTIES
  SKIP_RETURN_CODE 77 RESOURCE_LOCK installazione TIMEOUT 600)
if(Qt6Widgets_FOUND AND NOT APPLE)
  add_test(NAME corredo.desktop
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/corredo/desktop ${CMAKE_COMMAND} ${PROJECT_BINARY_DIR})
  set_tests_properties(corredo.desktop PROPERTIES
    SKIP_RETURN_CODE 77 RESOURCE_LOCK installazione TIMEOUT 600)
endif()
