# SPDX-License-Identifier: MIT
morvella_prova_qt(lettore_file_test morvella_lettore_parte lettore_file.cpp)
morvella_prova_qt(lettore_disegno_test morvella_lettore_parte lettore_disegno.cpp)
morvella_prova_qt(lettore_finestra_test morvella_lettore_parte lettore_finestra.cpp)

# The same windows on finer screens.
foreach(scala 1.25 1.5 2)
  add_test(NAME lettore_finestra_test_${scala} COMMAND lettore_finestra_test)
  set_tests_properties(lettore_finestra_test_${scala} PROPERTIES
    TIMEOUT 120 ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_SCALE_FACTOR=${scala}")
endforeach()

# The program itself. Help needs no screen: no platform has this name.
foreach(caso "aiuto|--aiuto|Uso: morvella-lettore" "versione|-V|morvella-lettore ${PROJECT_VERSION}")
  string(REPLACE "|" ";" caso "${caso}")
  list(GET caso 0 nome)
  list(GET caso 1 opzione)
  list(GET caso 2 atteso)
  add_test(NAME lettore_${nome} COMMAND morvella-lettore ${opzione})
  set_tests_properties(lettore_${nome} PROPERTIES
    PASS_REGULAR_EXPRESSION "${atteso}" ENVIRONMENT "QT_QPA_PLATFORM=nessuna")
endforeach()
add_test(NAME lettore_opzione_sconosciuta COMMAND morvella-lettore --colori)
set_tests_properties(lettore_opzione_sconosciuta PROPERTIES
  PASS_REGULAR_EXPRESSION "opzione sconosciuta: --colori" ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
