# SPDX-License-Identifier: MIT
# The test programs of this directory: morvella_prova(NAME FILE...)
morvella_prova(lettore_test lettore/struttura_test.cpp)
target_link_libraries(lettore_test PRIVATE morvella_lettore)
