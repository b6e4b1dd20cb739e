# SPDX-License-Identifier: MIT
# The test programs of this directory: morvella_prova(NAME FILE...)
morvella_prova(verifica_test
  esame/generatore.cpp
  verifica/casi_test.cpp
  verifica/verifica_test.cpp)
target_link_libraries(verifica_test PRIVATE morvella_verifica)
target_compile_definitions(verifica_test PRIVATE
  MORVELLA_RADICE="${PROJECT_SOURCE_DIR}"
  MORVELLA_CASI="${CMAKE_CURRENT_SOURCE_DIR}/casi"
  MORVELLA_USCITA="${CMAKE_CURRENT_BINARY_DIR}/verifica")
