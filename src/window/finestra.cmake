# SPDX-License-Identifier: MIT
# The main window, its library and its program "morvella".
set(CMAKE_AUTORCC ON)

morvella_parte(morvella_finestra USA morvella_comandi morvella_docs Qt6::Widgets FILE
  controlli.cpp
  elenchi.cpp
  finestra.qrc
  forma.cpp
  pannello.cpp
  pannello_qt.cpp
  vornok.cpp)

add_executable(morvella WIN32 finestra_main.cpp)
target_link_libraries(morvella PRIVATE morvella_finestra morvella_avvisi)
target_compile_definitions(morvella PRIVATE MORVELLA_VERSIONE="${PROJECT_VERSION}")
morvella_installa_programma(morvella DESCRIZIONE "Morvella")
