# SPDX-License-Identifier: MIT
# The test programs of this directory: morvella_prova(NAME FILE...)
morvella_prova(listing_test listing/testa_test.cpp listing/corsa_test.cpp listing/comuni_test.cpp
  listing/connettori_test.cpp listing/chiusura_test.cpp listing/commenti_test.cpp listing/lettura_test.cpp
  listing/guasti_test.cpp listing/decodifica_test.cpp)
