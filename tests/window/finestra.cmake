# SPDX-License-Identifier: MIT
# The main window and the help panel: finestra_NAME_test from NAME_test.cpp.
foreach(nome forma corsa opzioni elenchi pannello apri alberi)
  morvella_prova_qt(finestra_${nome}_test morvella_finestra ${nome}_test.cpp)
endforeach()
target_compile_definitions(finestra_apri_test PRIVATE MORVELLA="$<TARGET_FILE:morvella>")
add_dependencies(finestra_apri_test morvella)
target_compile_definitions(finestra_alberi_test PRIVATE
  MORVELLA_RADICE="${PROJECT_SOURCE_DIR}"
  MORVELLA_CASI="${PROJECT_SOURCE_DIR}/tests/casi"
  MORVELLA_CASI_USCITA="${CMAKE_CURRENT_BINARY_DIR}/casi")

# The captions again on screens of one and a half and of two pixels to a pixel, and on a machine
# that has one font only, and a wide one.
function(didascalie nome)
  add_test(NAME finestra_forma_test_${nome}
    COMMAND finestra_forma_test nessunaDidascaliaTagliata misureDellaForma)
  set_tests_properties(finestra_forma_test_${nome} PROPERTIES TIMEOUT 120
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;${ARGN}")
endfunction()
didascalie(150 QT_SCALE_FACTOR=1.5)
didascalie(200 QT_SCALE_FACTOR=2)
find_file(DEJAVU DejaVuSans.ttf PATHS /usr/share/fonts PATH_SUFFIXES truetype/dejavu dejavu TTF NO_DEFAULT_PATH)
if(DEJAVU)
  cmake_path(GET DEJAVU PARENT_PATH DEJAVU_DIR)
  configure_file(caratteri.conf.in caratteri.conf @ONLY)
  didascalie(dejavu FONTCONFIG_FILE=${CMAKE_CURRENT_BINARY_DIR}/caratteri.conf "MORVELLA_CARATTERE=DejaVu Sans")
endif()
