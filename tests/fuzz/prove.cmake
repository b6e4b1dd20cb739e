# SPDX-License-Identifier: MIT
# Fuzz targets. Their seeds run as plain tests; with MORVELLA_FUZZ and clang each target is a fuzzer
# as well (strumenti/fuzz).
foreach(bersaglio progetto opzioni riordina struttura pagine decodifica comandi)
  add_executable(fuzz_${bersaglio} fuzz/${bersaglio}.cpp)
  target_link_libraries(fuzz_${bersaglio} PRIVATE morvella_sostegno morvella_avvisi)
  if(MORVELLA_FUZZ)
    target_link_options(fuzz_${bersaglio} PRIVATE -fsanitize=fuzzer)
  else()
    target_sources(fuzz_${bersaglio} PRIVATE fuzz/ripassa.cpp)
    add_test(NAME fuzz.${bersaglio}
      COMMAND fuzz_${bersaglio} ${CMAKE_CURRENT_SOURCE_DIR}/fuzz/semi/${bersaglio})
    set_tests_properties(fuzz.${bersaglio} PROPERTIES TIMEOUT 600)
  endif()
endforeach()
