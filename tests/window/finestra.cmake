# SPDX-License-Identifier: MIT
# The main window and the help panel: finestra_NAME_test from NAME_test.cpp.
foreach(nome forma corsa opzioni elenchi pannello apri)
  morvella_prova_qt(finestra_${nome}_test morvella_finestra ${nome}_test.cpp)
endforeach()
target_compile_definitions(finestra_apri_test PRIVATE MORVELLA="$<TARGET_FILE:morvella>")
add_dependencies(finestra_apri_test morvella)
