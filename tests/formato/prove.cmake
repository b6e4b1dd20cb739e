# SPDX-License-Identifier: MIT
# The test programs of this directory: morvella_prova(NAME FILE...)
morvella_prova(formato_test
  esame/generatore.cpp
  formato/formato_test.cpp
  formato/proprieta_test.cpp
  formato/prova_test.cpp)
target_link_libraries(formato_test PRIVATE morvella_formato)
