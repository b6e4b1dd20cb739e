# SPDX-License-Identifier: MIT
# The test programs of this directory: morvella_prova(NAME FILE...)
morvella_prova(text_test
  text/testo_test.cpp
  text/codifica_test.cpp
  text/errore_test.cpp
  text/fetta_test.cpp
  text/canali_lettura_test.cpp
  text/canali_rilettura_test.cpp
  text/canali_scrittura_test.cpp
  text/canali_errori_test.cpp
  text/disco/archivio_test.cpp
  text/flusso_test.cpp
  text/disco/unita_test.cpp)
if(NOT WIN32)
  morvella_prova(disco_posix_test text/disco/disco_posix_test.cpp)
endif()
if(WIN32)
  morvella_prova(disco_windows_test text/disco/disco_windows_test.cpp)
endif()
