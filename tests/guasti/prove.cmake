# SPDX-License-Identifier: MIT
# The fault sweep over the real program (guasti.cpp). The tests take a part of the points, each run
# of the suite the same ones; strumenti/guasti takes all of them. A sanitizer's library wants to be
# the first one loaded and answers for memory itself: the sweep is for the other builds.
add_library(precarica MODULE guasti/precarica.cpp)
target_link_libraries(precarica PRIVATE ${CMAKE_DL_LIBS} morvella_avvisi)
add_executable(guasti guasti/guasti.cpp)
target_link_libraries(guasti PRIVATE morvella_avvisi)
foreach(scena esegui struttura documenta opzioni)
  add_test(NAME guasti.${scena}
    COMMAND guasti $<TARGET_FILE:morvella-cli> $<TARGET_FILE:precarica>
            ${CMAKE_CURRENT_BINARY_DIR}/luoghi/${scena} --scena ${scena} --passo 13)
  set_tests_properties(guasti.${scena} PROPERTIES TIMEOUT 1200)
endforeach()
