# SPDX-License-Identifier: MIT
# The fault sweep over the real program (guasti.cpp). The tests take a part of the points, each run
# of the suite the same ones; strumenti/guasti takes all of them. A sanitizer's library wants to be
# the first one loaded and answers for memory itself: the sweep is for the other builds.
add_library(precarica MODULE guasti/precarica.cpp)
target_link_libraries(precarica PRIVATE ${CMAKE_DL_LIBS} morvella_avvisi)
add_executable(guasti guasti/guasti.cpp)
target_link_libraries(guasti PRIVATE morvella_avvisi)
# A run that is killed or meets a full disk can still leave a marker or a picture cut that the next
# run does not mend: strumenti/guasti shows these two kinds as well, the tests begin without them.
foreach(scena esegui struttura documenta opzioni)
  foreach(modo EIO ENOSPC EACCES EMFILE ENOMEM EINTR corto memoria)
    add_test(NAME guasti.${scena}.${modo}
      COMMAND guasti $<TARGET_FILE:morvella-cli> $<TARGET_FILE:precarica>
              ${CMAKE_CURRENT_BINARY_DIR}/luoghi/${scena}-${modo} --scena ${scena} --modo ${modo} --passo 13)
    set_tests_properties(guasti.${scena}.${modo} PROPERTIES TIMEOUT 1200)
  endforeach()
endforeach()
