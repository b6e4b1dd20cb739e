# SPDX-License-Identifier: MIT
# The test programs of this directory: morvella_prova(NAME FILE...)
morvella_prova(scan_test scan/classifica_test.cpp scan/sorgente_test.cpp scan/show_test.cpp
  scan/testa_test.cpp)
