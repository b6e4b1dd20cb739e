# SPDX-License-Identifier: MIT
# The test programs of this directory: morvella_prova(NAME FILE...)
morvella_prova(docs_test docs/pagina_test.cpp docs/scansione_test.cpp docs/corsa_test.cpp
  docs/figure_test.cpp docs/indice_test.cpp docs/aiuto_test.cpp docs/guasti_test.cpp)
