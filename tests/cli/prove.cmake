# SPDX-License-Identifier: MIT
# The test programs of this directory: morvella_prova(NAME FILE...)
morvella_prova(cli_test cli/programma_test.cpp cli/struttura_test.cpp cli/dimora_test.cpp cli/eventi_test.cpp
               cli/uso_test.cpp cli/letture_test.cpp)
if(NOT WIN32)
  morvella_prova(terminale_test cli/terminale_test.cpp)
endif()

morvella_prova(esamina_test cli/esamina_test.cpp cli/formati_test.cpp)
if(NOT WIN32)
  add_test(NAME cli.sarif-schema
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/cli/sarif-schema $<TARGET_FILE:morvella-cli>
            ${PROJECT_SOURCE_DIR}/examples/Magazzino)
  set_tests_properties(cli.sarif-schema PROPERTIES SKIP_RETURN_CODE 77 TIMEOUT 600)
endif()

morvella_prova(readme_test cli/readme_test.cpp cli/rilievi_test.cpp)
target_compile_definitions(readme_test PRIVATE MORVELLA_RADICE="${PROJECT_SOURCE_DIR}")

morvella_prova(documenta_test cli/documenta_test.cpp cli/sottocartelle_test.cpp cli/opzioni_test.cpp)

morvella_prova(mostra_test cli/mostra_test.cpp)
target_compile_definitions(mostra_test PRIVATE MORVELLA_RADICE="${PROJECT_SOURCE_DIR}")

morvella_prova(formatta_test cli/formatta_test.cpp cli/verifica_test.cpp)
