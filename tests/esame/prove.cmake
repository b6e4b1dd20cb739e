# SPDX-License-Identifier: MIT
# The test programs of this directory: morvella_prova(NAME FILE...)
morvella_prova(esame_test
  esame/blocchi_test.cpp
  esame/condizionale_test.cpp
  esame/frasi_test.cpp
  esame/generatore.cpp
  esame/insidie_test.cpp
  esame/proprieta_test.cpp
  esame/scanner_test.cpp
  esame/testa_test.cpp)
target_link_libraries(esame_test PRIVATE morvella_esame)
