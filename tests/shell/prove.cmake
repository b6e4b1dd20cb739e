# SPDX-License-Identifier: MIT
# The test programs of this directory: morvella_prova(NAME FILE...)
morvella_prova(shell_test
  shell/progetto_test.cpp
  shell/stato_test.cpp
  shell/cartella_test.cpp
  shell/gestore_test.cpp
  shell/motore_test.cpp)
morvella_prova(opzioni_test shell/opzioni_test.cpp shell/dimora_test.cpp)
