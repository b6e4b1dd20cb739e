# SPDX-License-Identifier: MIT
morvella_prova_qt(finestra_test morvella_finestra finestra_test.cpp)
