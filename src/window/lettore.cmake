# SPDX-License-Identifier: MIT
# The reader of listings, its library and its program "morvella-lettore".
add_library(morvella_lettore_parte STATIC
  lettore_argomenti.cpp
  lettore_disegno.cpp
  lettore_file.cpp
  lettore_finestra.cpp
  lettore_italiano.cpp
  lettore_procedure.cpp
  lettore_stampa.cpp
  lettore_vista.cpp)
target_include_directories(morvella_lettore_parte PUBLIC ${PROJECT_SOURCE_DIR}/src)
target_link_libraries(morvella_lettore_parte PUBLIC morvella_listing Qt6::Widgets PRIVATE morvella_avvisi)
target_compile_definitions(morvella_lettore_parte PUBLIC MORVELLA_VERSIONE="${PROJECT_VERSION}")
if(TARGET Qt6::PrintSupport)
  target_link_libraries(morvella_lettore_parte PUBLIC Qt6::PrintSupport)
  target_compile_definitions(morvella_lettore_parte PUBLIC MORVELLA_STAMPA)
endif()

add_executable(morvella-lettore lettore_main.cpp)
target_link_libraries(morvella-lettore PRIVATE morvella_lettore_parte morvella_avvisi)
set_target_properties(morvella-lettore PROPERTIES WIN32_EXECUTABLE ON)
# Beside the command line and the window, which start it from there.
morvella_installa_programma(morvella-lettore DESCRIZIONE "Morvella, lettore delle strutture" ICONA morvella-lettore)
