# SPDX-License-Identifier: MIT
# The test programs of this directory: morvella_prova(NAME FILE...)
morvella_prova(rewriter_test rewriter/indenta_test.cpp rewriter/testata_test.cpp rewriter/chiusura_test.cpp
  rewriter/riordina_test.cpp rewriter/voci_test.cpp rewriter/sorgenti_test.cpp rewriter/directory_test.cpp
  rewriter/guasti_test.cpp)
