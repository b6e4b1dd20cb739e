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

# The captions again on screens of one and a half and of two pixels to a pixel.
foreach(scala 1.5 2)
  add_test(NAME finestra_forma_test_${scala} COMMAND finestra_forma_test
    nessunaDidascaliaTagliata nessunaDidascaliaTagliataConDejaVu misureDellaForma)
  set_tests_properties(finestra_forma_test_${scala} PROPERTIES TIMEOUT 120
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_SCALE_FACTOR=${scala}")
endforeach()
