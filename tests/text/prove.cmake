# SPDX-License-Identifier: MIT
# The test programs of this directory: morvella_prova(NAME FILE...)
morvella_prova(text_test
  text/testo_test.cpp
  text/codifica_test.cpp
  text/errore_test.cpp
  text/fetta_test.cpp
  text/canali_test.cpp
  text/archivio_test.cpp
  text/flusso_test.cpp
  text/unita_test.cpp)
if(NOT WIN32)
  morvella_prova(disco_posix_test text/disco_posix_test.cpp)
endif()
if(WIN32)
  morvella_prova(disco_windows_test text/disco_windows_test.cpp)
endif()
