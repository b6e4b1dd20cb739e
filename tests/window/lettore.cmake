# SPDX-License-Identifier: MIT
morvella_prova_qt(lettore_file_test morvella_lettore_parte lettore_file.cpp)
morvella_prova_qt(lettore_disegno_test morvella_lettore_parte lettore_disegno.cpp)
morvella_prova_qt(lettore_finestra_test morvella_lettore_parte lettore_finestra.cpp)

# The same windows on finer screens.
foreach(scala 1.5 2)
  add_test(NAME lettore_finestra_test_${scala} COMMAND lettore_finestra_test)
  set_tests_properties(lettore_finestra_test_${scala} PROPERTIES
    TIMEOUT 120 ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_SCALE_FACTOR=${scala}")
endforeach()
